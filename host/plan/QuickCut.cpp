// A mask has a bit for each character of the line: a cell ends at the next bit of the separators, and it is a
// whole number if the bits of its digits are all set.
#include "host/plan/QuickCut.h"

#include <bit>

#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
using simd::CellMasks;
using simd::UnitsPerMask;

bool IsAscii(char16_t c) {
    return c != u'\0' && c < 0x80;
}

simd::CellSyntax SyntaxOf(const Cut& how, char16_t mark) {
    const auto separator = static_cast<char>(how.Separator);
    const bool isAnyBlank = how.Merges && separator == ' ';
    return {separator, isAnyBlank ? '\t' : separator, static_cast<char>(mark)};
}

// Without the first so many characters.
CellMasks Shifted(CellMasks masks, std::size_t count) {
    masks.Separators >>= count;
    masks.Digits >>= count;
    masks.Marks >>= count;
    masks.Quotes >>= count;
    return masks;
}

// Each bit that has an odd number of bits up to its own place.
std::uint64_t OddPlaces(std::uint64_t bits) {
    bits ^= bits << 1;
    bits ^= bits << 2;
    bits ^= bits << 4;
    bits ^= bits << 8;
    bits ^= bits << 16;
    return bits ^ bits << 32;
}
}  // namespace

QuickCut::QuickCut(const Cut& how, char16_t mark)
    : IsKnown(!how.IsLineQuoted && IsAscii(how.Separator) && how.Separator != u'"' && IsAscii(mark)),
      Merges(how.Merges),
      Syntax(SyntaxOf(how, mark)) {}

bool QuickCut::operator()(std::u16string_view line) {
    if (!IsKnown) return false;
    Line = line;
    Scan();
    Tight = !HasQuotes && !Merges;
    if (Merges || (HasQuotes && !HideQuotedSeparators())) return CutLoosely();
    CutTightly();
    return true;
}

// Removes the separators within quotes from the masks. False, with nothing removed, unless quotes enclose
// whole cells and nothing else: a separator is before each first one and after each last one.
bool QuickCut::HideQuotedSeparators() {
    const std::size_t words = Line.size() / UnitsPerMask + 1;
    if (Quoted.size() < words) Quoted.resize(words);
    std::uint64_t quoted = 0;     // all bits, if the word before ends within quotes
    std::uint64_t afterEnd = 1;   // the lowest bit, if it ends with a separator
    std::uint64_t afterLast = 0;  // or with the last quote of a cell
    for (std::size_t i = 0; i < words; ++i) {
        const CellMasks& masks = Masks[i];
        Quoted[i] = OddPlaces(masks.Quotes) ^ quoted;
        const std::uint64_t ends = masks.Separators & ~Quoted[i];
        const std::uint64_t first = masks.Quotes & Quoted[i];
        const std::uint64_t last = masks.Quotes & ~Quoted[i];
        if ((first & ~(ends << 1 | afterEnd)) != 0) return false;
        if (((last << 1 | afterLast) & ~ends) != 0) return false;
        constexpr int ToLowest = UnitsPerMask - 1;
        quoted = 0 - (Quoted[i] >> ToLowest);
        afterEnd = ends >> ToLowest;
        afterLast = last >> ToLowest;
    }
    if (quoted != 0) return false;
    for (std::size_t i = 0; i < words; ++i) Masks[i].Separators &= ~Quoted[i];
    return true;
}

// Where every separator ends a cell. Most lines have as many cells as the line before.
void QuickCut::CutTightly() {
    const char16_t* const text = Line.data();
    const CellMasks* const masks = Masks.data();
    const bool isRough = HasBlanks || HasQuotes;
    std::u16string_view* next = Found.data();
    const std::u16string_view* last = next + Found.size();
    std::size_t begin = 0;
    for (std::size_t at = 0; at <= Line.size(); at += UnitsPerMask) {
        std::uint64_t separators = masks[at / UnitsPerMask].Separators;
        for (; separators != 0; separators &= separators - 1) {
            const std::size_t end = at + static_cast<std::size_t>(std::countr_zero(separators));
            if (next == last) {
                const std::size_t count = Found.size();
                Found.resize(2 * count + 1);
                next = Found.data() + count;
                last = Found.data() + Found.size();
            }
            // Blanks and a quote are among the lowest characters.
            const bool mayBeRough = isRough && begin < end && (text[begin] <= u'"' || text[end - 1] <= u' ');
            *next++ = mayBeRough ? RoughCell(begin, end) : std::u16string_view(text + begin, end - begin);
            begin = end + 1;
        }
    }
    Found.resize(static_cast<std::size_t>(next - Found.data()));
}

// A cell that is enclosed in quotes or begins with none.
std::u16string_view QuickCut::RoughCell(std::size_t begin, std::size_t end) {
    const bool isQuoted = Line[begin] == u'"';
    if (isQuoted || IsWhiteSpace(Line[begin]) || IsWhiteSpace(Line[end - 1])) Tight = false;
    return Trimmed(begin + isQuoted, end - isQuoted);
}

std::u16string_view QuickCut::Trimmed(std::size_t begin, std::size_t end) const {
    while (begin < end && IsWhiteSpace(Line[begin])) ++begin;
    while (begin < end && IsWhiteSpace(Line[end - 1])) --end;
    return Line.substr(begin, end - begin);
}

// False for a line that this class doesn't know.
bool QuickCut::CutLoosely() {
    Found.clear();
    std::size_t begin = SkipSeparators(0);
    if (Merges && begin == Line.size()) return true;
    for (;;) {
        std::size_t end = NextSeparator(begin);
        const bool mayBeQuoted =
            HasQuotes && begin < end && (Line[begin] == u'"' || IsWhiteSpace(Line[begin]));
        if (!mayBeQuoted) {
            Found.push_back(Trimmed(begin, end));
        } else if (!TakeInQuotes(begin, end)) {
            return false;
        }
        if (end == Line.size()) return true;
        begin = SkipSeparators(end + 1);
        if (Merges && begin == Line.size()) return true;
    }
}

void QuickCut::Scan() {
    const std::size_t whole = Line.size() / UnitsPerMask;
    const std::size_t rest = Line.size() % UnitsPerMask;
    // One mask is for the rest and one for what BitsOf reads beyond it.
    if (Masks.size() < whole + 2) Masks.resize(whole + 2);
    if (Narrow.size() < (whole + 2) * UnitsPerMask) Narrow.resize((whole + 2) * UnitsPerMask);
    HasQuotes = HasBlanks = false;
    const auto scan = [this](const char16_t* text, std::size_t count, std::size_t at) {
        const CellMasks masks = simd::FindCellUnits(text, count, Syntax, Narrow.data() + at);
        HasQuotes |= masks.Quotes != 0;
        HasBlanks |= masks.HasBlanks;
        return masks;
    };
    for (std::size_t i = 0; i < whole; ++i)
        Masks[i] = scan(Line.data() + i * UnitsPerMask, UnitsPerMask, i * UnitsPerMask);
    constexpr std::size_t Step = simd::CellUnitsStep;
    const std::size_t steps = (rest + Step - 1) / Step * Step;
    if (whole == 0) {
        char16_t padded[UnitsPerMask] = {};
        Line.copy(padded, UnitsPerMask);
        Masks[0] = scan(padded, steps, 0);
    } else {
        // The last characters, some of them once more.
        const std::size_t at = Line.size() - steps;
        Masks[whole] = Shifted(scan(Line.data() + at, steps, at), steps - rest);
    }
    Masks[whole].Separators |= std::uint64_t{1} << rest;
    Narrow[Line.size()] = '\t';
    Narrow[Line.size() + 1] = '\0';
}

bool QuickCut::IsSeparator(std::size_t at) const {
    return (Masks[at / UnitsPerMask].Separators >> (at % UnitsPerMask) & 1) != 0;
}

std::size_t QuickCut::NextSeparator(std::size_t from) const {
    std::size_t word = from / UnitsPerMask;
    std::uint64_t bits = Masks[word].Separators & ~std::uint64_t{0} << (from % UnitsPerMask);
    while (bits == 0) bits = Masks[++word].Separators;
    return word * UnitsPerMask + static_cast<std::size_t>(std::countr_zero(bits));
}

// Where runs of separators are merged, the place after one; else the same place.
std::size_t QuickCut::SkipSeparators(std::size_t at) const {
    while (Merges && at < Line.size() && IsSeparator(at)) ++at;
    return at;
}

// A cell that may be in quotes, with separators between them; moves its end. False for one that this class
// doesn't know.
bool QuickCut::TakeInQuotes(std::size_t begin, std::size_t& end) {
    const auto skipBlanks = [this](std::size_t at) {
        while (at < Line.size() && IsWhiteSpace(Line[at]) && !IsSeparator(at)) ++at;
        return at;
    };
    const std::size_t first = skipBlanks(begin);
    if (first == Line.size() || Line[first] != u'"') {
        Found.push_back(Trimmed(begin, end));
        return true;
    }
    const std::size_t last = Line.find(u'"', first + 1);
    if (last == Line.npos) return false;
    end = skipBlanks(last + 1);
    if (end < Line.size() && !IsSeparator(end)) return false;
    Found.push_back(Trimmed(first + 1, last));
    return true;
}

}  // namespace kelvarin::plan
