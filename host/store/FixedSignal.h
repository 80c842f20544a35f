// A signal whose values have a fixed size.
#pragma once

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "host/store/SignalBase.h"
#include "host/store/ValueReader.h"

namespace kelvarin::store {
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

    void VisitFrom(SamplePlace& place, std::uint64_t end,
                   const std::function<void(const void*, std::uint32_t)>& visit) const override {
        std::uint64_t row = 0;
        Values.VisitBlocks([&](std::span<const Value> block) {
            for (; place.Row < std::min(end, row + block.size()); ++place.Row) {
                const Value value = block[static_cast<std::size_t>(place.Row - row)];
                visit(IsGap(place.Row) ? nullptr : &value, sizeof value);
            }
            row += block.size();
        });
    }

    std::uint64_t SettledCount() const override { return std::min(OpenRow, KeptCount()); }

    std::unique_ptr<ValueReader> ReadValues(std::uint64_t most, const ValueReader* before) const override {
        const std::uint64_t count = std::min(most, SettledCount());
        if (count == 0) return nullptr;
        return std::make_unique<BlockValues<Value>>(Values, Gaps, count,
                                                    static_cast<const BlockValues<Value>*>(before));
    }

    void Finish() override {
        if (!Values.Open().empty()) CloseBlock();
        SignalBase::Finish();
    }

    void CopyGaps(std::uint8_t* gaps) const override {
        const std::uint64_t count = KeptCount();
        for (std::uint64_t row = 0; row < count; ++row) gaps[row] = IsGap(row) ? 1 : 0;
    }

    void CopyValues(void* values) const override {
        auto* next = static_cast<Value*>(values);
        Value* const end = next + KeptCount();
        Values.VisitBlocks([&](std::span<const Value> block) {
            const auto room = static_cast<std::size_t>(end - next);
            next = std::copy_n(block.begin(), std::min(block.size(), room), next);
        });
    }

    void* ValuesInPlace() const override { return Values.InOnePiece(); }

    void Take(StoredSignal& other, bool keep) override {
        auto& part = static_cast<FixedSignal&>(other);
        CloseBlock();
        part.CloseBlock();
        TakeSummary(part);
        if (keep) {
            const auto before = static_cast<std::ptrdiff_t>(OpenRow);
            if (!part.Gaps.empty()) {
                Gaps.resize(static_cast<std::size_t>(OpenRow) + part.Gaps.size());
                std::copy(part.Gaps.begin(), part.Gaps.end(), Gaps.begin() + before);
            }
            OpenRow += part.OpenRow;
            Values.Take(part.Values);
        }
        CountAll(part.Sum);
        part.Restart();
    }

    void Close() override { CloseBlock(); }

    void Drop() override {
        Values.Clear();
        Restart();
    }

  private:
    // What a part knows of the values in a block.
    struct BlockSummary {
        NumberRange Range;
        std::uint64_t Count;  // of values, without gaps
    };

    static constexpr bool HasPlot = !std::is_same_v<Value, char16_t>;

    void Restart() {
        Sum = {};
        OpenRow = 0;
        Gaps.clear();
        Summaries.clear();
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
        if (!Values.Open().empty()) Summarize(Values.Open(), *this, OpenRow);
    }

    // Of a part whose blocks are closed. Their values are read again only where their range isn't enough.
    void TakeSummary(const FixedSignal& part) {
        std::uint64_t row = 0;
        for (std::size_t i = 0; i < part.Summaries.size(); ++i) {
            const KeptBlock& block = part.Values.Kept()[i];
            if (Sink != nullptr || !AddToPlot(part.Summaries[i])) {
                BlockList<Value>::VisitBlock(
                    block, [&](std::span<const Value> values) { Summarize(values, part, row); });
            }
            row += block.Count;
        }
        if (!Sum.First) Sum.First = part.Sum.First;
        if (part.Sum.Last) Sum.Last = part.Sum.Last;
    }

    bool AddToPlot(const BlockSummary& block) {
        return !HasPlot || block.Count == 0 || Sum.Plot.AddRange(block.Range, block.Count);
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
        if (Sink != nullptr)
            Sink->TakeValues(values.data(), values.size(), valid.empty() ? nullptr : valid.data());
        if (!valid.empty()) values = present;
        SummarizePresent(values);
    }

    // Values without gaps between them; none if the block has only gaps.
    void SummarizePresent(std::span<const Value> values) {
        NumberRange range;
        if constexpr (HasPlot) {
            if (IsPart) {
                range = RangeOf(values);
            } else {
                Sum.Plot.Add(values);
            }
        }
        if (IsPart) Summaries.push_back({range, values.size()});
        if (values.empty()) return;
        const auto bytesOf = [](const Value& value) {
            return std::string(reinterpret_cast<const char*>(&value), sizeof value);
        };
        if (!Sum.First) Sum.First = bytesOf(values.front());
        Sum.Last = bytesOf(values.back());
    }

    BlockList<Value> Values;
    std::uint64_t OpenRow = 0;            // of the open block's first value, among the rows in Values
    std::vector<bool> Gaps;               // rows in Values without a value, up to the last such row
    std::vector<BlockSummary> Summaries;  // of a part, one for each block that is kept
};
}  // namespace kelvarin::store
