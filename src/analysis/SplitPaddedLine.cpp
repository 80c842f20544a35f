// The grammar is that of SplitLine. The characters that could mean something are found for 64 characters at a
// time and listed for the whole line; only then is the list walked. How many there are in 64 characters is
// hard to predict for the processor, how many there are in a line is not.
#include "analysis/SplitPaddedLine.h"

#include <bit>
#include <cstdint>

#include "analysis/SplitLine.h"
#include "simd/Units.h"

namespace {

constexpr char16_t DoubleQuote = u'"';
constexpr std::size_t UnitsPerStep = simd::UnitsPerMask;

// What there is among 64 characters: a bit for each, none behind the line's end.
struct Found {
    std::uint64_t Separators = 0;
    std::uint64_t Quotes = 0;
    std::uint64_t End = 0;  // the first character that ends the line
};

Found Find(const char16_t* text, char16_t separator) {
    // Not above the carriage return stand the ends, the tab and what hardly occurs.
    const simd::UnitMasks masks = simd::FindUnits(text, separator);
    Found found{masks.Separators, masks.Quotes, masks.Low & ~masks.Separators};
    while (found.End != 0 && !EndsLine(text[std::countr_zero(found.End)])) found.End &= found.End - 1;
    const std::uint64_t upToEnd = found.End ^ (found.End - 1);
    found.End &= upToEnd;
    found.Separators &= upToEnd;
    found.Quotes &= upToEnd;
    return found;
}

unsigned CountBits(std::uint64_t bits) {
    constexpr std::uint64_t EveryByte = 0x0101010101010101;
    bits -= (bits >> 1) & (0x55 * EveryByte);
    bits = (bits & (0x33 * EveryByte)) + ((bits >> 2) & (0x33 * EveryByte));
    bits = (bits + (bits >> 4)) & (0x0F * EveryByte);
    return static_cast<unsigned>(bits * EveryByte >> 56);
}

// Lists the places of a step's characters; up to as many entries more than there are get written.
constexpr std::size_t ListedAtOnce = 4;

std::size_t ListPlaces(char16_t* step, std::uint64_t found, char16_t** places) {
    constexpr std::uint64_t Last = std::uint64_t{1} << 63;
    const std::size_t count = CountBits(found);
    for (std::size_t listed = 0; listed < count; listed += ListedAtOnce) {
        for (std::size_t i = 0; i < ListedAtOnce; ++i) {
            places[listed + i] = step + std::countr_zero(found | Last);
            found &= found - 1;
        }
    }
    return count;
}

// Nearly all cells begin behind the double quote and end behind the blank: nothing is to be taken off them.
bool IsPlainCell(const char16_t* cell, const char16_t* end) {
    return end != cell && *cell > DoubleQuote && end[-1] > u' ';
}

// Where both quotes stand at the ends, there is none inside to be looked for.
char16_t* MakeQuotedCell(char16_t* cell, char16_t* end, unsigned quotes) {
    const bool isWhole = quotes == 2 && end - cell >= 2 && *cell == DoubleQuote && end[-1] == DoubleQuote;
    if (!isWhole) return MakeCell(cell, end);
    end[-1] = u'\0';
    return cell + 1;
}

// What a cell is made of. The list of places becomes the list of cells, which are never more; each answers
// how many there are.

std::size_t MakeCells(char16_t* text, bool merge, char16_t** places, std::size_t count) {
    char16_t** next = places;
    char16_t* cell = text;
    for (std::size_t i = 0; i < count; ++i) {
        char16_t* const end = places[i];
        if (IsPlainCell(cell, end)) {
            *end = u'\0';
            *next++ = cell;
        } else if (!merge || end != cell || end == text) {
            *next++ = MakeCell(cell, end);
        }
        cell = end + 1;
    }
    return static_cast<std::size_t>(next - places);
}

std::size_t MakeQuotedCells(char16_t* text, char16_t separator, bool merge, char16_t** places,
                            std::size_t count) {
    char16_t** next = places;
    char16_t* cell = text;
    unsigned quotes = 0;  // of the cell
    for (std::size_t i = 0; i < count; ++i) {
        char16_t* const end = places[i];
        const char16_t c = *end;
        if (c == DoubleQuote) ++quotes;
        if (!EndsLine(c) && (c != separator || quotes % 2 != 0)) continue;
        if (!merge || end != cell || end == text) *next++ = MakeQuotedCell(cell, end, quotes);
        cell = end + 1;
        quotes = 0;
    }
    return static_cast<std::size_t>(next - places);
}

}  // namespace

void SplitPaddedLine(char16_t* text, char16_t separator, bool merge, CellList& cells) {
    // A separator that ends lines separates nothing.
    if (EndsLine(separator)) return SplitLine(text, separator, merge, cells);
    cells.clear();
    bool anyQuote = false;
    for (char16_t* step = text;; step += UnitsPerStep) {
        const Found found = Find(step, separator);
        anyQuote |= found.Quotes != 0;
        char16_t** const places = cells.MakeRoom(UnitsPerStep + ListedAtOnce);
        const std::uint64_t all = found.Separators | found.Quotes | found.End;
        cells.SetSize(cells.size() + ListPlaces(step, all, places));
        if (found.End != 0) break;
    }
    const std::size_t count = cells.size();
    cells.clear();
    char16_t** const places = cells.MakeRoom(count);
    cells.SetSize(anyQuote ? MakeQuotedCells(text, separator, merge, places, count)
                           : MakeCells(text, merge, places, count));
}
