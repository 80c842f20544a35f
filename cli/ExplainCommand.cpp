#include <iostream>
#include <memory>

#include "cli/CommandLine.h"
#include "cli/Complaints.h"
#include "cli/many/ManyFiles.h"
#include "cli/report/ExplainReport.h"
#include "host/HostSession.h"
#include "host/SourceFiles.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"

namespace kelvarin::cli {

namespace {

int ExplainFile(const ModuleLoader& module, const CommonOptions& options, const std::string& file) {
    const std::u16string path = PathFromNative(file);
    explain::AnalysisRecord record;
    HostSession session(module, path, RunOptions());
    record.ListenTo(session.Filter());
    if (!session.Filter().AnalyzeFile()) return Fail(file, WhyUnreadable(path));
    const explain::Explanation explanation = explain::Explain(module, path, session.Filter(), record);
    if (options.Json) {
        WriteExplanationJson(std::cout, file, explanation);
    } else {
        WriteExplanationText(std::cout, file, explanation);
    }
    return ExitDone;
}

}  // namespace

void AddExplainCommand(CommandLine& line) {
    const auto many = std::make_shared<ManyFiles>();
    CLI::App& command = line.Add(
        "explain", Phrase("Why a file is read as it is, what surprises about it, and what to set"),
        [many](const ModuleLoader& module, const CommonOptions& common) {
            return many->Run(common.Files, Phrase("explained"),
                             [&](const std::string& file) { return ExplainFile(module, common, file); });
        });
    many->AddOptions(command);
    AddExamples(command,
                {"kelvarin-import explain data.csv", "kelvarin-import explain --json *.csv >reasons.json"});
}

}  // namespace kelvarin::cli
