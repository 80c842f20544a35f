// A host that takes samples and forgets them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "contract/DeviceHost.h"

class NullSignal : public DM::SignalProxy {
  public:
    void SetSymbol(const char16_t*) override {}
    std::u16string GetUnit() const override { return Unit; }
    void SetUnit(const char16_t* unit) override { Unit = unit; }
    DM::EResult AddSample(const void*, std::uint32_t, std::int64_t) override {
        ++Count;
        return DM::ResultOk;
    }
    const DM::SUniqueSignalId& GetUniqueSignalId() const override { return Id; }
    DM::EResult WriteMetaData(std::uint32_t, const DM::XmlString&) override { return DM::ResultOk; }

    std::uint64_t Count = 0;

  private:
    std::u16string Unit;
    DM::SUniqueSignalId Id{};
};

class NullHost : public IDeviceHost, public IRelativeTimeContext, public CDevice, public DM::SourceProxy {
  public:
    CDevice* CreateDevice(std::u16string, const char16_t*, int) override { return this; }
    void FinishDevice(CDevice*) override {}
    DM::SourceProxy* GetDmSource() override { return this; }
    DM::EResult CreateSignal(DM::SignalProxy*& signal, const char16_t*, std::uint32_t,
                             std::uint32_t) override {
        Signals.push_back(std::make_unique<NullSignal>());
        signal = Signals.back().get();
        return DM::ResultOk;
    }
    std::int64_t GetBaseTime() override { return 0; }
    bool QueryFixedBaseB() override { return false; }
    bool QueryFixedBaseA() override { return true; }

    std::uint64_t SampleCount() const {
        std::uint64_t count = 0;
        for (const auto& signal : Signals) count += signal->Count;
        return count;
    }

  private:
    std::vector<std::unique_ptr<NullSignal>> Signals;
};
