#include <iostream>
#include <memory>

#include "cli/CommandLine.h"
#include "cli/Complaints.h"
#include "cli/GuessOptions.h"
#include "cli/many/ManyFiles.h"
#include "cli/report/GuessReport.h"
#include "cli/report/JsonReport.h"
#include "cli/report/TextReport.h"
#include "host/SourceFiles.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"

namespace kelvarin::cli {
namespace {
int AnalyzeFile(const ModuleLoader& module, const CommonOptions& common, const guess::GuessOptions& guessing,
                const std::string& file) {
    const std::u16string path = PathFromNative(file);
    const guess::GuessLayer guessed(module, path, guessing, common.Settings);
    HostSession session(module, path, RunOptions());
    const bool analyzed = session.Filter().AnalyzeFile();
    if (common.Json) {
        WriteAnalyzeJson(std::cout, file, analyzed, session.Filter(), guessed.Guess());
    } else if (analyzed) {
        WriteFormatText(std::cout, file, session.Filter());
        if (guessed.Guess() != nullptr) WriteGuessText(std::cout, *guessed.Guess());
    }
    const int status = analyzed ? int{ExitDone} : Fail(file, WhyUnreadable(session.Filter(), path));
    return WithSaving(status, file, guessed.Guess());
}
}  // namespace

void AddAnalyzeCommand(CommandLine& line) {
    const auto guessing = std::make_shared<guess::GuessOptions>();
    const auto many = std::make_shared<ManyFiles>();
    CLI::App& command =
        line.Add("analyze", Phrase("What the analysis finds: format and columns"),
                 [guessing, many](const ModuleLoader& module, const CommonOptions& common) {
                     return many->Run(common.Files, Phrase("analyzed"), [&](const std::string& file) {
                         return AnalyzeFile(module, common, *guessing, file);
                     });
                 });
    AddGuessOptions(command, *guessing);
    many->AddOptions(command);
    AddExamples(command,
                {"kelvarin-import analyze data.csv",
                 "kelvarin-import analyze --set AutoFormat=0 --set Separator=2 --set FirstLine=25 data.txt"});
}
}  // namespace kelvarin::cli
