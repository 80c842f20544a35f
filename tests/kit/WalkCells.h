// The cells of a line in the plainest way, to compare with.
#pragma once

#include <string>
#include <vector>

#include "platform/framework/Text.h"

// The text of one cell, trimmed and without its quotes.
inline std::u16string TextOfCell(std::u16string cell) {
    const std::size_t first = cell.find_first_not_of(u" \t");
    cell = first == cell.npos ? u"" : cell.substr(first, cell.find_last_not_of(u" \t") + 1 - first);
    if (cell.size() < 2 || cell.front() != u'"' || cell.back() != u'"') return cell;
    return ReplaceAll(cell.substr(1, cell.size() - 2), u"\"\"", u"\"");
}

// The cells of a line by the grammar, a character at a time and with copies.
inline std::vector<std::u16string> WalkCells(const std::u16string& line, char16_t separator, bool merge) {
    std::vector<std::u16string> cells;
    std::u16string cell;
    bool quoted = false, behindSeparator = false;
    for (const char16_t c : line.substr(0, line.find_first_of(std::u16string_view(u"\0\n\r", 3))) + u'\0') {
        if (c == u'"') quoted = !quoted;
        if (c != u'\0' && (c != separator || quoted)) {
            cell += c;
            behindSeparator = false;
            continue;
        }
        if (!merge || !behindSeparator) cells.push_back(TextOfCell(cell));
        cell.clear();
        behindSeparator = true;
    }
    return cells;
}
