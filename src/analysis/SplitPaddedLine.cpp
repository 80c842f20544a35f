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

// A bit for each of the 64 characters at `text` that is a double quote.
std::uint64_t FindQuotes(const char16_t* text) {
    const __m128i quote = _mm_set1_epi16(static_cast<short>(DoubleQuote));
    std::uint64_t found = 0;
    for (std::size_t at = 0; at < UnitsPerStep; at += 2 * UnitsPerLoad) {
        const __m128i first = _mm_cmpeq_epi16(Load(text + at), quote);
        const __m128i second = _mm_cmpeq_epi16(Load(text + at + UnitsPerLoad), quote);
        found |= MaskOf(first, second) << at;
    }
    return found;
}

// What there is among 64 characters.
struct Found {
    std::uint64_t
        Ends;  // a bit for each that is the separator or not above the carriage return: some mean nothing
    bool AnyQuote;
};

Found Find(const char16_t* text, __m128i separator) {
    const __m128i quote = _mm_set1_epi16(static_cast<short>(DoubleQuote));
    const __m128i lastEnd = _mm_set1_epi16(u'\r');
    const __m128i zero = _mm_setzero_si128();
    std::uint64_t ends = 0;
    __m128i quotes = zero;
    for (std::size_t at = 0; at < UnitsPerStep; at += 2 * UnitsPerLoad) {
        const __m128i first = Load(text + at);
        const __m128i second = Load(text + at + UnitsPerLoad);
        quotes = _mm_or_si128(quotes, _mm_cmpeq_epi16(first, quote));
        quotes = _mm_or_si128(quotes, _mm_cmpeq_epi16(second, quote));
        const __m128i firstEnds = _mm_cmpeq_epi16(_mm_subs_epu16(first, lastEnd), zero);
        const __m128i secondEnds = _mm_cmpeq_epi16(_mm_subs_epu16(second, lastEnd), zero);
        ends |= MaskOf(_mm_or_si128(firstEnds, _mm_cmpeq_epi16(first, separator)),
                       _mm_or_si128(secondEnds, _mm_cmpeq_epi16(second, separator)))
                << at;
    }
    return {ends, _mm_movemask_epi8(quotes) != 0};
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

// Takes the characters found in a step, none of them a quote, outside quotes. Not to be inlined: the loop
// needs the processor's registers for itself.
[[gnu::noinline]] void TakeUnquoted(Progress& state, char16_t* step, std::uint64_t found,
                                    const Rules& rules) {
    Progress progress = state;
    const char16_t separator = rules.Separator;
    for (; found != 0; found &= found - 1) {
        char16_t* const p = step + std::countr_zero(found);
        const char16_t c = *p;
        const bool ends = EndsLine(c);
        if (!ends && c != separator) continue;
        char16_t* const cell = progress.Cell;
        progress.Cell = p + 1;
        if (IsPlainCell(cell, p)) {
            *p = u'\0';
            *progress.Next++ = cell;
        } else if (!rules.Merge || p != cell || p == rules.Text) {
            *progress.Next++ = MakeCell(cell, p);
        }
        if (ends) {
            progress.AtEnd = true;
            break;
        }
    }
    state = progress;
}

// Where both quotes stand at the ends, there is none inside to be looked for.
char16_t* MakeQuotedCell(char16_t* cell, char16_t* p, unsigned quotes) {
    const bool isWhole = quotes == 2 && p - cell >= 2 && *cell == DoubleQuote && p[-1] == DoubleQuote;
    if (!isWhole) return MakeCell(cell, p);
    p[-1] = u'\0';
    return cell + 1;
}

// The same with quotes among them or open before.
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
    const Rules rules{text, separator, merge};
    const __m128i separators = _mm_set1_epi16(static_cast<short>(separator));
    cells.clear();
    Progress progress{nullptr, text};
    for (char16_t* step = text; !progress.AtEnd; step += UnitsPerStep) {
        char16_t** const first = cells.MakeRoom(UnitsPerStep);
        progress.Next = first;
        const Found found = Find(step, separators);
        if (!found.AnyQuote && !progress.IsQuoted()) {
            TakeUnquoted(progress, step, found.Ends, rules);
        } else {
            TakeQuoted(progress, step, found.Ends | FindQuotes(step), rules);
        }
        cells.SetSize(cells.size() + static_cast<std::size_t>(progress.Next - first));
    }
}
