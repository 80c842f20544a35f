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

#include "settings/CsvImportSettings.h"

namespace {

constexpr char16_t DoubleQuote = u'"';
constexpr char16_t SingleQuote = u'\'';

}  // namespace

std::int32_t CountSeparators(std::u16string_view line, std::uint32_t separatorIndex, bool merge) {
    const char16_t separator = SeparatorCharOf(separatorIndex);
    std::int32_t count = 0;
    char16_t openQuote = u'\0';
    bool afterSeparator = false;
    for (const char16_t c : line) {
        const bool wasAfterSeparator = afterSeparator;
        afterSeparator = false;
        if (openQuote != u'\0') {
            if (c == openQuote) openQuote = u'\0';
        } else if (c == DoubleQuote || c == SingleQuote) {
            openQuote = c;
        } else if (c == separator) {
            if (!merge || !wasAfterSeparator) ++count;
            afterSeparator = true;
        }
    }
    return count;
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
