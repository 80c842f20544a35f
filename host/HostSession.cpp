#include "host/HostSession.h"

#include <limits>
#include <utility>

#include "host/Reading.h"

namespace kelvarin {

HostSession::HostSession(const ModuleLoader& module, const std::u16string& path, RunOptions options)
    : Options(std::move(options)),
      AllMessages(Options.KeepAllMessages),
      ImportFilter(module.MakeFilter(path)) {
    ImportFilter->DeviceHost = this;
    ImportFilter->TimeContext = this;
}

CDevice* HostSession::CreateDevice(std::u16string name, const char16_t* description, int) {
    Store = std::make_unique<store::StoredDevice>(std::move(name), description, Options.KeepSamples,
                                                  Options.Sink);
    return Store.get();
}

// The device stays with the session: its content is what the caller wants to see.
void HostSession::FinishDevice(CDevice*) {
    Store->Finish();
}

bool HostSession::CollectMessages(std::uint64_t line) {
    if (!ImportFilter->HasMessages()) return false;
    bool anyFailure = false;
    for (const ImportMessage& message : ImportFilter->TakeMessages()) {
        AllMessages.Add(message, line);
        anyFailure |= message.Failure;
    }
    return anyFailure;
}

RunResult HostSession::Run() {
    RunResult result;
    if (IObservedRun* const run = ImportFilter->Find<IObservedRun>()) run->ObserveRun(Options.Observer);
    result.Begun = ImportFilter->BeginImport();
    result.Failed = !result.Begun;
    CollectMessages(0);
    if (result.Begun && Options.OnBegun) Options.OnBegun(*ImportFilter);
    if (result.Begun) ReadLines(result, static_cast<std::uint64_t>(ReadingOf(*ImportFilter).FirstDataLine));
    ImportFilter->EndImport();
    return result;
}

void HostSession::ReadLines(RunResult& result, std::uint64_t firstDataLine) {
    constexpr std::uint32_t Unset = std::numeric_limits<std::uint32_t>::max();
    std::uint32_t progress = Unset;
    std::uint32_t shown = Unset;
    while (result.Lines < Options.MostLines) {
        if (Options.Sink != nullptr && Options.Sink->HasFailed()) return;
        if (Options.Cancel != nullptr && *Options.Cancel) {
            result.Interrupted = true;
            return;
        }
        const bool more = ImportFilter->ImportNextLine(&progress);
        const bool anyFailure = CollectMessages(firstDataLine + result.Lines);
        if (progress != shown) {
            shown = progress;
            result.Progress.push_back(progress);
            if (Options.OnProgress) Options.OnProgress(progress);
        }
        if (!more) {
            // Only a read error ends the run with a failure; the end of the file adds no message.
            result.Failed = anyFailure;
            return;
        }
        ++result.Lines;
    }
}

}  // namespace kelvarin
