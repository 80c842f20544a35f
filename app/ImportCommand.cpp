#include <algorithm>
#include <iostream>

#include "app/Commands.h"
#include "app/Complaints.h"
#include "app/ExitStatus.h"
#include "app/HostSession.h"
#include "app/JsonReport.h"
#include "app/ProgressLine.h"
#include "app/SettingsJson.h"
#include "app/SourceCheck.h"
#include "app/TextReport.h"
#include "app/TimeAdvice.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"
#include "platform/framework/Text.h"

namespace {

RunOptions MakeRunOptions(const Options& options, ProgressLine& progress) {
    RunOptions run;
    run.BaseTime = options.BaseTime;
    run.KeepSamples = options.KeepAll ? AllSamples : options.Samples.value_or(0);
    run.KeepAllMessages = options.Json;
    run.OnProgress = [&progress](std::uint32_t percent) { progress.Show(percent); };
    return run;
}

// True if rows were read and not one of them was stored.
bool LostEveryRow(const RunResult& result, const HostSession& session) {
    const StoredDevice* const device = session.Device();
    if (!result.Begun || result.Lines == 0 || device == nullptr) return false;
    return device->Signals.empty() || device->Signals.front()->Summary().Count == 0;
}

// Empty, or why the file counts as failed.
std::string WhyFailed(const std::u16string& path, const RunResult& result, HostSession& session) {
    if (!result.Failed && !LostEveryRow(result, session)) return {};
    std::string reason = WhyUnreadable(path);
    if (!result.Failed || !reason.empty()) return reason;
    reason = Utf16ToUtf8(session.Messages().Groups().back().FirstText);
    // The file can be read, so it is the place of the table that is wrong.
    const FormatSummary format = SummarizeFormat(SettingsOf(session.Filter()));
    const int line = format.HeaderLine != 0 ? format.HeaderLine : format.FirstDataLine;
    return reason + " No table was found at line " + std::to_string(line) +
           "; name its line: --set AutoFormat=0 --set FirstLine=<line> --set ImportHeader=<0 or 1>";
}

void WriteText(const ModuleLoader& module, const std::string& file, const std::u16string& path,
               const RunResult& result, HostSession& session) {
    if (!result.Begun) return;
    std::string advice;
    const bool readsTime = SummarizeFormat(SettingsOf(session.Filter())).TimeSetting == 0;
    const bool hasReason =
        !session.Messages().IsEmpty();  // a lone column of times gives no signal, and rightly so
    if (LostEveryRow(result, session) && readsTime && hasReason)
        advice = AdviseTimestamp(module, path, session.Filter());
    WriteFormatText(std::cout, file, session.Filter());
    WriteRunText(std::cout, result, session, advice);
}

int ImportFile(const ModuleLoader& module, const Options& options, const std::string& file) {
    const std::u16string path = PathFromNative(file);
    RunResult result;
    std::string reason;
    {
        ProgressLine progress(file);
        HostSession session(module.Factory(), path, MakeRunOptions(options, progress));
        result = session.Run([&] {
            return static_cast<std::uint64_t>(SummarizeFormat(SettingsOf(session.Filter())).FirstDataLine);
        });
        reason = WhyFailed(path, result, session);
        if (options.Json) {
            WriteImportJson(std::cout, file, result, session, options.Samples);
        } else {
            WriteText(module, file, path, result, session);
        }
    }
    if (!reason.empty()) ComplainAbout(file, reason);
    if (result.Interrupted) return ExitInterrupted;
    return reason.empty() ? ExitDone : ExitFileFailed;
}

}  // namespace

int RunImportCommand(const ModuleLoader& module, const Options& options) {
    CatchInterrupt();
    int status = ExitDone;
    for (const std::string& file : options.Files) {
        status = std::max(status, ImportFile(module, options, file));
        if (status == ExitInterrupted) break;
    }
    return status;
}
