#include "analysis/NumberCells.h"

#include <string_view>

#include "analysis/UnitRule.h"
#include "platform/framework/Locale.h"
#include "platform/framework/Numbers.h"

namespace {

// Behind the first of the prefixes that starts the text, or the text itself.
const char16_t* SkipHexPrefix(const char16_t* text) {
    constexpr std::u16string_view Prefixes[] = {u"$", u"0x", u"16#"};
    for (const std::u16string_view prefix : Prefixes) {
        std::size_t matched = 0;
        while (matched < prefix.size() && text[matched] == prefix[matched]) ++matched;
        if (matched == prefix.size()) return text + matched;
    }
    return text;
}

void ReplaceChar(char16_t* text, char16_t from, char16_t to) {
    for (; *text != u'\0'; ++text) {
        if (*text == from) *text = to;
    }
}

// Settles which mark is the decimal mark, removes the other and writes the locale's in its place. With both
// in the text the one that comes first separates thousands.
void SettleDecimalMark(char16_t* text, char16_t decimalPoint) {
    char16_t* first = text;
    while (*first != u'\0' && *first != u',' && *first != u'.') ++first;
    if (*first == u'\0') return;
    const char16_t firstMark = *first;
    const char16_t otherMark = firstMark == u',' ? u'.' : u',';
    const bool hasBoth = std::u16string_view(first).find(otherMark) != std::u16string_view::npos;
    if (hasBoth) RemoveChar(first, firstMark);
    ReplaceChar(first, hasBoth ? otherMark : firstMark, decimalPoint);
}

}  // namespace

void RemoveChar(char16_t* text, char16_t character) {
    char16_t* out = text;
    for (; *text != u'\0'; ++text) {
        if (*text != character) *out++ = *text;
    }
    *out = u'\0';
}

bool ParseInteger(char16_t* text, std::int64_t& value, bool removeSeparators, int radix,
                  std::u16string* unit) {
    if (text == nullptr) return false;
    if (removeSeparators) {
        RemoveChar(text, u'.');
        RemoveChar(text, u',');
    }
    const char16_t* end = nullptr;
    value = ParseInt64(text, &end, radix);
    return end != text && AcceptSuffix(end, unit);
}

bool ParseHex(const char16_t* text, std::int64_t& value) {
    if (text == nullptr) return false;
    const char16_t* const digits = SkipHexPrefix(text);
    const char16_t* end = nullptr;
    value = ParseInt64(digits, &end, 16);
    return end != digits && *end == u'\0';
}

bool ParseFloat(char16_t* text, double& value, std::u16string* unit) {
    if (text == nullptr) return false;
    const char16_t decimalPoint = LocaleDecimalPoint();
    const char16_t* mark = nullptr;
    if (unit == nullptr && ParseShortDecimal(text, value, &mark)) {
        // The mark is rewritten here too: a caller that refuses the number quotes the text as it then stands.
        if (mark != nullptr) text[mark - text] = decimalPoint;
        return true;
    }
    SettleDecimalMark(text, decimalPoint);
    const char16_t* end = nullptr;
    value = ParseDouble(text, decimalPoint, &end);
    return end != text && AcceptSuffix(end, unit);
}
