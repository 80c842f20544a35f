// The host as a filter sees it. It tells all that a run does as short text.
#pragma once

#include <charconv>
#include <cstring>
#include <functional>
#include <memory>
#include <vector>

#include "contract/DataStore.h"
#include "contract/DeviceHost.h"
#include "platform/framework/Module.h"
#include "platform/framework/Text.h"

class FakeSignal : public DM::SignalProxy {
  public:
    FakeSignal(std::u16string_view name, std::uint32_t type, std::uint32_t size, std::uint32_t dirBlockId)
        : Head(Utf16ToUtf8(name) + ' ' + std::to_string(type) + '/' + std::to_string(size)),
          Type(type),
          Id{{}, dirBlockId} {}

    void SetSymbol(const char16_t* symbol) override { Symbol = Utf16ToUtf8(symbol); }
    std::u16string GetUnit() const override { return Unit; }
    void SetUnit(const char16_t* unit) override { Unit = unit; }
    DM::EResult AddSample(const void* data, std::uint32_t size, std::int64_t time) override {
        if (OnSample) OnSample();
        if (RefusesSamples) return DM::ResultRefused;
        ++Count;
        TimesRise &= Count == 1 || time > LastTime;
        LastTime = time;
        Values.push_back(ValueText(data, size));
        Samples += ' ' + std::to_string(time) + '=' + Values.back();
        return DM::ResultOk;
    }
    const DM::SUniqueSignalId& GetUniqueSignalId() const override { return Id; }
    DM::EResult WriteMetaData(std::uint32_t kind, const DM::XmlString& xml) override {
        Head += ' ' + std::to_string(kind) + ' ' + xml.GetString();
        return DM::ResultRefused;  // of no interest to a filter
    }

    std::string Head, Symbol, Samples;  // "Spalte 1 type/size", then the metadata; " time=value time=value"
    std::vector<std::string> Values;
    std::u16string Unit;
    int Count = 0;
    std::int64_t LastTime = 0;
    bool RefusesSamples = false, TimesRise = true;
    std::function<void()> OnSample;  // called before a sample is taken; may be empty

  private:
    // A value as its type wants it; "none(8)" without data.
    std::string ValueText(const void* data, std::uint32_t size) const {
        if (data == nullptr) return "none(" + std::to_string(size) + ')';
        if (Type == KelvarinString || Type == KelvarinChar16) {
            std::u16string units(size / 2, u'\0');
            std::memcpy(units.data(), data, units.size() * 2);
            return '"' + Utf16ToUtf8(units) + '"';
        }
        if (size != (Type == KelvarinBool ? 1 : 8)) return "wrong size";
        double real = 0.0;
        std::int64_t integer = 0;
        std::memcpy(Type == KelvarinDouble ? static_cast<void*>(&real) : &integer, data, size);
        char text[40];
        const auto end = std::to_chars(text, text + 40, real).ptr;
        return Type == KelvarinDouble ? std::string(text, end) : std::to_string(integer);
    }

    std::uint32_t Type;
    DM::SUniqueSignalId Id;
};

// Devices, the store and the time base in one.
class FakeHost : public IDeviceHost, public IRelativeTimeContext, private CDevice, private DM::SourceProxy {
  public:
    CDevice* CreateDevice(std::u16string name, const char16_t* description, int reserved) override {
        Calls += "create " + Utf16ToUtf8(name) + '/' + Utf16ToUtf8(description) + '/' +
                 std::to_string(reserved) + '\n';
        DeviceContext = GetCurrentModule();
        return HasDevice ? this : nullptr;
    }
    void FinishDevice(CDevice* device) override { Calls += device == this ? "finish\n" : "finish another\n"; }
    std::int64_t GetBaseTime() override { return BaseTime; }
    bool QueryFixedBaseB() override { return FixedBaseB; }
    bool QueryFixedBaseA() override { return FixedBaseA; }

    // The signals, a line each: what they are, and what they took.
    std::string DescribeSignals() const {
        std::string text;
        for (const auto& signal : Signals) text += signal->Head + " \"" + signal->Symbol + "\"\n";
        return text;
    }
    std::string DescribeSamples() const {
        std::string text;
        for (const auto& signal : Signals) {
            const std::string unit = signal->Unit.empty() ? "" : " [" + Utf16ToUtf8(signal->Unit) + ']';
            text += signal->Symbol + unit + ':' + signal->Samples + '\n';
        }
        return text;
    }

    bool HasDevice = true, FixedBaseA = false, FixedBaseB = false;
    std::size_t RefusedSignal = 0;  // counted from 1
    std::int64_t BaseTime = 1;
    const ModuleState* DeviceContext = nullptr;  // the module's context at the last CreateDevice
    std::string Calls;                           // of devices, a line each
    std::vector<std::unique_ptr<FakeSignal>> Signals;

  private:
    DM::SourceProxy* GetDmSource() override { return this; }
    DM::EResult CreateSignal(DM::SignalProxy*& signal, const char16_t* name, std::uint32_t type,
                             std::uint32_t size) override {
        if (Signals.size() + 1 == RefusedSignal) return DM::ResultRefused;
        // Beyond 2 to the 31, where a signed number would show.
        const auto id = static_cast<std::uint32_t>(0xF0000001 + Signals.size());
        signal = Signals.emplace_back(std::make_unique<FakeSignal>(name, type, size, id)).get();
        return DM::ResultOk;
    }
};
