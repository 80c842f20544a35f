// A device that keeps no samples, only how many there were.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "contract/DeviceHost.h"

namespace kelvarin::check {

// Counts the samples of one column and tells its store the row's time.
class NullSignal : public DM::SignalProxy {
  public:
    // `column` is 1-based.
    NullSignal(int column, std::optional<std::int64_t>& rowTime) : Column(column), RowTime(rowTime) {}

    void SetSymbol(const char16_t* symbol) override { Symbol = symbol; }
    std::u16string GetUnit() const override { return Unit; }
    void SetUnit(const char16_t* unit) override { Unit = unit; }
    const DM::SUniqueSignalId& GetUniqueSignalId() const override { return Id; }
    DM::EResult WriteMetaData(std::uint32_t, const DM::XmlString&) override { return DM::ResultOk; }
    DM::EResult AddSample(const void* data, std::uint32_t, std::int64_t time) override {
        ++Samples;
        if (data == nullptr) ++WithoutValue;
        RowTime = time;
        return DM::ResultOk;
    }

    const int Column;
    std::u16string Symbol, Unit;
    std::uint64_t Samples = 0;
    std::uint64_t WithoutValue = 0;

  private:
    std::optional<std::int64_t>& RowTime;
    const DM::SUniqueSignalId Id{};
};

class NullStore : public CDevice, public DM::SourceProxy {
  public:
    DM::SourceProxy* GetDmSource() override { return this; }
    DM::EResult CreateSignal(DM::SignalProxy*& signal, const char16_t* name, std::uint32_t type,
                             std::uint32_t size) override;

    // The time of the samples since it was reset; none: the row was not stored.
    std::optional<std::int64_t> RowTime;

    std::vector<std::unique_ptr<NullSignal>> Signals;  // in the order of the columns
};

}  // namespace kelvarin::check
