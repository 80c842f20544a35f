#include <algorithm>
#include <iostream>

#include "cli/Commands.h"
#include "cli/Complaints.h"
#include "cli/ExitStatus.h"
#include "cli/report/ExplainReport.h"
#include "host/HostSession.h"
#include "host/SourceCheck.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"

namespace kelvarin::cli {

namespace {

int ExplainFile(const ModuleLoader& module, const CommonOptions& options, const std::string& file) {
    const std::u16string path = PathFromNative(file);
    explain::AnalysisRecord record;
    HostSession session(module, path, RunOptions());
    record.ListenTo(session.Filter());
    if (!session.Filter().AnalyzeFile()) {
        ComplainAbout(file, WhyUnreadable(path));
        return ExitFileFailed;
    }
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
    CLI::App& command =
        line.Add("explain", Phrase("Why a file is read as it is, what surprises about it, and what to set"),
                 [](const ModuleLoader& module, const CommonOptions& common) {
                     int status = ExitDone;
                     for (const std::string& file : common.Files) {
                         status = std::max(status, ExplainFile(module, common, file));
                     }
                     return status;
                 });
    command.footer(
        Phrase("Examples:\n  kelvarin-import explain data.csv\n  kelvarin-import explain --json *.csv "
               ">reasons.json"));
}

}  // namespace kelvarin::cli
