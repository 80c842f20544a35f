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
}  // namespace

QuickCut::QuickCut(const Cut& how, char16_t mark)
    : IsKnown(!how.IsLineQuoted && IsAscii(how.Separator) && how.Separator != u'"' && IsAscii(mark)),
      Merges(how.Merges),
      Syntax(SyntaxOf(how, mark)) {}

bool QuickCut::operator()(std::u16string_view line) {
    if (!IsKnown) return false;
    Line = line;
    Found.clear();
    Seen.clear();
    const bool hasQuotes = Scan();
    Tight = !hasQuotes && !Merges;
    if (!Tight) return CutLoosely(hasQuotes);
    CutTightly();
    return true;
}

// Every separator ends a cell.
void QuickCut::CutTightly() {
    std::size_t begin = 0;
    for (std::size_t at = 0; at <= Line.size(); at += UnitsPerMask) {
        std::uint64_t separators = Masks[at / UnitsPerMask].Separators;
        for (; separators != 0; separators &= separators - 1) {
            const std::size_t end = at + static_cast<std::size_t>(std::countr_zero(separators));
            Take(begin, end);
            begin = end + 1;
        }
    }
}

// False for a line that this class doesn't know.
bool QuickCut::CutLoosely(bool hasQuotes) {
    std::size_t begin = SkipSeparators(0);
    if (Merges && begin == Line.size()) return true;
    for (;;) {
        std::size_t end = NextSeparator(begin);
        if (!hasQuotes) {
            Take(begin, end);
        } else if (!TakeInQuotes(begin, end)) {
            return false;
        }
        if (end == Line.size()) return true;
        begin = SkipSeparators(end + 1);
        if (Merges && begin == Line.size()) return true;
    }
}

// True if the line has quotes.
bool QuickCut::Scan() {
    const std::size_t whole = Line.size() / UnitsPerMask;
    // One mask is for the rest and one for what Bits reads beyond it.
    if (Masks.size() < whole + 2) Masks.resize(whole + 2);
    if (Narrow.size() < (whole + 2) * UnitsPerMask) Narrow.resize((whole + 2) * UnitsPerMask);
    std::uint64_t quotes = 0;
    for (std::size_t i = 0; i < whole; ++i) {
        const std::size_t at = i * UnitsPerMask;
        Masks[i] = simd::FindCellUnits(Line.data() + at, Syntax, Narrow.data() + at);
        quotes |= Masks[i].Quotes;
    }
    char16_t rest[UnitsPerMask] = {};
    Line.copy(rest, UnitsPerMask, whole * UnitsPerMask);
    CellMasks& last = Masks[whole];
    last = simd::FindCellUnits(rest, Syntax, Narrow.data() + whole * UnitsPerMask);
    quotes |= last.Quotes;
    last.Separators |= std::uint64_t{1} << (Line.size() % UnitsPerMask);
    Narrow[Line.size()] = '\t';
    Narrow[Line.size() + 1] = '\0';
    return quotes != 0;
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

// 64 bits of a mask from a place on.
std::uint64_t QuickCut::Bits(Mask mask, std::size_t from) const {
    const CellMasks* const word = &Masks[from / UnitsPerMask];
    const std::size_t shift = from % UnitsPerMask;
    return word[0].*mask >> shift | word[1].*mask << 1 << (UnitsPerMask - 1 - shift);
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
        Take(begin, end);
        return true;
    }
    const std::size_t last = Line.find(u'"', first + 1);
    if (last == Line.npos) return false;
    end = skipBlanks(last + 1);
    if (end < Line.size() && !IsSeparator(end)) return false;
    Take(first + 1, last);
    return true;
}

inline void QuickCut::Take(std::size_t begin, std::size_t end) {
    if (begin < end && (IsWhiteSpace(Line[begin]) || IsWhiteSpace(Line[end - 1]))) {
        Tight = false;
        while (begin < end && IsWhiteSpace(Line[begin])) ++begin;
        while (begin < end && IsWhiteSpace(Line[end - 1])) --end;
    }
    Found.emplace_back(Line.data() + begin, end - begin);
    Seen.push_back(LookAt(begin, end));
}

// Signs and lengths change from cell to cell: what depends on them takes no branch.
inline CellLook QuickCut::LookAt(std::size_t begin, std::size_t end) const {
    const std::size_t size = end - begin;
    constexpr std::size_t LongestNumber = 32;
    if (size == 0) return CellLook::Empty;
    if (size > LongestNumber) return CellLook::Other;
    const char16_t first = Line[begin];
    const std::size_t signs = std::size_t{first == u'-'} | std::size_t{first == u'+'};
    const std::uint64_t cell = (std::uint64_t{1} << size) - 1;
    const std::uint64_t number = cell - signs;
    const std::uint64_t digits = Bits(&CellMasks::Digits, begin) & cell;
    if (digits == number) {
        const std::size_t count = size - signs;
        if (count - 1 >= CellTally::MostDigits) return CellLook::Other;
        const CellLook whole = static_cast<CellLook>(static_cast<std::size_t>(CellLook::Whole) + count);
        const CellLook unsignedLook =
            size == 1 && first <= u'1' ? (first == u'0' ? CellLook::Zero : CellLook::One) : whole;
        return signs != 0 ? CellLook::SignedWhole : unsignedLook;
    }
    const std::uint64_t mark = Bits(&CellMasks::Marks, begin) & cell;
    const std::uint64_t ends = (cell ^ cell >> 1) | (number & (0 - number));
    const bool isOneMark = mark != 0 && (mark & (mark - 1)) == 0 && (mark & ends) == 0;
    return isOneMark && (digits | mark) == number ? CellLook::Decimal : CellLook::Other;
}
}  // namespace kelvarin::plan
