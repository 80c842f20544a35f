// A signal of the embedded host's store.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "contract/DataStore.h"
#include "host/store/Arena.h"
#include "host/store/SampleSink.h"
#include "host/store/Sparkline.h"
#include "host/store/TimeAxis.h"

namespace kelvarin::store {

// What the signals of a device share. Outlives them.
struct SharedStore {
    SharedStore(std::uint64_t keepLimit, DeviceSink* sink)
        : KeepLimit(keepLimit), Sink(sink), Axis(std::make_shared<TimeAxis>(keepLimit, Memory)) {}

    const std::uint64_t KeepLimit;  // samples that each signal keeps
    DeviceSink* const Sink;         // may be null
    Arena Memory;
    const std::shared_ptr<TimeAxis> Axis;
};

// What a signal is made with, and its texts.
struct SignalDescription {
    std::u16string Name;
    std::uint32_t Type = 0;
    std::uint32_t Size = 0;
    std::u16string Symbol, Unit;
    std::vector<std::string> MetaData;
};

// Over all samples of a signal.
struct SignalSummary {
    std::uint64_t Count = 0;
    std::uint64_t WithoutValue = 0;
    std::int64_t FirstTime = 0, LastTime = 0;  // nanoseconds
    std::optional<std::string> First, Last;  // bytes of the first and the last value; none: there is no value
    Sparkline Course;                        // of numbers; empty without them
};

// Keeps a summary of all its samples and the first of them, up to a limit. A body per value type stands in
// StoredValues.h; all signals of a device share its time axis while their times agree.
class StoredSignal : public DM::SignalProxy {
  public:
    StoredSignal(SignalDescription description, std::uint32_t id, const SharedStore& store);

    void SetSymbol(const char16_t* symbol) override { About.Symbol = symbol; }
    std::u16string GetUnit() const override { return About.Unit; }
    void SetUnit(const char16_t* unit) override { About.Unit = unit; }
    const DM::SUniqueSignalId& GetUniqueSignalId() const override { return Id; }
    DM::EResult WriteMetaData(std::uint32_t kind, const DM::XmlString& xml) override;

    const SignalDescription& Description() const { return About; }

    // Complete once Finish was called.
    const SignalSummary& Summary() const { return Sum; }

    // No samples come any more.
    void Finish();

    // One sample as it was given; null data is a sample without a value.
    using SampleVisitor = std::function<void(std::int64_t time, const void* data, std::uint32_t size)>;

    // Visits the first samples, `limit` at most and none beyond those kept.
    virtual void VisitSamples(std::uint64_t limit, const SampleVisitor& visit) const = 0;

  protected:
    // True if the axis has the next sample's time already, from another signal.
    bool IsTimeOfRow(std::int64_t time) const {
        return Axis->Count() == Sum.Count + 1 && Axis->Last() == time;
    }

    // Gives the axis, or one of the signal's own, the next sample's time.
    void AppendTime(std::int64_t time);

    // Counts a sample whose time the axis has.
    void CountAt(std::int64_t time) {
        Sum.LastTime = time;
        ++Sum.Count;
    }

    // True if the last `count` samples, a block that is full, begin below the limit.
    bool KeepsBlock(std::size_t count) const { return Sum.Count - count < KeepLimit; }

    // How many samples a visit with this limit sees.
    std::uint64_t CountKept(std::uint64_t limit) const;

    // Takes what isn't in the summary yet into it.
    virtual void SummarizeRest() = 0;

    // Takes the first and the last of some values into the summary.
    void SummarizeEnds(const void* first, const void* last, std::size_t size);

    SignalSummary Sum;
    std::shared_ptr<TimeAxis> Axis;
    SignalSink* Sink = nullptr;  // null: nobody wants the samples

  private:
    SignalDescription About;
    const DM::SUniqueSignalId Id;
    const std::uint64_t KeepLimit;
    DeviceSink* TimeSink;  // null once the signal has an axis of its own
};

// A signal for the values of a type code.
std::unique_ptr<StoredSignal> MakeStoredSignal(SignalDescription description, std::uint32_t id,
                                               SharedStore& store);

}  // namespace kelvarin::store
