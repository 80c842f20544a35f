// The bodies of a stored signal, by the type of its values.
#pragma once

#include <cstring>
#include <span>
#include <type_traits>
#include <utility>

#include "host/store/BlockList.h"
#include "host/store/IntegerList.h"
#include "host/store/StoredSignal.h"
#include "host/store/TextBlocks.h"

namespace kelvarin::store {

// Values of a fixed size: bool as a byte, int64, double, char16_t.
template <class Value>
class FixedSignal final : public StoredSignal {
  public:
    FixedSignal(SignalDescription description, std::uint32_t id, SharedStore& store)
        : StoredSignal(std::move(description), id, store), Values(store.Memory) {}

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
        std::uint64_t row = 0;
        Values.ForEach([&](const Value& value) {
            if (row == count) return false;
            const bool isGap = IsGap(row++);
            visit(times.Next(), isGap ? nullptr : &value, sizeof value);
            return true;
        });
    }

  private:
    [[gnu::noinline]] DM::EResult AddSpecial(const void* data, std::int64_t time) {
        if (Values.IsFull()) TurnBlock();
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

    void TurnBlock() {
        SummarizeRest();
        const std::size_t count = Values.Open().size();
        const bool keep = KeepsBlock(count);
        if (keep) OpenRow += count;
        if (Gaps.size() > OpenRow) Gaps.resize(static_cast<std::size_t>(OpenRow));
        Values.Turn(keep);
    }

    void NoteGap() {
        ++Sum.WithoutValue;
        Gaps.resize(static_cast<std::size_t>(OpenRow) + Values.Open().size() + 1);
        Gaps.back() = true;
    }

    bool IsGap(std::uint64_t row) const { return row < Gaps.size() && Gaps[static_cast<std::size_t>(row)]; }

    // Of the open block.
    void SummarizeRest() override {
        std::span<const Value> open = Values.Open();
        std::vector<Value> valid;
        std::vector<std::uint8_t> gaps;
        if (Gaps.size() > OpenRow) {
            for (std::size_t i = 0; i < open.size(); ++i) {
                gaps.push_back(IsGap(OpenRow + i));
                if (gaps.back() == 0) valid.push_back(open[i]);
            }
        }
        if (Sink != nullptr && !open.empty())
            Sink->TakeValues(open.data(), open.size(), gaps.empty() ? nullptr : gaps.data());
        if (!gaps.empty()) open = valid;
        if (open.empty()) return;
        SummarizeEnds(&open.front(), &open.back(), sizeof(Value));
        if constexpr (!std::is_same_v<Value, char16_t>) Sum.Course.Add(open);
    }

    std::conditional_t<std::is_same_v<Value, std::int64_t>, IntegerList, BlockList<Value>> Values;
    std::uint64_t OpenRow = 0;  // of the open block's first value, among the rows in Values
    std::vector<bool> Gaps;     // rows in Values without a value, up to the last such row
};

// Texts of any length.
class TextSignal final : public StoredSignal {
  public:
    TextSignal(SignalDescription description, std::uint32_t id, SharedStore& store)
        : StoredSignal(std::move(description), id, store), Sizes(store.Memory), Texts(store.Memory) {}

    DM::EResult AddSample(const void* data, std::uint32_t size, std::int64_t time) override;
    void VisitSamples(std::uint64_t limit, const SampleVisitor& visit) const override;

  private:
    void SummarizeRest() override;

    // Keeps a text; its entry in Sizes.
    std::uint32_t KeepText(const char16_t* text, std::uint32_t size);

    // Of the samples kept.
    BlockList<std::uint32_t> Sizes;
    TextBlocks Texts;

    std::string LastText;  // bytes of the last value, unless it is the last of Texts
    bool LastIsKept = false;
};

}  // namespace kelvarin::store
