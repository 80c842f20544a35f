#include "host/store/StoredDevice.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <span>
#include <type_traits>
#include <utility>

#include "host/store/Blocks.h"
#include "host/store/TextBlocks.h"
#include "host/store/TimeAxis.h"

namespace kelvarin::store {
struct SharedStore {
    SharedStore(std::uint64_t keepLimit, DeviceSink* sink, bool isPart = false)
        : KeepLimit(keepLimit),
          Sink(sink),
          IsPart(isPart),
          Axis(std::make_shared<TimeAxis>(keepLimit, Memory)) {}

    // A copy that ends with a zero.
    const char16_t* Keep(std::u16string_view text) {
        auto* const kept =
            static_cast<char16_t*>(Memory.Allocate((text.size() + 1) * sizeof(char16_t), alignof(char16_t)));
        *std::copy(text.begin(), text.end(), kept) = u'\0';
        return kept;
    }

    const std::uint64_t KeepLimit;  // samples that each signal keeps
    DeviceSink* const Sink;         // may be null
    const bool IsPart;              // of another device, which summarises its values
    Arena Memory;
    const std::shared_ptr<TimeAxis> Axis;
    std::map<std::uint32_t, std::vector<std::string>> MetaData;  // of signals that only count, by their ids
    std::vector<std::unique_ptr<StoredDevice>> Parts;            // whose memory has samples of this device
};

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
}  // namespace

StoredDevice::StoredDevice(std::u16string name, std::u16string description, std::uint64_t keepLimit,
                           DeviceSink* sink, std::vector<int> columns)
    : Name(std::move(name)),
      Description(std::move(description)),
      Columns(std::move(columns)),
      Store(std::make_unique<SharedStore>(keepLimit, sink)) {}

StoredDevice::~StoredDevice() = default;

DM::EResult StoredDevice::CreateSignal(DM::SignalProxy*& signal, const char16_t* name, std::uint32_t type,
                                       std::uint32_t size) {
    const std::size_t index = Signals.size();
    const int column = index < Columns.size() ? Columns[index] : -1;
    SignalDescription description{name, type, size, column, {}, {}, {}};
    Signals.push_back(MakeSignal(std::move(description), static_cast<std::uint32_t>(index + 1), *Store));
    signal = Signals.back().get();
    return DM::ResultOk;
}

std::unique_ptr<StoredDevice> StoredDevice::MakePart() const {
    auto part = std::make_unique<StoredDevice>(Name, Description, 0, nullptr, Columns);
    const std::uint64_t keepLimit = Store->KeepLimit == 0 ? 0 : ~std::uint64_t{0};
    part->Store = std::make_unique<SharedStore>(keepLimit, nullptr, true);
    return part;
}

bool StoredDevice::Append(StoredDevice& part) {
    const auto hasSharedTimes = [](const auto& signal) { return signal->HasSharedTimes(); };
    if (Signals.size() != part.Signals.size() ||
        !std::all_of(Signals.begin(), Signals.end(), hasSharedTimes) ||
        !std::all_of(part.Signals.begin(), part.Signals.end(), hasSharedTimes))
        return false;
    const bool keep = Store->Axis->Count() < Store->KeepLimit;
    for (std::size_t i = 0; i < Signals.size(); ++i) Signals[i]->Take(*part.Signals[i], keep);
    Store->Axis->Take(*part.Store->Axis);
    if (keep) {
        part.Store->Memory.Retain();
    } else {
        part.Clear();
    }
    return true;
}

void StoredDevice::Clear() {
    for (const auto& signal : Signals) signal->Drop();
    Store->Axis->Clear();
    Store->Memory.Rewind();
}

void StoredDevice::Keep(std::unique_ptr<StoredDevice> part) {
    Store->Parts.push_back(std::move(part));
}

void StoredDevice::Finish() {
    for (const auto& signal : Signals) signal->Finish();
}
}  // namespace kelvarin::store
