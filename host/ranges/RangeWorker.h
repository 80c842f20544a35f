// One filter that imports range after range of a file into a device of its own.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "contract/ImportFilter.h"
#include "contract/RangeReading.h"
#include "host/plan/RunGuide.h"
#include "host/ranges/RunRecord.h"
#include "host/store/StoredDevice.h"

namespace kelvarin::ranges {
// Bytes of a file from the start of a line on, and the place among the ranges.
struct Range {
    std::uint64_t Index = 0;
    std::uint64_t Begin = 0;
    std::optional<std::uint64_t> End;  // none: the end of the file
};

// What the import of a range gives beside samples.
struct RangeResult {
    std::uint64_t Lines = 0;  // calls of ImportNextLine that returned true
    std::vector<std::pair<std::uint64_t, ImportMessage>> Messages;  // with the number of lines read before
    std::vector<std::uint32_t> Progress;                            // percentages as they changed
    bool Failed = false;                                            // a read error ended it
    bool Interrupted = false;
    bool HasTooMany = false;  // messages or events to keep, which ended it
};

// Made and destroyed on the thread of the run; in between one thread at a time uses it.
class RangeWorker : private IDeviceHost {
  public:
    // `whole` is the device of all ranges, `guide` that of the run, null for none, `cancel` as of RunOptions.
    // At most so many bytes of messages are kept of a range, and of what an observer is to hear.
    RangeWorker(std::unique_ptr<CImportFilter> filter, IRelativeTimeContext& times,
                store::StoredDevice& whole, const plan::RunGuide* guide, const std::atomic<bool>* cancel,
                std::size_t mostMessages);
    ~RangeWorker() override;

    // From now on Record has what each import tells an observer.
    void KeepRecord();

    // Before all else: false if the filter can't follow the leader.
    bool Follow(IRangeReading& leader);

    // Reads a range into memory and counts its lines. Raises std::bad_alloc, as the next does.
    RangeLines Load(const Range& range) { return Reading->LoadRange(range.Begin, range.End); }

    // The next import is guided as `guide` is now.
    void BeGuidedAs(const plan::RunGuide* guide);

    // Imports the range that was loaded from a state that is assumed.
    void Import(const RunState& assumed);

    // After Import: true if it has given what it gives from the true state.
    bool IsConfirmed(const RunState& truth, const plan::RunGuide* guide) const;

    // The state behind the range, after a state that is confirmed.
    RunState StateAfter(const RunState& truth) const;

    RangeResult& Result() { return Imported; }
    const RunRecord& Record() const { return Told; }
    store::StoredDevice& Device() { return *Part; }
    const plan::RunGuide* Guide() const { return Asked ? &*Asked : nullptr; }

    // Ends the filter's run and hands over the device.
    std::unique_ptr<store::StoredDevice> End();

  private:
    CDevice* CreateDevice(std::u16string name, const char16_t* description, int reserved) override;
    void FinishDevice(CDevice*) override {}
    bool CollectMessages();

    store::StoredDevice& Whole;
    const std::atomic<bool>* const Cancel;
    const std::size_t MostMessages;
    std::unique_ptr<store::StoredDevice> Part;  // outlives the filter's use of its signals
    std::optional<plan::RunGuide> Asked;
    std::unique_ptr<CImportFilter> Filter;
    IRangeReading* Reading;  // of Filter; null if it has none
    RunState Assumed;
    RangeResult Imported;
    RunRecord Told;
    std::size_t MessageBytes = 0;
};
}  // namespace kelvarin::ranges
