// The grammar of a line:
//
//   line  = cell { separator cell } end
//   end   = NUL | LF | CR                        also inside quotes; what follows is not looked at
//   cell  = blanks text blanks                   blanks and tabs are dropped, no other white space
//   text  = '"' { any | '""' } '"'               the outer quotes go, each '""' inside becomes '"'
//         | { any }                              kept as it stands, quotes included
//
// A double quote anywhere toggles the quoted state, in which a separator is an ordinary character. With
// merging a separator or the end directly behind a separator makes no cell; a separator at the start of the
// line still does.
#include "analysis/SplitLine.h"

#include <iterator>

namespace {

constexpr char16_t DoubleQuote = u'"';
constexpr char16_t SingleQuote = u'\'';

// What the lowest characters are to CountSeparators: the index of a fixed separator, or one of these.
constexpr std::uint8_t QuoteUnit = FixedSeparatorCount;
constexpr std::uint8_t PlainUnit = FixedSeparatorCount + 1;

constexpr auto KindsOfUnits = [] {
    std::array<std::uint8_t, 64> kinds{};
    kinds.fill(PlainUnit);
    for (std::uint8_t i = 0; i < FixedSeparatorCount; ++i) kinds.at(FixedSeparators[i]) = i;
    kinds[DoubleQuote] = kinds[SingleQuote] = QuoteUnit;
    return kinds;
}();

}  // namespace

SeparatorCounts CountSeparators(std::u16string_view line) {
    SeparatorCounts counts{};
    char16_t openQuote = u'\0';
    char16_t before = u'\0';  // the character before, if it is a separator
    for (const char16_t c : line) {
        const std::uint8_t kind = c < std::size(KindsOfUnits) ? KindsOfUnits[c] : PlainUnit;
        if (kind == PlainUnit || (openQuote != u'\0' && c != openQuote)) {
            before = u'\0';
        } else if (kind == QuoteUnit) {
            openQuote = openQuote == u'\0' ? c : u'\0';
            before = u'\0';
        } else {
            ++counts[kind].All;
            if (c != before) ++counts[kind].Merged;
            before = c;
        }
    }
    return counts;
}

void SplitLine(char16_t* text, char16_t separator, bool merge, CellList& cells) {
    cells.clear();
    char16_t* cell = text;
    bool quoted = false;
    for (char16_t* p = text;; ++p) {
        const char16_t c = *p;
        if (c == DoubleQuote) quoted = !quoted;
        const bool ends = EndsLine(c);
        if (!ends && (c != separator || quoted)) continue;
        const bool isMerged = merge && p == cell && p != text;
        if (!isMerged) cells.push_back(MakeCell(cell, p));
        if (ends) return;
        cell = p + 1;
    }
}
