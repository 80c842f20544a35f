#include "host/plan/WordList.h"

#include <algorithm>
#include <iterator>

namespace kelvarin::plan {
namespace {
// Latin-1, Latin Extended-A, Greek and Cyrillic.
char16_t LoweredLetter(char16_t c) {
    if ((c >= u'A' && c <= u'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7))
        return static_cast<char16_t>(c + 32);
    if (c >= 0x100 && c <= 0x137) return static_cast<char16_t>(c | 1);
    if (c >= 0x139 && c <= 0x148) return static_cast<char16_t>(c % 2 != 0 ? c + 1 : c);
    if (c >= 0x14A && c <= 0x177) return static_cast<char16_t>(c | 1);
    if ((c >= 0x391 && c <= 0x3A9) || (c >= 0x410 && c <= 0x42F)) return static_cast<char16_t>(c + 32);
    if (c >= 0x400 && c <= 0x40F) return static_cast<char16_t>(c + 80);
    return c;
}

// Blocks of punctuation, symbols and digits above Latin.
bool IsSymbol(char16_t c) {
    struct Block {
        char16_t First, Last;
    };
    constexpr Block Blocks[] = {
        {0x660, 0x66D},   {0x6F0, 0x6F9},   {0x966, 0x96F},   {0x2000, 0x2BFF}, {0x3000, 0x3004},
        {0x3007, 0x3020}, {0x3200, 0x33FF}, {0xD800, 0xF8FF}, {0xFE10, 0xFE6F}, {0xFEFF, 0xFF20},
        {0xFF3B, 0xFF40}, {0xFF5B, 0xFF65}, {0xFFE0, 0xFFFF},
    };
    return std::any_of(std::begin(Blocks), std::end(Blocks),
                       [c](const Block& block) { return c >= block.First && c <= block.Last; });
}
}  // namespace

bool IsLetter(char16_t c) {
    if (c < 0x80) return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
    if (c < 0x250) return c == u'µ' || (c >= 0xC0 && c != 0xD7 && c != 0xF7);
    return !IsSymbol(c);
}

std::u16string Lowered(std::u16string_view word) {
    std::u16string lowered;
    std::transform(word.begin(), word.end(), std::back_inserter(lowered), LoweredLetter);
    return lowered;
}

bool IsListed(std::u16string_view list, std::u16string_view word) {
    if (word.empty()) return false;
    for (std::size_t at = list.find(word); at != list.npos; at = list.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if ((at == 0 || list[at - 1] == u' ') && (end == list.size() || list[end] == u' ')) return true;
    }
    return false;
}
}  // namespace kelvarin::plan
