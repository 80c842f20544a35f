#include "host/plan/TextMemo.h"

#include <cstring>

namespace kelvarin::plan {
namespace {
constexpr std::size_t MemoPairs = 64;

// The first entry of the pair for a text that is not empty; four of its characters take a step.
inline std::size_t PairOf(std::u16string_view text) {
    constexpr std::size_t Step = 4;
    constexpr std::uint64_t Factor = 0x9E3779B97F4A7C15;
    const std::size_t size = text.size();
    if (size == 1) return 2 * (text[0] % MemoPairs);
    std::uint64_t hash = size;
    const auto add = [&hash](std::uint64_t four) {
        hash = (hash ^ four) * Factor;
        hash ^= hash >> 32;
    };
    const auto fourAt = [text](std::size_t at) {
        std::uint64_t four = 0;
        std::memcpy(&four, text.data() + at, sizeof four);
        return four;
    };
    if (size < Step) {
        add(text[0] | std::uint64_t{text[1]} << 16 | std::uint64_t{text[size - 1]} << 32);
    } else {
        for (std::size_t at = 0; at + Step < size; at += Step) add(fourAt(at));
        add(fourAt(size - Step));
    }
    return 2 * (hash % MemoPairs);
}
}  // namespace

TextMemo::Entry* TextMemo::Find(std::u16string_view cell) {
    constexpr std::size_t Longest = 64;
    Pair = nullptr;
    if (IsGivenUp || cell.size() > Longest) return nullptr;
    ++Asked;
    if (Entries.empty()) Entries.resize(2 * MemoPairs);
    Pair = &Entries[PairOf(cell)];
    if (Pair[0].Holds(cell)) return Pair;
    return Pair[1].Holds(cell) ? Pair + 1 : nullptr;
}

TextMemo::Entry* TextMemo::Place() {
    if (Pair == nullptr || Pair[0].Cell.empty()) return Pair;
    return Pair + Remembered % 2;
}

void TextMemo::Remember(Entry& place, std::u16string_view cell, std::string_view written) {
    // Where less than half of the cells came again, remembering them costs more than it saves.
    constexpr std::uint64_t Trial = 1000;
    ++Remembered;
    IsGivenUp = Remembered > Trial && 2 * Remembered > Asked;
    place.Cell = cell;
    place.Padded = written;
    place.Padded.append(RowText::Step, ' ');
}
}  // namespace kelvarin::plan
