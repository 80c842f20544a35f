// The grammar is that of SplitLine. The characters that could mean something are found for 64 characters at a
// time; only those are then looked at one by one. Fewer at a time cost more: how many are found is hard to
// predict for the processor, and it pays for that once a step.
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

    // A bit for each of 64 characters.
    struct Found {
        std::uint64_t Ends = 0;    // the separator, or not above the carriage return: some mean nothing
        std::uint64_t Quotes = 0;  // double quotes
    };

    Found Find(const char16_t* text) const {
        Found found;
        for (std::size_t at = 0; at < UnitsPerStep; at += 2 * UnitsPerLoad) {
            const __m128i first = Load(text + at);
            const __m128i second = Load(text + at + UnitsPerLoad);
            found.Ends |= MaskOf(Ends(first), Ends(second)) << at;
            found.Quotes |= MaskOf(_mm_cmpeq_epi16(first, Quote), _mm_cmpeq_epi16(second, Quote)) << at;
        }
        return found;
    }

  private:
    static __m128i Load(const char16_t* text) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
    }

    static std::uint64_t MaskOf(__m128i first, __m128i second) {
        return static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(first, second)));
    }

    __m128i Ends(__m128i units) const {
        const __m128i low = _mm_cmpeq_epi16(_mm_subs_epu16(units, LastEnd), _mm_setzero_si128());
        return _mm_or_si128(low, _mm_cmpeq_epi16(units, Separator));
    }

    const __m128i Separator, Quote, LastEnd;
};

// The cells of one line while it is split.
class Splitter {
  public:
    Splitter(char16_t* text, char16_t separator, bool merge, CellList& cells)
        : Text(text), Separator(separator), Merge(merge), Cells(cells), Cell(text) {}

    // Takes the characters found in 64, none of them a quote, outside quotes. False at the line's end.
    bool TakeUnquoted(char16_t* step, std::uint64_t found) {
        for (; found != 0; found &= found - 1) {
            char16_t* const p = step + std::countr_zero(found);
            const char16_t c = *p;
            const bool ends = EndsLine(c);
            if (!ends && c != Separator) continue;
            EndCell(p);
            if (ends) return false;
        }
        return true;
    }

    // The same with quotes among them or open before.
    bool Take(char16_t* step, std::uint64_t found) {
        for (; found != 0; found &= found - 1) {
            char16_t* const p = step + std::countr_zero(found);
            const char16_t c = *p;
            if (c == DoubleQuote) Quoted = !Quoted;
            const bool ends = EndsLine(c);
            if (!ends && (c != Separator || Quoted)) continue;
            EndCell(p);
            if (ends) return false;
        }
        return true;
    }

    bool IsQuoted() const { return Quoted; }
    void Finish() { Cells.resize(Count); }

  private:
    void EndCell(char16_t* p) {
        char16_t* const cell = Cell;
        Cell = p + 1;
        if (Merge && p == cell && p != Text) return;
        if (Count == Cells.size()) Cells.resize(2 * Count + 1);
        // Nearly all cells begin behind the quote and end behind the blank: nothing is to be taken off them.
        const bool isPlain = p != cell && *cell > DoubleQuote && p[-1] > u' ';
        if (isPlain) *p = u'\0';
        Cells[Count++] = isPlain ? cell : MakeCell(cell, p);
    }

    char16_t* const Text;
    const char16_t Separator;
    const bool Merge;
    CellList& Cells;
    std::size_t Count = 0;
    char16_t* Cell;
    bool Quoted = false;
};

}  // namespace

void SplitPaddedLine(char16_t* text, char16_t separator, bool merge, CellList& cells) {
    const Finder finder(separator);
    Splitter splitter(text, separator, merge, cells);
    bool more = true;
    for (char16_t* step = text; more; step += UnitsPerStep) {
        const Finder::Found found = finder.Find(step);
        const bool isUnquoted = found.Quotes == 0 && !splitter.IsQuoted();
        more = isUnquoted ? splitter.TakeUnquoted(step, found.Ends)
                          : splitter.Take(step, found.Ends | found.Quotes);
    }
    splitter.Finish();
}
