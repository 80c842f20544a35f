#include "app/StoredValues.h"

namespace {

constexpr std::uint32_t NoValue = 0xFFFFFFFF;

}  // namespace

DM::EResult TextSignal::AddSample(const void* data, std::uint32_t size, std::int64_t time) {
    const bool keep = KeepsBlock(0);
    NoteTime(time);
    if (keep) {
        if (Sizes.IsFull()) Sizes.Turn(true);
        Sizes.Append(data == nullptr ? NoValue : size);
        if (data != nullptr) Texts.Append(data, size);
    }
    if (data == nullptr) {
        ++Sum.WithoutValue;
        return DM::ResultOk;
    }
    const char* const bytes = static_cast<const char*>(data);
    if (!Sum.First) Sum.First.emplace(bytes, size);
    if (!Sum.Last) Sum.Last.emplace();
    Sum.Last->assign(bytes, size);
    return DM::ResultOk;
}

void TextSignal::VisitSamples(std::uint64_t limit, const SampleVisitor& visit) const {
    const std::uint64_t count = CountKept(limit);
    TimeAxis::Reader times(*Axis);
    TextBlocks::Reader texts(Texts);
    std::uint64_t row = 0;
    Sizes.ForEach([&](std::uint32_t size) {
        if (row++ == count) return false;
        const bool isGap = size == NoValue;
        visit(times.Next(), isGap ? nullptr : texts.Next(size), isGap ? 0 : size);
        return true;
    });
}
