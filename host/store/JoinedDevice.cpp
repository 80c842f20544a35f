#include "host/store/JoinedDevice.h"

#include <utility>

#include "host/language/Phrase.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"

namespace kelvarin::store {
namespace {
constexpr std::int64_t Day = std::int64_t{86'400} * 1'000'000'000;
}  // namespace

// Passes the samples of every run on to one signal of the store.
class JoinedDevice::Signal final : public DM::SignalProxy {
  public:
    Signal(JoinedDevice& joined, StoredSignal& stored, bool countsRows)
        : Joined(joined), Stored(stored), CountsRows(countsRows) {}

    // Symbol, unit and metadata are those of the first run.
    void SetSymbol(const char16_t* symbol) override {
        if (Joined.Runs == 1) Stored.SetSymbol(symbol);
    }
    std::u16string GetUnit() const override { return Stored.GetUnit(); }
    void SetUnit(const char16_t* unit) override {
        if (Joined.Runs == 1) Stored.SetUnit(unit);
    }
    DM::EResult WriteMetaData(std::uint32_t kind, const DM::XmlString& xml) override {
        return Joined.Runs == 1 ? Stored.WriteMetaData(kind, xml) : DM::ResultOk;
    }
    const DM::SUniqueSignalId& GetUniqueSignalId() const override { return Stored.GetUniqueSignalId(); }

    DM::EResult AddSample(const void* data, std::uint32_t size, std::int64_t time) override {
        JoinedPart& part = Joined.Part;
        if (CountsRows && Joined.AreDaysAllowed) AddDays(time);
        time = WrappingAdd(time, part.Shift);
        if (Joined.HasRows && time <= Joined.End) {
            part.LeftOut += CountsRows;
            return DM::ResultOk;
        }
        if (CountsRows) {
            if (part.Rows++ == 0) part.FirstTime = time;
            part.LastTime = time;
        }
        return Stored.AddSample(data, size, time);
    }

    // True for a signal of this name and type.
    bool Is(const char16_t* name, std::uint32_t type) const {
        const SignalDescription about = Stored.Description();
        return about.Name == name && about.Type == type;
    }

  private:
    // Before the first row of a run.
    void AddDays(std::int64_t time) {
        Joined.AreDaysAllowed = false;
        const std::int64_t behind = WrappingSubtract(Joined.End, time);
        if (Joined.HasRows && behind >= 0) Joined.Part.Shift = (behind / Day + 1) * Day;
    }

    JoinedDevice& Joined;
    StoredSignal& Stored;
    const bool CountsRows;
};

// The device that a filter sees.
class JoinedDevice::Run final : public CDevice, public DM::SourceProxy {
  public:
    explicit Run(JoinedDevice& joined) : Joined(joined) {}

    DM::SourceProxy* GetDmSource() override { return this; }

    DM::EResult CreateSignal(DM::SignalProxy*& signal, const char16_t* name, std::uint32_t type,
                             std::uint32_t size) override {
        if (Joined.Runs > 1) return FindSignal(signal, name, type);
        DM::SignalProxy* stored = nullptr;
        const DM::EResult result = Joined.Store->CreateSignal(stored, name, type, size);
        if (result != DM::ResultOk) return result;
        Joined.Signals.push_back(
            std::make_unique<Signal>(Joined, *Joined.Store->Signals.back(), Joined.Signals.empty()));
        signal = Joined.Signals.back().get();
        ++Made;
        return DM::ResultOk;
    }

    bool HasAll() const { return Made == Joined.Signals.size(); }

  private:
    // All runs make their signals in the same order.
    DM::EResult FindSignal(DM::SignalProxy*& signal, const char16_t* name, std::uint32_t type) {
        if (Made == Joined.Signals.size() || !Joined.Signals[Made]->Is(name, type)) {
            Joined.Unlike =
                Phrase("the first file has no signal '{}' of this type", Utf16ToUtf8(std::u16string(name)));
            return DM::ResultRefused;
        }
        signal = Joined.Signals[Made++].get();
        return DM::ResultOk;
    }

    JoinedDevice& Joined;
    std::size_t Made = 0;
};

JoinedDevice::JoinedDevice(std::uint64_t keepLimit, DeviceSink* sink) : KeepLimit(keepLimit), Sink(sink) {}

JoinedDevice::~JoinedDevice() = default;

CDevice* JoinedDevice::BeginRun(const std::u16string& name, const std::u16string& description,
                                std::vector<int> columns) {
    if (Store == nullptr)
        Store = std::make_unique<StoredDevice>(name, description, KeepLimit, Sink, std::move(columns));
    ++Runs;
    Part = {};
    Current = std::make_unique<Run>(*this);
    return Current.get();
}

JoinedPart JoinedDevice::EndRun() {
    if (Unlike.empty() && Current != nullptr && !Current->HasAll())
        Unlike = Phrase("it lacks a signal of the first file");
    if (Part.Rows > 0) {
        HasRows = true;
        End = Part.LastTime;
    }
    AreDaysAllowed = false;
    return Part;
}

void JoinedDevice::Finish() {
    if (Store != nullptr) Store->Finish();
}
}  // namespace kelvarin::store
