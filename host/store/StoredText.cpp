#include "host/store/StoredValues.h"

namespace kelvarin::store {

namespace {

// What Sizes holds: the length of a text, and whether it is kept narrow. A text of 2 to the 30th units is
// longer than a line can be in memory twice over.
constexpr std::uint32_t NoValue = 0xFFFFFFFF;
constexpr std::uint32_t NarrowBit = 0x80000000;

}  // namespace

DM::EResult TextSignal::AddSample(const void* data, std::uint32_t size, std::int64_t time) {
    const bool keep = KeepsBlock(0);
    if (!IsTimeOfRow(time)) AppendTime(time);
    CountAt(time);
    if (Sink != nullptr) Sink->TakeText(static_cast<const char16_t*>(data), size / sizeof(char16_t));
    if (keep) {
        if (Sizes.IsFull()) Sizes.Turn(true);
        Sizes.Append(data == nullptr ? NoValue : KeepText(static_cast<const char16_t*>(data), size));
    }
    if (data == nullptr) {
        ++Sum.WithoutValue;
        return DM::ResultOk;
    }
    const char* const bytes = static_cast<const char*>(data);
    if (!Sum.First) Sum.First.emplace(bytes, size);
    // The last text that was kept is looked up at the end.
    if (!keep) LastText.assign(bytes, size);
    LastIsKept = keep;
    return DM::ResultOk;
}

void TextSignal::SummarizeRest() {
    if (!Sum.First) return;
    if (LastIsKept) {
        const std::u16string text = Texts.Last();
        LastText.assign(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t));
    }
    Sum.Last = LastText;
}

std::uint32_t TextSignal::KeepText(const char16_t* text, std::uint32_t size) {
    const auto length = static_cast<std::uint32_t>(size / sizeof(char16_t));
    return Texts.Append(text, length) ? length | NarrowBit : length;
}

void TextSignal::VisitSamples(std::uint64_t limit, const SampleVisitor& visit) const {
    const std::uint64_t count = CountKept(limit);
    TimeAxis::Reader times(*Axis);
    TextBlocks::Reader texts(Texts);
    std::uint64_t row = 0;
    Sizes.ForEach([&](std::uint32_t size) {
        if (row++ == count) return false;
        const std::int64_t time = times.Next();
        if (size == NoValue) {
            visit(time, nullptr, 0);
        } else {
            const std::uint32_t length = size & ~NarrowBit;
            visit(time, texts.Next(length, (size & NarrowBit) != 0),
                  length * std::uint32_t{sizeof(char16_t)});
        }
        return true;
    });
}

}  // namespace kelvarin::store
