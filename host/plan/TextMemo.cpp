#include "host/plan/TextMemo.h"

#include <algorithm>
#include <cstring>

namespace kelvarin::plan {
namespace {
// Of a text that is not empty, four characters a step.
std::uint64_t HashOf(std::u16string_view text) {
    constexpr std::size_t Step = 4;
    constexpr std::uint64_t Factor = 0x9E3779B97F4A7C15;
    const std::size_t size = text.size();
    if (size < Step) {
        const std::uint64_t all =
            text[0] | std::uint64_t{text[size / 2]} << 16 | std::uint64_t{text[size - 1]} << 32;
        return (all + size) * Factor;
    }
    std::uint64_t hash = size;
    const auto add = [&](std::size_t at) {
        std::uint64_t four = 0;
        std::memcpy(&four, text.data() + at, sizeof four);
        hash = (hash ^ four) * Factor;
        hash ^= hash >> 32;
    };
    for (std::size_t at = 0; at + Step < size; at += Step) add(at);
    add(size - Step);
    return hash;
}
}  // namespace

bool TextMemo::Entry::Holds(std::u16string_view cell) const {
    return std::equal(cell.begin(), cell.end(), Cell.begin(), Cell.end());
}

TextMemo::Entry* TextMemo::EntryFor(std::u16string_view cell) {
    constexpr std::size_t Longest = 64;
    constexpr std::uint64_t HashShift = 58;
    constexpr std::size_t Count = std::size_t{1} << (64 - HashShift);
    constexpr std::uint64_t Trial = 1000;
    // Where less than half of the cells came again, remembering them costs more than it saves.
    if (cell.size() > Longest || (Remembered > Trial && 2 * Remembered > Asked)) return nullptr;
    ++Asked;
    if (Entries.empty()) Entries.resize(Count);
    return &Entries[HashOf(cell) >> HashShift];
}

void TextMemo::Remember(Entry& entry, std::u16string_view cell, std::string_view written) {
    ++Remembered;
    entry.Cell = cell;
    entry.Padded = written;
    entry.Padded.append(RowText::Step, ' ');
}
}  // namespace kelvarin::plan
