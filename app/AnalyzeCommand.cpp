#include <iostream>

#include "app/Commands.h"
#include "app/Complaints.h"
#include "app/ExitStatus.h"
#include "app/HostSession.h"
#include "app/JsonReport.h"
#include "app/SourceCheck.h"
#include "app/TextReport.h"
#include "app/language/Phrase.h"
#include "platform/framework/Path.h"

namespace {

int AnalyzeFile(const ModuleLoader& module, const CommonOptions& options, const std::string& file) {
    const std::u16string path = PathFromNative(file);
    HostSession session(module.Factory(), path, RunOptions());
    const bool analyzed = session.Filter().AnalyzeFile();
    if (options.Json) {
        WriteAnalyzeJson(std::cout, file, analyzed, session.Filter());
    } else if (analyzed) {
        WriteFormatText(std::cout, file, session.Filter());
    }
    if (analyzed) return ExitDone;
    ComplainAbout(file, WhyUnreadable(path));
    return ExitFileFailed;
}

}  // namespace

void AddAnalyzeCommand(CommandLine& line) {
    CLI::App& command = line.Add("analyze", Phrase("What the analysis finds: format and columns"),
                                 [](const ModuleLoader& module, const CommonOptions& common) {
                                     int status = ExitDone;
                                     for (const std::string& file : common.Files) {
                                         if (AnalyzeFile(module, common, file) != ExitDone)
                                             status = ExitFileFailed;
                                     }
                                     return status;
                                 });
    command.footer(
        Phrase("Examples:\n"
               "  kelvarin-import analyze data.csv\n"
               "  kelvarin-import analyze --set AutoFormat=0 --set Separator=2 --set FirstLine=25 data.txt"));
}
