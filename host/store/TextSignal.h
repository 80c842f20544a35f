// A signal of texts.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <span>
#include <utility>

#include "host/store/SignalBase.h"
#include "host/store/TextBlocks.h"

namespace kelvarin::store {
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

    void CopyGaps(std::uint8_t* gaps) const override {
        const std::uint8_t* const end = gaps + KeptCount();
        Sizes.VisitBlocks([&](std::span<const std::uint32_t> sizes) {
            for (const std::uint32_t size : sizes) {
                if (gaps != end) *gaps++ = size == NoValue ? 1 : 0;
            }
        });
    }

    void VisitTexts(const std::function<void(const KeptText&)>& visit) const override {
        std::uint64_t left = KeptCount();
        TextBlocks::Reader texts(Texts);
        Sizes.VisitBlocks([&](std::span<const std::uint32_t> sizes) {
            for (const std::uint32_t size : sizes) {
                if (left == 0) return;
                --left;
                const std::uint32_t length = size & ~NarrowBit;
                const bool isNarrow = (size & NarrowBit) != 0;
                visit(size == NoValue ? KeptText{}
                                      : KeptText{texts.NextBytes(length, isNarrow), length, isNarrow});
            }
        });
    }

    void VisitFrom(SamplePlace& place, std::uint64_t end,
                   const std::function<void(const void*, std::uint32_t)>& visit) const override {
        TextBlocks::Reader texts(Texts, place.TextBlock, place.TextOffset);
        std::uint64_t row = 0;
        Sizes.VisitBlocks([&](std::span<const std::uint32_t> sizes) {
            for (; place.Row < std::min(end, row + sizes.size()); ++place.Row) {
                const std::uint32_t size = sizes[static_cast<std::size_t>(place.Row - row)];
                const std::uint32_t length = size & ~NarrowBit;
                if (size == NoValue) {
                    visit(nullptr, 0);
                } else {
                    visit(texts.Next(length, (size & NarrowBit) != 0),
                          length * std::uint32_t{sizeof(char16_t)});
                }
            }
            row += sizes.size();
        });
        place.TextBlock = texts.Block();
        place.TextOffset = texts.Offset();
    }

    std::uint64_t SettledCount() const override {
        std::uint64_t count = 0;
        for (const KeptBlock& block : Sizes.Kept()) count += block.Count;
        return std::min(count, KeptCount());
    }

    void Finish() override {
        SignalBase::Finish();
        Sizes.Seal();
    }

    void Close() override {}

    void Take(StoredSignal& other, bool keep) override {
        auto& part = static_cast<TextSignal&>(other);
        part.SummarizeRest();
        if (Sink != nullptr) {
            part.VisitSamples(part.Sum.Count, [&](std::int64_t, const void* text, std::uint32_t size) {
                Sink->TakeText(static_cast<const char16_t*>(text), size / sizeof(char16_t));
            });
        }
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
        const bool isLastKept = !Sum.Last || KeptCount() == Sum.Count;
        if (Sum.First && isLastKept)
            Sum.Last = Texts.Last(LastKept & ~NarrowBit, (LastKept & NarrowBit) != 0);
    }

    // Of the samples kept.
    BlockList<std::uint32_t> Sizes;
    TextBlocks Texts;
    std::uint32_t LastKept = 0;  // the last entry of Sizes with a value
};
}  // namespace kelvarin::store
