// One device of the samples of several runs, one after the other.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "contract/DeviceHost.h"
#include "host/store/SampleFile.h"
#include "host/store/StoredDevice.h"

namespace kelvarin::store {
// What became of the rows of one run. Times in nanoseconds.
struct JoinedPart {
    std::uint64_t Rows = 0;                    // stored
    std::uint64_t LeftOut = 0;                 // that don't come after the last row of the runs before
    std::int64_t FirstTime = 0, LastTime = 0;  // of those stored
    std::int64_t Shift = 0;                    // whole days that were added to the times
};

// The first run makes the signals. Those of the later ones must have the same names and types; their samples
// run on, and rows that don't come after the last one before them are left out. One thread.
class JoinedDevice {
  public:
    // As of StoredDevice.
    JoinedDevice(std::uint64_t keepLimit, DeviceSink* sink);
    ~JoinedDevice();

    // The device of the next run, valid until the one after it. `name` and `columns` count for the first run.
    CDevice* BeginRun(const std::u16string& name, const std::u16string& description,
                      std::vector<int> columns);

    // The times of the next run are clocks without a date: where they begin before the last row, days are
    // added.
    void AllowDays() { AreDaysAllowed = true; }

    // After a run: what became of its rows.
    JoinedPart EndRun();

    // Why the signals of the last run are not those of the first, in one sentence; empty if they are.
    const std::string& WhyUnlike() const { return Unlike; }

    // Called once, after the last run.
    void Finish();

    // Null before the first run.
    const StoredDevice* Device() const { return Store.get(); }

  private:
    class Run;
    class Signal;

    const std::uint64_t KeepLimit;
    DeviceSink* const Sink;
    std::unique_ptr<StoredDevice> Store;
    std::vector<std::unique_ptr<Signal>> Signals;  // one for each of Store, in their order
    std::unique_ptr<Run> Current;
    JoinedPart Part;
    std::uint64_t Runs = 0;
    std::int64_t End = 0;  // of all runs before, if there was a row
    bool HasRows = false;
    bool AreDaysAllowed = false;
    std::string Unlike;
};
}  // namespace kelvarin::store
