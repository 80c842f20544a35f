// The part of a signal that counts samples and has their times.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

#include "host/store/SharedStore.h"

namespace kelvarin::store {
// What all types of signals have in common. The signals of a device share its time axis while their times
// agree.
class SignalBase : public StoredSignal {
  public:
    SignalBase(SignalDescription description, std::uint32_t id, const SharedStore& store)
        : StoredSignal(id),
          About(std::move(description)),
          Axis(store.Axis),
          IsPart(store.IsPart),
          KeepLimit(store.KeepLimit),
          TimeSink(store.Sink) {
        if (TimeSink != nullptr) Sink = TimeSink->AddSignal(About);
    }

    void SetSymbol(const char16_t* symbol) override { About.Symbol = symbol; }
    std::u16string GetUnit() const override { return About.Unit; }
    void SetUnit(const char16_t* unit) override { About.Unit = unit; }
    DM::EResult WriteMetaData(std::uint32_t, const DM::XmlString& xml) override {
        About.MetaData.push_back(xml.GetString());
        return DM::ResultOk;
    }
    SignalDescription Description() const override { return About; }
    SignalSummary Summary() const override { return Sum; }

    void Finish() override {
        Sum.FirstTime = Axis->First();
        SummarizeRest();
        Axis->Seal();
    }
    void Resume() override {
        About.Symbol.clear();
        About.Unit.clear();
        About.MetaData.clear();
    }

    std::shared_ptr<const TimeAxis> Times() const override { return Axis; }
    std::uint64_t KeptCount() const override { return CountKept(~std::uint64_t{0}); }
    void CopyTimes(std::int64_t* times) const override { Axis->CopyTo(times, KeptCount()); }
    void CopyGaps(std::uint8_t* gaps) const override { std::fill_n(gaps, KeptCount(), std::uint8_t{0}); }
    const void* TimesId() const override { return Axis.get(); }
    void CopyValues(void*) const override {}
    void* ValuesInPlace() const override { return nullptr; }
    void VisitTexts(const std::function<void(const KeptText&)>&) const override {}

    bool HasSharedTimes() const override { return IsOnDeviceAxis && Sum.Count == Axis->Count(); }

  protected:
    // True if the axis has the next sample's time already, from another signal.
    bool IsTimeOfRow(std::int64_t time) const {
        return Axis->Count() == Sum.Count + 1 && Axis->Last() == time;
    }

    // Gives the axis, or one of the signal's own, the next sample's time.
    void AppendTime(std::int64_t time) {
        if (Axis->Count() != Sum.Count) {
            Axis = std::make_shared<TimeAxis>(*Axis, Sum.Count);
            IsOnDeviceAxis = false;
            // A sink gets the shared times alone; it sees that it has fewer samples of this signal.
            Sink = nullptr;
            TimeSink = nullptr;
        }
        Axis->Append(time);
        if (TimeSink != nullptr) TimeSink->TakeTime(time);
    }

    // Counts a sample whose time the axis has.
    void CountAt(std::int64_t time) {
        Sum.LastTime = time;
        ++Sum.Count;
    }

    // True if the last `count` samples, a block that is full, begin below the limit.
    bool KeepsBlock(std::size_t count) const { return Sum.Count - count < KeepLimit; }

    // Counts the samples of a part's signal.
    void CountAll(const SignalSummary& part) {
        if (part.Count != 0) Sum.LastTime = part.LastTime;
        Sum.Count += part.Count;
        Sum.WithoutValue += part.WithoutValue;
    }

    // How many samples a visit with this limit sees.
    // After a failure to append a part a signal may have more samples than times.
    std::uint64_t CountKept(std::uint64_t limit) const {
        return std::min({limit, KeepLimit, Sum.Count, Axis->Count()});
    }

    // Adds what isn't in the summary yet to it.
    virtual void SummarizeRest() = 0;

    SignalDescription About;
    SignalSummary Sum;
    std::shared_ptr<TimeAxis> Axis;
    SignalSink* Sink = nullptr;  // null: nobody wants the samples
    const bool IsPart;

  private:
    bool IsOnDeviceAxis = true;
    const std::uint64_t KeepLimit;
    DeviceSink* TimeSink;  // null once the signal has an axis of its own
};
}  // namespace kelvarin::store
