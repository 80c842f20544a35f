#include <iostream>

#include "app/Commands.h"
#include "app/Complaints.h"
#include "app/ExitStatus.h"
#include "app/HostSession.h"
#include "app/JsonReport.h"
#include "app/SourceCheck.h"
#include "app/TextReport.h"
#include "app/guess/GuessInForce.h"
#include "app/guess/GuessReport.h"
#include "app/language/Phrase.h"
#include "app/many/ManyFiles.h"
#include "platform/framework/Path.h"

namespace {

int AnalyzeFile(const ModuleLoader& module, const CommonOptions& options, const GuessOptions& guessing,
                const std::string& file) {
    const std::u16string path = PathFromNative(file);
    const GuessInForce guessed(module, options, guessing, path);
    HostSession session(module.Factory(), path, RunOptions());
    const bool analyzed = session.Filter().AnalyzeFile();
    if (options.Json) {
        WriteAnalyzeJson(std::cout, file, analyzed, session.Filter(), guessed.Guess());
    } else if (analyzed) {
        WriteFormatText(std::cout, file, session.Filter());
        if (guessed.Guess() != nullptr) WriteGuessText(std::cout, *guessed.Guess());
    }
    if (analyzed) return ExitDone;
    ComplainAbout(file, WhyUnreadable(path));
    return ExitFileFailed;
}

}  // namespace

void AddAnalyzeCommand(CommandLine& line) {
    const auto guessing = std::make_shared<GuessOptions>();
    const auto many = std::make_shared<ManyFiles>();
    CLI::App& command =
        line.Add("analyze", Phrase("What the analysis finds: format and columns"),
                 [guessing, many](const ModuleLoader& module, const CommonOptions& common) {
                     return many->Run(common, Phrase("analyzed"), [&](const std::string& file, Tally&) {
                         return AnalyzeFile(module, common, *guessing, file);
                     });
                 });
    AddGuessOptions(command, *guessing);
    many->AddOptions(command);
    command.footer(
        Phrase("Examples:\n"
               "  kelvarin-import analyze data.csv\n"
               "  kelvarin-import analyze --set AutoFormat=0 --set Separator=2 --set FirstLine=25 data.txt"));
}
