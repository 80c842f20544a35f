// A signal that counts its samples alone.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "host/store/SharedStore.h"

namespace kelvarin::store {
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
    void Close() override {}
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
    std::uint64_t KeptCount() const override { return 0; }
    void CopyTimes(std::int64_t*) const override {}
    void CopyGaps(std::uint8_t*) const override {}
    const void* TimesId() const override { return nullptr; }
    void CopyValues(void*) const override {}
    void* ValuesInPlace() const override { return nullptr; }
    void VisitTexts(const std::function<void(const KeptText&)>&) const override {}
    std::uint64_t SettledCount() const override { return 0; }
    void VisitFrom(SamplePlace&, std::uint64_t,
                   const std::function<void(const void*, std::uint32_t)>&) const override {}
    void Finish() override {}
    void Resume() override {
        Symbol = u"";
        Unit = u"";
        Store.MetaData.erase(GetUniqueSignalId().DirBlockId);
    }

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
}  // namespace kelvarin::store
