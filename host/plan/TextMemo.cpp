#include "host/plan/TextMemo.h"

#include <algorithm>

namespace kelvarin::plan {
bool TextMemo::Entry::Holds(std::u16string_view cell) const {
    return std::equal(cell.begin(), cell.end(), Cell.begin(), Cell.end());
}

TextMemo::Entry* TextMemo::EntryFor(std::u16string_view cell) {
    constexpr std::size_t Longest = 64;
    constexpr std::size_t Count = 64;
    constexpr std::uint64_t Trial = 1000;
    // Where less than half of the cells came again, remembering them costs more than it saves.
    if (cell.size() > Longest || (Remembered > Trial && 2 * Remembered > Asked)) return nullptr;
    ++Asked;
    if (Entries.empty()) Entries.resize(Count);
    std::size_t hash = cell.size();
    for (const char16_t c : cell) hash = hash * 31 + c;
    return &Entries[hash % Count];
}

void TextMemo::Remember(Entry& entry, std::u16string_view cell, std::string_view written) {
    ++Remembered;
    entry.Cell = cell;
    entry.Written = written;
}
}  // namespace kelvarin::plan
