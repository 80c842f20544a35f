// The grammar is that of SplitLine. The characters that could mean something are found for 64 characters at a
// time; only those are then looked at one by one. Fewer at a time cost more: how many are found is hard to predict
// for the processor, and it pays for that once a step.
#include "analysis/SplitPaddedLine.h"

#include <emmintrin.h>

#include <bit>
#include <cstdint>

#include "analysis/SplitLine.h"

namespace {

constexpr char16_t DoubleQuote = u'"';
constexpr std::size_t UnitsPerStep = 64;
constexpr std::size_t UnitsPerLoad = 8;

// Finds the characters that can end a cell.
class Finder {
  public:
    explicit Finder(char16_t separator)
        : Separator(_mm_set1_epi16(static_cast<short>(separator))),
          Quote(_mm_set1_epi16(static_cast<short>(DoubleQuote))),
          LastEnd(_mm_set1_epi16(u'\r')) {}

    // A bit for each of the 64 characters at `text` that is the separator, a double quote, or not above the
    // carriage return: the line's ends, and others that mean nothing.
    std::uint64_t Find(const char16_t* text) const {
        std::uint64_t found = 0;
        for (std::size_t at = 0; at < UnitsPerStep; at += 2 * UnitsPerLoad) {
            const __m128i bytes = _mm_packs_epi16(Compare(text + at), Compare(text + at + UnitsPerLoad));
            found |= std::uint64_t{static_cast<unsigned>(_mm_movemask_epi8(bytes))} << at;
        }
        return found;
    }

  private:
    __m128i Compare(const char16_t* text) const {
        const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
        const __m128i low = _mm_cmpeq_epi16(_mm_subs_epu16(units, LastEnd), _mm_setzero_si128());
        return _mm_or_si128(low, _mm_or_si128(_mm_cmpeq_epi16(units, Separator), _mm_cmpeq_epi16(units, Quote)));
    }

    const __m128i Separator, Quote, LastEnd;
};

}  // namespace

void SplitPaddedLine(char16_t* text, char16_t separator, bool merge, CellList& cells) {
    const Finder finder(separator);
    std::size_t count = 0;
    char16_t* cell = text;
    bool quoted = false;
    for (char16_t* step = text;; step += UnitsPerStep) {
        for (std::uint64_t found = finder.Find(step); found != 0; found &= found - 1) {
            char16_t* const p = step + std::countr_zero(found);
            const char16_t c = *p;
            if (c == DoubleQuote) quoted = !quoted;
            const bool ends = EndsLine(c);
            if (!ends && (c != separator || quoted)) continue;
            const bool isMerged = merge && p == cell && p != text;
            if (!isMerged) {
                if (count == cells.size()) cells.resize(2 * count + 1);
                cells[count++] = MakeCell(cell, p);
            }
            if (ends) {
                cells.resize(count);
                return;
            }
            cell = p + 1;
        }
    }
}
