// Where the samples of a run go as they come, beside the summary that the store keeps of them.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kelvarin::store {

struct SignalDescription;

// Takes the samples of one signal in order. It is called out of the module, so no exception may leave it: a
// failure is remembered and told by DeviceSink::HasFailed.
class SignalSink {
  public:
    virtual ~SignalSink() = default;

    // The next values, as the signal's type code lays them out. `gaps` is null, or has a flag for each value:
    // not 0 where a sample has none.
    virtual void TakeValues(const void* values, std::size_t count, const std::uint8_t* gaps) = 0;

    // The next text of a signal of texts, in code units; null for a sample without a value.
    virtual void TakeText(const char16_t* text, std::size_t length) = 0;
};

// Takes the samples of one device, whose signals share their times.
class DeviceSink {
  public:
    virtual ~DeviceSink() = default;

    // Called for each signal before the first time. The description and the answer live as long as the
    // device; symbol and unit are still missing. Null: the signal's samples aren't wanted.
    virtual SignalSink* AddSignal(const SignalDescription& about) = 0;

    // The time of the next sample of every signal; comes before the last of those samples does.
    virtual void TakeTime(std::int64_t time) = 0;

    // True if going on with the run is of no use.
    virtual bool HasFailed() const = 0;
};

}  // namespace kelvarin::store
