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
    return masks;
}

// 64 bits of a mask from a character on.
template <std::uint64_t CellMasks::*Mask>
std::uint64_t BitsOf(const CellMasks* masks, std::size_t from) {
    const CellMasks* const word = masks + from / UnitsPerMask;
    const std::size_t shift = from % UnitsPerMask;
    return word[0].*Mask >> shift | word[1].*Mask << 1 << (UnitsPerMask - 1 - shift);
}

// Signs and lengths change from cell to cell: what depends on them takes no branch.
inline CellLook LookAt(const CellMasks* masks, const char16_t* line, std::size_t begin, std::size_t end) {
    const std::size_t size = end - begin;
    constexpr std::size_t LongestNumber = 32;
    if (size == 0) return CellLook::Empty;
    if (size > LongestNumber) return CellLook::Other;
    const char16_t first = line[begin];
    const std::size_t signs = std::size_t{first == u'-'} | std::size_t{first == u'+'};
    const std::uint64_t cell = (std::uint64_t{1} << size) - 1;
    const std::uint64_t number = cell - signs;
    const std::uint64_t digits = BitsOf<&CellMasks::Digits>(masks, begin) & cell;
    if (digits == number) {
        const std::size_t count = size - signs;
        if (count - 1 >= CellTally::MostDigits) return CellLook::Other;
        const CellLook whole = static_cast<CellLook>(static_cast<std::size_t>(CellLook::Whole) + count);
        const CellLook unsignedLook =
            size == 1 && first <= u'1' ? (first == u'0' ? CellLook::Zero : CellLook::One) : whole;
        return signs != 0 ? CellLook::SignedWhole : unsignedLook;
    }
    const std::uint64_t mark = BitsOf<&CellMasks::Marks>(masks, begin) & cell;
    const std::uint64_t ends = (cell ^ cell >> 1) | (number & (0 - number));
    const bool isOneMark = mark != 0 && (mark & (mark - 1)) == 0 && (mark & ends) == 0;
    return isOneMark && (digits | mark) == number ? CellLook::Decimal : CellLook::Other;
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
    Scan();
    Tight = !HasQuotes && !Merges;
    if (!Tight) return CutLoosely();
    CutTightly();
    return true;
}

// Where every separator ends a cell.
void QuickCut::CutTightly() {
    const char16_t* const text = Line.data();
    const CellMasks* const masks = Masks.data();
    const bool hasBlanks = HasBlanks;
    std::size_t begin = 0;
    for (std::size_t at = 0; at <= Line.size(); at += UnitsPerMask) {
        std::uint64_t separators = masks[at / UnitsPerMask].Separators;
        for (; separators != 0; separators &= separators - 1) {
            const std::size_t end = at + static_cast<std::size_t>(std::countr_zero(separators));
            if (hasBlanks && begin < end && (IsWhiteSpace(text[begin]) || IsWhiteSpace(text[end - 1]))) {
                Tight = false;
                Take(begin, end);
            } else {
                Found.emplace_back(text + begin, end - begin);
                Seen.push_back(LookAt(masks, text, begin, end));
            }
            begin = end + 1;
        }
    }
}

void QuickCut::Take(std::size_t begin, std::size_t end) {
    while (begin < end && IsWhiteSpace(Line[begin])) ++begin;
    while (begin < end && IsWhiteSpace(Line[end - 1])) --end;
    Found.push_back(Line.substr(begin, end - begin));
    Seen.push_back(LookAt(Masks.data(), Line.data(), begin, end));
}

// False for a line that this class doesn't know.
bool QuickCut::CutLoosely() {
    std::size_t begin = SkipSeparators(0);
    if (Merges && begin == Line.size()) return true;
    for (;;) {
        std::size_t end = NextSeparator(begin);
        const bool mayBeQuoted =
            HasQuotes && begin < end && (Line[begin] == u'"' || IsWhiteSpace(Line[begin]));
        if (!mayBeQuoted) {
            Take(begin, end);
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
    const auto scan = [this](const char16_t* text, std::size_t at) {
        const CellMasks masks = simd::FindCellUnits(text, Syntax, Narrow.data() + at);
        HasQuotes |= masks.HasQuotes;
        HasBlanks |= masks.HasBlanks;
        return masks;
    };
    for (std::size_t i = 0; i < whole; ++i) Masks[i] = scan(Line.data() + i * UnitsPerMask, i * UnitsPerMask);
    if (whole == 0) {
        char16_t padded[UnitsPerMask] = {};
        Line.copy(padded, UnitsPerMask);
        Masks[0] = scan(padded, 0);
    } else {
        // The last 64 characters once more, for those of them that are new.
        const std::size_t at = Line.size() - UnitsPerMask;
        Masks[whole] = rest == 0 ? CellMasks{} : Shifted(scan(Line.data() + at, at), UnitsPerMask - rest);
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

}  // namespace kelvarin::plan
