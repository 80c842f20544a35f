// The grammar is that of SplitLine. The characters that could mean something are found for 64 characters at a
// time and listed for the whole line; only then is the list walked. How many there are in 64 characters is
// hard to predict for the processor, how many there are in a line is not.
#include "analysis/SplitPaddedLine.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

#include "analysis/SplitLine.h"
#include "simd/Units.h"

namespace {

constexpr std::size_t UnitsPerStep = simd::UnitsPerMask;

// What there is among 64 characters: a bit for each, none behind the line's end.
struct Found {
    std::uint64_t Separators = 0;
    std::uint64_t Quotes = 0;
    std::uint64_t End = 0;  // the first character that ends the line
};

// False if a unit beyond ASCII, which counts as low, stands before the line's end.
template <class Unit>
bool FindEnd(const Unit* step, const simd::UnitMasks& masks, Found& found) {
    // Not above the carriage return stand the ends, the tab and what hardly occurs.
    found = {masks.Separators, masks.Quotes, masks.Low & ~masks.Separators};
    for (; found.End != 0; found.End &= found.End - 1) {
        const auto unit = static_cast<char16_t>(step[static_cast<unsigned>(std::countr_zero(found.End))]);
        if (EndsLine(unit)) break;
        if (unit > u'\x7F') return false;
    }
    const std::uint64_t upToEnd = found.End ^ (found.End - 1);
    found.End &= upToEnd;
    found.Separators &= upToEnd;
    found.Quotes &= upToEnd;
    return true;
}

unsigned CountBits(std::uint64_t bits) {
    constexpr std::uint64_t EveryByte = 0x0101010101010101;
    bits -= (bits >> 1) & (0x55 * EveryByte);
    bits = (bits & (0x33 * EveryByte)) + ((bits >> 2) & (0x33 * EveryByte));
    bits = (bits + (bits >> 4)) & (0x0F * EveryByte);
    return static_cast<unsigned>(bits * EveryByte >> 56);
}

// The double quotes of a line, as far as it has been looked at.
class QuoteState {
  public:
    // The separators of a step that stand outside quotes. A quote opens or closes before it is compared: it
    // can separate what it closes, but not what it opens.
    std::uint64_t Outside(std::uint64_t separators, std::uint64_t quotes) {
        if ((quotes | Open) == 0) {
            Last = 0;
            return separators;
        }
        Doubled |= quotes & (quotes << 1 | Last);
        Last = quotes >> 63;
        std::uint64_t inside = quotes;  // becomes the parity of the quotes up to each character
        for (const int shift : {1, 2, 4, 8, 16, 32}) inside ^= inside << shift;
        inside ^= Open;
        Open = std::uint64_t{0} - (inside >> 63);
        return separators & ~inside;
    }

    bool AnyDoubled() const { return Doubled != 0; }

  private:
    std::uint64_t Open = 0;     // all ones between an opening quote and its closing one
    std::uint64_t Last = 0;     // 1 if the last character was a quote
    std::uint64_t Doubled = 0;  // quotes that stand behind another one
};

// Lists the places of a step's characters; up to as many entries more than there are get written.
constexpr std::size_t ListedAtOnce = 4;

template <class Unit>
std::size_t ListPlaces(Unit* step, std::uint64_t found, Unit** places) {
    constexpr std::uint64_t Last = std::uint64_t{1} << 63;
    const std::size_t count = CountBits(found);
    for (std::size_t listed = 0; listed < count; listed += ListedAtOnce) {
        for (std::size_t i = 0; i < ListedAtOnce; ++i) {
            places[listed + i] = step + static_cast<unsigned>(std::countr_zero(found | Last));
            found &= found - 1;
        }
    }
    return count;
}

// Appends the places of a step where a cell ends.
template <class Unit>
void AddPlaces(Unit* step, const Found& found, QuoteState& quotes, CellsOf<Unit>& places) {
    Unit** const room = places.MakeRoom(UnitsPerStep + ListedAtOnce);
    const std::uint64_t ends = quotes.Outside(found.Separators, found.Quotes) | found.End;
    places.SetSize(places.size() + ListPlaces(step, ends, room));
}

// Nearly all cells begin behind the double quote and end behind the blank: nothing is to be taken off them.
template <class Unit>
bool IsPlainCell(const Unit* cell, const Unit* end) {
    return end != cell && *cell > '"' && end[-1] > ' ';
}

template <class Unit>
bool IsQuotedCell(const Unit* cell, const Unit* end) {
    return end - cell >= 2 && *cell == '"' && end[-1] == '"';
}

// The list of the places where cells end becomes the list of cells, which are never more. Where no quote
// stands behind another one, a quoted cell has none inside that would have to be taken out.
template <class Unit>
void MakeCells(Unit* text, bool merge, bool anyDoubled, CellsOf<Unit>& cells) {
    const std::size_t count = cells.size();
    cells.clear();
    Unit** const places = cells.MakeRoom(count);
    Unit** next = places;
    Unit* cell = text;
    for (std::size_t i = 0; i < count; ++i) {
        Unit* const end = places[i];
        if (IsPlainCell(cell, end)) {
            *end = 0;
            *next++ = cell;
        } else if (!anyDoubled && IsQuotedCell(cell, end)) {
            end[-1] = 0;
            *next++ = cell + 1;
        } else if (!merge || end != cell || end == text) {
            *next++ = MakeCell(cell, end);
        }
        cell = end + 1;
    }
    cells.SetSize(static_cast<std::size_t>(next - places));
}

// How many bytes the line end at `at` takes; 0 if there is none, or none that `held` has whole.
std::size_t LengthOfEnd(std::string_view held, std::size_t at) {
    const std::string_view rest = held.substr(std::min(at, held.size()), 2);
    if (rest.starts_with('\n')) return 1;
    return rest == "\r\n" ? 2 : 0;
}

}  // namespace

void SplitPaddedLine(char16_t* text, char16_t separator, bool merge, CellList& cells) {
    // A separator that ends lines separates nothing.
    if (EndsLine(separator)) return SplitLine(text, separator, merge, cells);
    cells.clear();
    QuoteState quotes;
    Found found;
    for (char16_t* step = text; found.End == 0; step += UnitsPerStep) {
        FindEnd(step, simd::FindUnits(step, separator), found);
        AddPlaces(step, found, quotes, cells);
    }
    MakeCells(text, merge, quotes.AnyDoubled(), cells);
}

std::size_t SplitHeldLine(std::string_view held, char16_t separator, bool merge, std::vector<char>& copy,
                          ByteCellList& cells) {
    if (EndsLine(separator) || separator > u'\x7F') return 0;
    cells.clear();
    QuoteState quotes;
    for (std::size_t at = 0; at < held.size(); at += UnitsPerStep) {
        if (copy.size() < at + UnitsPerStep + LinePadding) {
            // The places found so far are those of memory that moves.
            copy.resize(2 * copy.size() + UnitsPerStep + LinePadding);
            return SplitHeldLine(held, separator, merge, copy, cells);
        }
        char* const step = copy.data() + at;
        Found found;
        if (!FindEnd(step, simd::CopyBytes(held.data() + at, static_cast<char>(separator), step), found))
            return 0;
        AddPlaces(step, found, quotes, cells);
        if (found.End == 0) continue;
        const std::size_t end = at + static_cast<unsigned>(std::countr_zero(found.End));
        const std::size_t length = LengthOfEnd(held, end);
        if (length == 0) return 0;
        // What was copied of the next line may be beyond ASCII, and those who read cells read on.
        std::memset(copy.data() + end, 0, LinePadding);
        MakeCells(copy.data(), merge, quotes.AnyDoubled(), cells);
        return end + length;
    }
    return 0;
}
