// One reading of a file with its check, which can be gone on with once the file has grown.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/HostSession.h"
#include "host/check/CheckRun.h"
#include "view/model/FileImport.h"
#include "view/model/GrowingSignals.h"
#include "view/model/RowLines.h"

namespace kelvarin::view {
// When to tell of a run: a few times a second, the first one after a while, as a file that is read at once
// needs none. What is done then takes at most a fiftieth of the time.
class UpdateTimes {
  public:
    bool IsDue() const { return Clock::now() >= Next; }

    template <class Do>
    void At(Do what) {
        constexpr int LeastShare = 50;
        const Clock::time_point begin = Clock::now();
        what();
        const Clock::time_point end = Clock::now();
        Next = end + std::max<Clock::duration>(Apart, (end - begin) * LeastShare);
    }

  private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::milliseconds Apart{250};

    Clock::time_point Next = Clock::now() + Apart / 2;
};

// One thread at a time.
class CheckedRun {
  public:
    explicit CheckedRun(const std::u16string& path) : Check(path), Path(path) {}

    // Reads all of the file. Nothing of the order is asked afterwards.
    void Read(const ModuleLoader& module, const ImportOrder& order, plan::AutomaticReading* reading);

    // Reads what has come since. False if the file isn't the one that was read, or its new lines make it one
    // that is read otherwise: nothing more is asked of this.
    bool GoOn(const ModuleLoader& module, const ImportOrder& order, plan::AutomaticReading* reading);

    // After one of the two: the check of all that was read.
    check::CheckResult Checked(const ModuleLoader& module, plan::AutomaticReading* reading);

    // All signals as they are now. Of the device of the last session.
    std::vector<std::shared_ptr<const PlottedSignal>> AllSignals(
        const std::shared_ptr<const store::StoredDevice>& device) {
        return Signals.MakeAll(device);
    }

    // True if it can be gone on with.
    bool HasEnd() const { return End.has_value(); }

    HostSession& LastSession() { return *Session; }
    const RunResult& LastResult() const { return Result; }
    const RowLines& RowsByLine() const { return Lines; }
    std::uint64_t LinesReadBefore() const { return LinesBefore; }  // by earlier ones

  private:
    RunOptions OptionsFor(const ImportOrder& order, plan::AutomaticReading* reading);
    void Run(const ModuleLoader& module, const ImportOrder& order, RunOptions options);
    ImportProgress SoFar(const ImportOrder& order);
    std::vector<std::size_t> Wanted(const store::StoredDevice& device, const ImportOrder& order) const;

    check::CheckOfRun Check;
    const std::u16string Path;
    RowLines Lines;
    GrowingSignals Signals;
    UpdateTimes Due;
    std::uint32_t Percent = 0;
    std::uint64_t LinesBefore = 0;
    std::unique_ptr<HostSession> Session;
    RunResult Result;
    std::optional<RunEnd> End;  // of the last run
};
}  // namespace kelvarin::view
