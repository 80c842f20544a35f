// One line of text becomes cells.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "settings/CsvImportSettings.h"

// Separators of one kind in a line, outside double and single quotes: all of them, and neighbours as one.
struct SeparatorCount {
    std::int32_t All, Merged;
};
using SeparatorCounts = std::array<SeparatorCount, FixedSeparatorCount>;

// Those of each fixed index. Serves the format detection alone.
SeparatorCounts CountSeparators(std::u16string_view line);

// Cuts the zero-terminated `text` into cells in place; see the grammar in SplitLine.cpp. `separator` NUL
// means none: the line is one cell. `cells` gets at least one entry and is never allocated anew for a line
// that has no more cells than one before it.
void SplitLine(char16_t* text, char16_t separator, bool merge, CellList& cells);

// The characters that end a line wherever they stand.
constexpr bool EndsLine(char16_t c) {
    return c == u'\0' || c == u'\n' || c == u'\r';
}

// Takes the double quotes off a trimmed cell that runs from `first` to `last`, both included (`last` is
// before `first` for an empty one), and answers where the cell's text now begins.
template <class Unit>
Unit* UnquoteCell(Unit* first, Unit* last) {
    if (last <= first || *first != '"' || *last != '"') return first;
    *last = 0;
    Unit* const begin = first + 1;
    Unit* out = begin;
    for (const Unit* in = begin; in != last; ++in) {
        *out++ = *in;
        if (*in == '"' && in[1] == '"') ++in;
    }
    *out = 0;
    return begin;
}

// Makes the characters from `first` up to `end`, not included, a cell: trims, terminates and unquotes them.
// Answers where the cell's text begins. The character at `end` is overwritten.
template <class Unit>
Unit* MakeCell(Unit* first, Unit* end) {
    constexpr auto isBlank = [](Unit c) { return c == ' ' || c == '\t'; };
    while (first != end && isBlank(*first)) ++first;
    while (end != first && isBlank(end[-1])) --end;
    *end = 0;
    return *first == '"' ? UnquoteCell(first, end - 1) : first;
}
