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

__m128i Load(const char16_t* text) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
}

std::uint64_t MaskOf(__m128i first, __m128i second) {
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(first, second)));
}

__m128i Equal(__m128i units, char16_t c) {
    return _mm_cmpeq_epi16(units, _mm_set1_epi16(static_cast<short>(c)));
}

// A bit for each of the 64 characters at `text` that is a double quote.
std::uint64_t FindQuotes(const char16_t* text) {
    std::uint64_t found = 0;
    for (std::size_t at = 0; at < UnitsPerStep; at += 2 * UnitsPerLoad) {
        const __m128i first = Equal(Load(text + at), DoubleQuote);
        found |= MaskOf(first, Equal(Load(text + at + UnitsPerLoad), DoubleQuote)) << at;
    }
    return found;
}

// What there is among 64 characters: a bit for each.
struct Found {
    std::uint64_t Separators = 0;
    std::uint64_t Ends = 0;  // of the line
    bool AnyQuote = false;
};

Found Find(const char16_t* text, char16_t separator) {
    const auto areLow = [](__m128i units) {
        return _mm_cmpeq_epi16(_mm_subs_epu16(units, _mm_set1_epi16(u'\r')), _mm_setzero_si128());
    };
    Found found;
    __m128i quotes = _mm_setzero_si128();
    for (std::size_t at = 0; at < UnitsPerStep; at += 2 * UnitsPerLoad) {
        const __m128i first = Load(text + at);
        const __m128i second = Load(text + at + UnitsPerLoad);
        quotes = _mm_or_si128(quotes, _mm_or_si128(Equal(first, DoubleQuote), Equal(second, DoubleQuote)));
        found.Separators |= MaskOf(Equal(first, separator), Equal(second, separator)) << at;
        found.Ends |= MaskOf(areLow(first), areLow(second)) << at;
    }
    found.AnyQuote = _mm_movemask_epi8(quotes) != 0;
    // Not above the carriage return stand the ends, the tab and what hardly occurs.
    found.Ends &= ~found.Separators;
    while (found.Ends != 0 && !EndsLine(text[std::countr_zero(found.Ends)])) found.Ends &= found.Ends - 1;
    return found;
}

// Where the split of a line has got to.
struct Progress {
    char16_t** Next;      // the entry of the next cell
    char16_t* Cell;       // where it begins
    unsigned Quotes = 0;  // of this cell, and perhaps an even number of those before
    bool AtEnd = false;

    bool IsQuoted() const { return Quotes % 2 != 0; }
};

struct Rules {
    char16_t* Text;
    char16_t Separator;
    bool Merge;
};

// Nearly all cells begin behind the double quote and end behind the blank: nothing is to be taken off them.
bool IsPlainCell(const char16_t* cell, const char16_t* end) {
    return end != cell && *cell > DoubleQuote && end[-1] > u' ';
}

// Takes the separators and the line's ends of a step without quotes that begins outside quotes. Not to be
// inlined: the loop needs the processor's registers for itself.
[[gnu::noinline]] void TakeUnquoted(Progress& state, char16_t* step, std::uint64_t separators,
                                    std::uint64_t ends, const Rules& rules) {
    Progress progress = state;
    const auto endCell = [&](char16_t* p) {
        char16_t* const cell = progress.Cell;
        progress.Cell = p + 1;
        if (IsPlainCell(cell, p)) {
            *p = u'\0';
            *progress.Next++ = cell;
        } else if (!rules.Merge || p != cell || p == rules.Text) {
            *progress.Next++ = MakeCell(cell, p);
        }
    };
    // Nothing behind the first end counts.
    for (separators &= ends ^ (ends - 1); separators != 0; separators &= separators - 1)
        endCell(step + std::countr_zero(separators));
    if (ends != 0) endCell(step + std::countr_zero(ends));
    progress.AtEnd = ends != 0;
    state = progress;
}

// Where both quotes stand at the ends, there is none inside to be looked for.
char16_t* MakeQuotedCell(char16_t* cell, char16_t* p, unsigned quotes) {
    const bool isWhole = quotes == 2 && p - cell >= 2 && *cell == DoubleQuote && p[-1] == DoubleQuote;
    if (!isWhole) return MakeCell(cell, p);
    p[-1] = u'\0';
    return cell + 1;
}

// Takes the characters found in a step, in which there are quotes, or which begins inside them.
[[gnu::noinline]] void TakeQuoted(Progress& state, char16_t* step, std::uint64_t found, const Rules& rules) {
    Progress progress = state;
    const char16_t separator = rules.Separator;
    for (; found != 0; found &= found - 1) {
        char16_t* const p = step + std::countr_zero(found);
        const char16_t c = *p;
        if (c == DoubleQuote) ++progress.Quotes;
        const bool ends = EndsLine(c);
        if (!ends && (c != separator || progress.IsQuoted())) continue;
        char16_t* const cell = progress.Cell;
        progress.Cell = p + 1;
        if (!rules.Merge || p != cell || p == rules.Text) {
            *progress.Next++ = MakeQuotedCell(cell, p, progress.Quotes);
        }
        progress.Quotes = 0;
        if (ends) {
            progress.AtEnd = true;
            break;
        }
    }
    state = progress;
}

}  // namespace

void SplitPaddedLine(char16_t* text, char16_t separator, bool merge, CellList& cells) {
    // A separator that ends lines separates nothing.
    if (EndsLine(separator)) return SplitLine(text, separator, merge, cells);
    const Rules rules{text, separator, merge};
    cells.clear();
    Progress progress{nullptr, text};
    for (char16_t* step = text; !progress.AtEnd; step += UnitsPerStep) {
        char16_t** const first = cells.MakeRoom(UnitsPerStep);
        progress.Next = first;
        const Found found = Find(step, separator);
        if (!found.AnyQuote && !progress.IsQuoted()) {
            TakeUnquoted(progress, step, found.Separators, found.Ends, rules);
        } else {
            TakeQuoted(progress, step, found.Separators | found.Ends | FindQuotes(step), rules);
        }
        cells.SetSize(cells.size() + static_cast<std::size_t>(progress.Next - first));
    }
}
