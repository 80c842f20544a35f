#include "host/plan/WordList.h"

#include <algorithm>
#include <iterator>

namespace kelvarin::plan {
namespace {
// Latin-1 and Latin Extended-A.
char16_t LoweredLetter(char16_t c) {
    if ((c >= u'A' && c <= u'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7))
        return static_cast<char16_t>(c + 32);
    if (c >= 0x100 && c <= 0x137) return static_cast<char16_t>(c | 1);
    if (c >= 0x139 && c <= 0x148) return static_cast<char16_t>(c % 2 != 0 ? c + 1 : c);
    if (c >= 0x14A && c <= 0x177) return static_cast<char16_t>(c | 1);
    return c;
}
}  // namespace

bool IsLetter(char16_t c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || (c >= 0xC0 && c < 0x250) || c == u'μ' ||
           c == u'µ';
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
