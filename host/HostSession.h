// The life of one filter in the host's order.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "contract/ImportFilter.h"
#include "contract/RunObserver.h"
#include "host/MessageList.h"
#include "host/ModuleLoader.h"
#include "host/store/StoredDevice.h"

namespace kelvarin {

constexpr std::size_t AllSamples = std::numeric_limits<std::size_t>::max();

// What a host wants of a run.
struct RunOptions {
    std::optional<std::int64_t> BaseTime;  // start of relative time; none: the fixed epoch
    std::size_t KeepSamples = 0;           // of each signal
    bool KeepAllMessages = false;
    std::uint64_t MostLines = ~std::uint64_t{0};        // the run ends after so many
    std::function<void(const CImportFilter&)> OnBegun;  // told before the first line, if the run has begun
    std::function<void(std::uint32_t)> OnProgress;      // told each new percentage
    store::DeviceSink* Sink = nullptr;                  // gets every sample; the run ends when it has failed
    IRunObserver* Observer = nullptr;                   // told what becomes of each row
    const std::atomic<bool>* Cancel = nullptr;          // ends the run once it is true, set from any thread
};

// What became of a run.
struct RunResult {
    bool Begun = false;                   // BeginImport said so
    bool Failed = false;                  // could not begin, or a read error ended it
    bool Interrupted = false;             // Cancel ended it
    std::uint64_t Lines = 0;              // calls of ImportNextLine that answered true
    std::vector<std::uint32_t> Progress;  // percentages as they changed
};

// Makes a filter for one file, lends it the host's objects and drives it. Destroys the filter with itself.
class HostSession : private IDeviceHost, private IRelativeTimeContext {
  public:
    HostSession(const ModuleLoader& module, const std::u16string& path, RunOptions options);

    CImportFilter& Filter() { return *ImportFilter; }
    const CImportFilter& Filter() const { return *ImportFilter; }

    // BeginImport, ImportNextLine until it ends, EndImport.
    RunResult Run();

    const MessageList& Messages() const { return AllMessages; }

    // The device of the run, or null.
    const store::StoredDevice* Device() const { return Store.get(); }

  private:
    CDevice* CreateDevice(std::u16string name, const char16_t* description, int reserved) override;
    void FinishDevice(CDevice* device) override;
    std::int64_t GetBaseTime() override { return Options.BaseTime.value_or(0); }
    bool QueryFixedBaseB() override { return false; }
    bool QueryFixedBaseA() override { return !Options.BaseTime.has_value(); }

    // Takes the filter's messages over; true if one of them is a failure.
    bool CollectMessages(std::uint64_t line);
    void ReadLines(RunResult& result, std::uint64_t firstDataLine);

    const RunOptions Options;
    MessageList AllMessages;
    std::unique_ptr<store::StoredDevice> Store;  // outlives the filter's use of its signals
    std::unique_ptr<CImportFilter> ImportFilter;
};

}  // namespace kelvarin
