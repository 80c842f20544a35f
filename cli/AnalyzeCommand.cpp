#include <iostream>

#include "cli/Commands.h"
#include "cli/Complaints.h"
#include "cli/ExitStatus.h"
#include "cli/GuessOptions.h"
#include "cli/many/ManyFiles.h"
#include "cli/report/GuessReport.h"
#include "cli/report/JsonReport.h"
#include "cli/report/TextReport.h"
#include "host/HostSession.h"
#include "host/SourceCheck.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"

namespace kelvarin::cli {

namespace {

int AnalyzeFile(const ModuleLoader& module, const CommonOptions& options, const guess::GuessOptions& guessing,
                const std::string& file) {
    const std::u16string path = PathFromNative(file);
    const guess::GuessLayer guessed(module, path, guessing, options.Settings);
    HostSession session(module, path, RunOptions());
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
    const auto guessing = std::make_shared<guess::GuessOptions>();
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

}  // namespace kelvarin::cli
