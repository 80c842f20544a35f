// The host, as far as a filter sees it. Records all that a run does and tells it as short text.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/DataStore.h"
#include "host/DeviceHost.h"
#include "platform/framework/Module.h"

// A signal of the fake store.
class FakeSignal : public DM::SignalProxy {
  public:
    struct Sample {
        std::int64_t Time;
        std::optional<std::string> Bytes;  // nothing for a sample without a value
        std::uint32_t Size;
    };

    FakeSignal(std::u16string name, std::uint32_t type, std::uint32_t size, std::uint32_t dirBlockId);

    void SetSymbol(const char16_t* symbol) override { Symbol = symbol; }
    std::u16string GetUnit() const override { return Unit; }
    void SetUnit(const char16_t* unit) override;
    DM::EResult AddSample(const void* data, std::uint32_t size, std::int64_t time) override;
    const DM::SUniqueSignalId& GetUniqueSignalId() const override { return Id; }
    DM::EResult WriteMetaData(std::uint32_t kind, const DM::XmlString& xml) override;

    // `Spalte 1 "symbol" Int64 8`, then the metadata if there is any.
    std::string Describe() const;

    // `symbol [unit]: 1=12 2=none(8)`.
    std::string DescribeSamples() const;

    std::u16string Name, Symbol, Unit;
    std::uint32_t Type, Size;
    std::string MetaData;  // "kind xml"
    std::vector<Sample> Samples;
    int UnitsSet = 0;  // calls of SetUnit
    bool RefusesSamples = false;

  private:
    DM::SUniqueSignalId Id;
};

// Devices, the store and the time base in one.
class FakeHost : public IDeviceHost, public IRelativeTimeContext, private CDevice, private DM::SourceProxy {
  public:
    CDevice* CreateDevice(std::u16string name, const char16_t* description, int reserved) override;
    void FinishDevice(CDevice* device) override;
    std::int64_t GetBaseTime() override;
    bool QueryFixedBaseB() override;
    bool QueryFixedBaseA() override;

    // The device calls, a line each.
    const std::string& DeviceCalls() const { return Calls; }

    // The signals in order of creation, a line each: what they are, and what they took.
    std::string DescribeSignals() const;
    std::string DescribeSamples() const;
    FakeSignal& Signal(std::size_t index) { return *Signals.at(index); }
    std::size_t SignalCount() const { return Signals.size(); }

    // How this host behaves.
    bool HasDevice = true;
    int RefusedSignal = 0;  // the signal that CreateSignal refuses, from 1; 0 for none
    std::int64_t BaseTime = 1;
    bool FixedBaseA = false, FixedBaseB = false;

    const ModuleState* DeviceContext = nullptr;  // the module's context at the last CreateDevice
    std::string BaseQueries;  // "A", "B" and "T" (the base time itself) in the order of asking

  private:
    DM::SourceProxy* GetDmSource() override { return this; }
    DM::EResult CreateSignal(DM::SignalProxy*& signal, const char16_t* name, std::uint32_t type,
                             std::uint32_t size) override;

    std::string Calls;
    std::vector<std::unique_ptr<FakeSignal>> Signals;
};
