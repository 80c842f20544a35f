// A signal of the embedded host's store.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "app/Sparkline.h"
#include "host/DataStore.h"

// One value as the store got it.
struct StoredSample {
    std::int64_t Time = 0;  // nanoseconds
    bool HasValue = false;
    std::string Bytes;  // short ones without a block of their own
};

// Keeps a summary of all its samples and the first of them, up to a limit, column by column.
class StoredSignal : public DM::SignalProxy {
  public:
    StoredSignal(std::u16string name, std::uint32_t type, std::uint32_t size, std::uint32_t id,
                 std::size_t keepLimit);

    void SetSymbol(const char16_t* symbol) override { Symbol = symbol; }
    std::u16string GetUnit() const override { return Unit; }
    void SetUnit(const char16_t* unit) override { Unit = unit; }
    DM::EResult AddSample(const void* data, std::uint32_t size, std::int64_t time) override;
    const DM::SUniqueSignalId& GetUniqueSignalId() const override { return Id; }
    DM::EResult WriteMetaData(std::uint32_t kind, const DM::XmlString& xml) override;

    // A kept sample as JSON: [time, value]. `index` is below KeptCount().
    std::string SampleAsJson(std::size_t index) const;
    std::size_t KeptCount() const { return Times.size(); }

    const std::u16string Name;
    const std::uint32_t Type;
    const std::uint32_t Size;
    std::u16string Symbol;
    std::u16string Unit;
    std::vector<std::string> MetaData;

    // Over all samples, kept or not.
    std::uint64_t Count = 0;
    std::uint64_t WithoutValue = 0;
    StoredSample First, Last;                  // of those with a value
    std::int64_t FirstTime = 0, LastTime = 0;  // of all samples
    bool HasRange = false;                     // Lowest and Highest are set; numbers only
    double Lowest = 0, Highest = 0;
    Sparkline Course;

  private:
    void Summarize(const void* data, std::uint32_t size, std::int64_t time);
    void Keep(const void* data, std::uint32_t size, std::int64_t time);

    const DM::SUniqueSignalId Id;
    const std::size_t KeepLimit;
    std::vector<std::int64_t> Times;
    std::vector<bool> Validity;
    std::vector<std::size_t> Ends;  // where each value ends in Values
    std::vector<char> Values;
};
