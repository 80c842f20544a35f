// The signals of a store: values of a fixed size, texts, and counts alone.
#include <algorithm>
#include <cstring>
#include <span>
#include <type_traits>
#include <utility>

#include "host/store/SharedStore.h"
#include "host/store/TextBlocks.h"

namespace kelvarin::store {
namespace {
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
    }

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
    std::uint64_t CountKept(std::uint64_t limit) const { return std::min({limit, KeepLimit, Sum.Count}); }

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

// Values of a fixed size: bool as a byte, int64, double, char16_t.
template <class Value>
class FixedSignal final : public SignalBase {
  public:
    FixedSignal(SignalDescription description, std::uint32_t id, SharedStore& store)
        : SignalBase(std::move(description), id, store), Values(store.Memory) {}

    // The case of nearly all samples is kept so short that it calls nothing.
    DM::EResult AddSample(const void* data, std::uint32_t, std::int64_t time) override {
        if (data == nullptr || Values.IsFull() || !IsTimeOfRow(time)) return AddSpecial(data, time);
        CountAt(time);
        AppendValue(data);
        return DM::ResultOk;
    }

    void VisitSamples(std::uint64_t limit, const SampleVisitor& visit) const override {
        const std::uint64_t count = CountKept(limit);
        TimeAxis::Reader times(*Axis);
        typename BlockList<Value>::Reader values(Values);
        for (std::uint64_t row = 0; row < count; ++row) {
            const Value value = values.Next();
            visit(times.Next(), IsGap(row) ? nullptr : &value, sizeof value);
        }
    }

    void Take(StoredSignal& other, bool keep) override {
        auto& part = static_cast<FixedSignal&>(other);
        CloseBlock();
        std::uint64_t row = 0;
        part.Values.VisitBlocks([&](std::span<const Value> values) {
            Summarize(values, part, row);
            row += values.size();
        });
        CountAll(part.Sum);
        if (keep) {
            const auto before = static_cast<std::ptrdiff_t>(OpenRow);
            if (!part.Gaps.empty()) {
                Gaps.resize(static_cast<std::size_t>(OpenRow) + part.Gaps.size());
                std::copy(part.Gaps.begin(), part.Gaps.end(), Gaps.begin() + before);
            }
            OpenRow += row;
            Values.Take(part.Values);
        }
        part.Restart();
    }

    void Drop() override {
        Values.Clear();
        Restart();
    }

  private:
    void Restart() {
        Sum = {};
        OpenRow = 0;
        Gaps.clear();
    }

    [[gnu::noinline]] DM::EResult AddSpecial(const void* data, std::int64_t time) {
        if (Values.IsFull()) FlushBlock();
        if (!IsTimeOfRow(time)) AppendTime(time);
        CountAt(time);
        if (data == nullptr) {
            NoteGap();
            Values.Append(Value{});
        } else {
            AppendValue(data);
        }
        return DM::ResultOk;
    }

    void AppendValue(const void* data) {
        Value value;
        std::memcpy(&value, data, sizeof value);
        Values.Append(value);
    }

    void FlushBlock() {
        SummarizeRest();
        Values.Flush(CountBlock());
    }

    // Ends the open block where it is, before samples that were kept elsewhere.
    void CloseBlock() {
        SummarizeRest();
        if (CountBlock()) {
            Values.Seal();
        } else {
            Values.Flush(false);
        }
    }

    // Counts the rows of the open block if it is kept, which is returned.
    bool CountBlock() {
        const std::size_t count = Values.Open().size();
        const bool keep = IsPart || KeepsBlock(count);
        if (keep) OpenRow += count;
        if (Gaps.size() > OpenRow) Gaps.resize(static_cast<std::size_t>(OpenRow));
        return keep;
    }

    void NoteGap() {
        ++Sum.WithoutValue;
        Gaps.resize(static_cast<std::size_t>(OpenRow) + Values.Open().size() + 1);
        Gaps.back() = true;
    }

    bool IsGap(std::uint64_t row) const { return row < Gaps.size() && Gaps[static_cast<std::size_t>(row)]; }

    // Of the open block.
    void SummarizeRest() override {
        if (!IsPart) Summarize(Values.Open(), *this, OpenRow);
    }

    // Values of a signal, this one or a part's, in its rows from `row` on.
    void Summarize(std::span<const Value> values, const FixedSignal& signal, std::uint64_t row) {
        std::vector<Value> present;
        std::vector<std::uint8_t> valid;
        if (signal.Gaps.size() > row) {
            for (std::size_t i = 0; i < values.size(); ++i) {
                valid.push_back(!signal.IsGap(row + i));
                if (valid.back() != 0) present.push_back(values[i]);
            }
        }
        if (Sink != nullptr && !values.empty())
            Sink->TakeValues(values.data(), values.size(), valid.empty() ? nullptr : valid.data());
        if (!valid.empty()) values = present;
        if (values.empty()) return;
        const auto bytesOf = [](const Value& value) {
            return std::string(reinterpret_cast<const char*>(&value), sizeof value);
        };
        if (!Sum.First) Sum.First = bytesOf(values.front());
        Sum.Last = bytesOf(values.back());
        if constexpr (!std::is_same_v<Value, char16_t>) Sum.Plot.Add(values);
    }

    BlockList<Value> Values;
    std::uint64_t OpenRow = 0;  // of the open block's first value, among the rows in Values
    std::vector<bool> Gaps;     // rows in Values without a value, up to the last such row
};

// Texts of any length.
class TextSignal final : public SignalBase {
  public:
    TextSignal(SignalDescription description, std::uint32_t id, SharedStore& store)
        : SignalBase(std::move(description), id, store), Sizes(store.Memory), Texts(store.Memory) {}

    DM::EResult AddSample(const void* data, std::uint32_t size, std::int64_t time) override {
        const bool keep = KeepsBlock(0);
        if (!IsTimeOfRow(time)) AppendTime(time);
        CountAt(time);
        const auto* const text = static_cast<const char16_t*>(data);
        const auto length = static_cast<std::uint32_t>(size / sizeof(char16_t));
        if (Sink != nullptr) Sink->TakeText(text, length);
        if (keep && Sizes.IsFull()) Sizes.Flush(true);
        if (text == nullptr) {
            ++Sum.WithoutValue;
            if (keep) Sizes.Append(NoValue);
            return DM::ResultOk;
        }
        // The last text is read back at the end: a copy of each would cost a run a hundredth of its time.
        if (keep) {
            LastKept = Texts.Append(text, length) ? length | NarrowBit : length;
            Sizes.Append(LastKept);
        } else {
            if (!Sum.Last) Sum.Last.emplace();
            Sum.Last->assign(static_cast<const char*>(data), size);
        }
        if (!Sum.First) Sum.First.emplace(static_cast<const char*>(data), size);
        return DM::ResultOk;
    }

    void VisitSamples(std::uint64_t limit, const SampleVisitor& visit) const override {
        const std::uint64_t count = CountKept(limit);
        TimeAxis::Reader times(*Axis);
        BlockList<std::uint32_t>::Reader sizes(Sizes);
        TextBlocks::Reader texts(Texts);
        for (std::uint64_t row = 0; row < count; ++row) {
            const std::int64_t time = times.Next();
            const std::uint32_t size = sizes.Next();
            if (size == NoValue) {
                visit(time, nullptr, 0);
                continue;
            }
            const std::uint32_t length = size & ~NarrowBit;
            const char16_t* const text = texts.Next(length, (size & NarrowBit) != 0);
            visit(time, text, length * std::uint32_t{sizeof(char16_t)});
        }
    }

    void Take(StoredSignal& other, bool keep) override {
        auto& part = static_cast<TextSignal&>(other);
        part.SummarizeRest();
        if (!Sum.First) Sum.First = part.Sum.First;
        if (keep) {
            Sizes.Take(part.Sizes);
            Texts.Take(part.Texts);
            if (part.Sum.First) LastKept = part.LastKept;
        } else if (part.Sum.Last) {
            Sum.Last = std::move(part.Sum.Last);
        }
        CountAll(part.Sum);
        part.Restart();
    }

    void Drop() override {
        Sizes.Clear();
        Texts.Clear();
        Restart();
    }

  private:
    void Restart() {
        Sum = {};
        LastKept = 0;
    }

    // What Sizes holds: the length of a text, and whether it is kept narrow. A text of 2 to the 30th units is
    // longer than a line can be in memory twice over.
    static constexpr std::uint32_t NoValue = 0xFFFFFFFF;
    static constexpr std::uint32_t NarrowBit = 0x80000000;

    void SummarizeRest() override {
        if (Sum.First && !Sum.Last) Sum.Last = Texts.Last(LastKept & ~NarrowBit, (LastKept & NarrowBit) != 0);
    }

    // Of the samples kept.
    BlockList<std::uint32_t> Sizes;
    TextBlocks Texts;
    std::uint32_t LastKept = 0;  // the last entry of Sizes with a value
};

// What a list of signals shows. A table of a million columns leaves each hundred and some bytes.
class CountedSignal final : public StoredSignal {
  public:
    CountedSignal(const SignalDescription& description, std::uint32_t id, SharedStore& store)
        : StoredSignal(id),
          Type(static_cast<std::uint8_t>(description.Type)),
          Size(description.Size),
          Column(description.Column),
          Store(store),
          Name(store.Keep(description.Name)) {}

    void SetSymbol(const char16_t* symbol) override { Symbol = Store.Keep(symbol); }
    std::u16string GetUnit() const override { return Unit; }
    void SetUnit(const char16_t* unit) override { Unit = Store.Keep(unit); }
    DM::EResult WriteMetaData(std::uint32_t, const DM::XmlString& xml) override {
        Store.MetaData[GetUniqueSignalId().DirBlockId].push_back(xml.GetString());
        return DM::ResultOk;
    }
    DM::EResult AddSample(const void* data, std::uint32_t, std::int64_t) override {
        ++Count;
        WithoutValue += data == nullptr ? 1 : 0;
        return DM::ResultOk;
    }

    SignalDescription Description() const override {
        const auto metaData = Store.MetaData.find(GetUniqueSignalId().DirBlockId);
        const bool hasAny = metaData != Store.MetaData.end();
        return {
            Name, Type, Size, Column, Symbol, Unit, hasAny ? metaData->second : std::vector<std::string>()};
    }
    void Take(StoredSignal& part, bool) override {
        const SignalSummary sum = part.Summary();
        Count += sum.Count;
        WithoutValue += sum.WithoutValue;
        part.Drop();
    }
    void Drop() override {
        Count = 0;
        WithoutValue = 0;
    }
    bool HasSharedTimes() const override { return Count == Store.Axis->Count(); }

    SignalSummary Summary() const override {
        return {Count, WithoutValue, Store.Axis->First(), Store.Axis->Last(), {}, {}, {}};
    }
    void VisitSamples(std::uint64_t, const SampleVisitor&) const override {}
    void Finish() override {}

  private:
    const std::uint8_t Type;  // an EKelvarinType
    const std::uint32_t Size;
    const std::int32_t Column;
    SharedStore& Store;
    const char16_t* const Name;
    const char16_t* Symbol = u"";
    const char16_t* Unit = u"";
    std::uint64_t Count = 0;
    std::uint64_t WithoutValue = 0;
};
}  // namespace

std::unique_ptr<StoredSignal> MakeSignal(SignalDescription description, std::uint32_t id,
                                         SharedStore& store) {
    constexpr std::uint32_t MostLookedAt = 1000;
    if (id > MostLookedAt && store.KeepLimit == 0 && store.Sink == nullptr)
        return std::make_unique<CountedSignal>(description, id, store);
    switch (description.Type) {
        case KelvarinBool:
            return std::make_unique<FixedSignal<std::uint8_t>>(std::move(description), id, store);
        case KelvarinInt64:
            return std::make_unique<FixedSignal<std::int64_t>>(std::move(description), id, store);
        case KelvarinDouble:
            return std::make_unique<FixedSignal<double>>(std::move(description), id, store);
        case KelvarinChar16:
            return std::make_unique<FixedSignal<char16_t>>(std::move(description), id, store);
        default:
            return std::make_unique<TextSignal>(std::move(description), id, store);
    }
}
}  // namespace kelvarin::store
