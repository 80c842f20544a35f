#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "cli/CommandLine.h"
#include "cli/Complaints.h"
#include "cli/FileReading.h"
#include "cli/SharedPlan.h"
#include "cli/many/ManyFiles.h"
#include "cli/report/GuessReport.h"
#include "cli/report/JsonReport.h"
#include "cli/report/TextReport.h"
#include "host/SourceFiles.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"

namespace kelvarin::cli {
namespace {
int AnalyzeFile(const ModuleLoader& module, const CommonOptions& common, const ReadingOptions& options,
                const std::string& file) {
    const std::u16string path = PathFromNative(file);
    FileReading reading(module, file, common, options);
    RunOptions run;
    run.Reading = reading.Automatic();
    HostSession session(module, path, std::move(run));
    const bool analyzed = reading.WhyUnlike().empty() && session.Filter().AnalyzeFile();
    if (common.Json) {
        WriteAnalyzeJson(std::cout, file, analyzed, session.Filter(), reading.Guess());
    } else if (analyzed) {
        WriteFormatText(std::cout, file, session.Filter(), *reading.Automatic());
        if (reading.Guess() != nullptr) WriteGuessText(std::cout, *reading.Guess());
    }
    if (!reading.WhyUnlike().empty()) return Fail(file, reading.WhyUnlike());
    const int status = analyzed ? int{ExitDone} : Fail(file, WhyUnreadable(session.Filter(), path));
    return reading.WithComplaints(status);
}
}  // namespace

void AddAnalyzeCommand(CommandLine& line) {
    const auto options = std::make_shared<ReadingOptions>();
    const auto many = std::make_shared<ManyFiles>();
    const auto shared = std::make_shared<SharedPlan>();
    CLI::App& command =
        line.Add("analyze", Phrase("What the analysis finds: format and columns"),
                 [options, many, shared](const ModuleLoader& module, const CommonOptions& common) {
                     const int status = shared->Prepare(module, common, *many, *options);
                     if (status != ExitDone) return status;
                     return many->Run(common.Files, Phrase("analyzed"), [&](const std::string& file) {
                         return AnalyzeFile(module, common, *options, file);
                     });
                 });
    AddReadingOptions(command, *options);
    AddSaveOption(command, *options);
    shared->AddOption(command);
    many->AddOptions(command);
    AddExamples(command,
                {"kelvarin-import analyze data.csv",
                 "kelvarin-import analyze --set AutoFormat=0 --set Separator=2 --set FirstLine=25 data.txt"});
}
}  // namespace kelvarin::cli
