// A line cut into cells, and what a cell looks like to a person.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin::plan {
// How the lines of a table are cut.
struct Cut {
    char16_t Separator = u'\0';  // NUL: a line is one cell
    bool Merges = false;         // a run of separators is one, and none counts at either end
    bool IsLineQuoted = false;   // each line is one quoted text that holds the cells
    bool operator==(const Cut&) const = default;
};

// The cells of one line after the other. White space around a cell and quotes that enclose it are not part of
// it; a doubled quote within quotes is one.
class LineCutter {
  public:
    explicit LineCutter(const Cut& cut) : How(cut) {}

    // Valid until the next call, and as long as the line.
    const std::vector<std::u16string_view>& operator()(std::u16string_view line);

  private:
    std::u16string_view Take(std::u16string_view line, std::size_t& at);

    const Cut How;
    std::vector<std::u16string_view> Cells;
    std::deque<std::u16string> Unescaped;
};

constexpr char16_t MinusSign = u'\x2212';
constexpr char16_t EnDash = u'\x2013';

inline bool IsHexDigit(char16_t c) {
    return (c >= u'0' && c <= u'9') || ((c | 32) >= u'a' && (c | 32) <= u'f');
}

// The text without the round or square brackets that enclose it: "(1.5)", "[mV]".
std::u16string_view WithoutBrackets(std::u16string_view cell);

enum class CellKind : std::uint8_t {
    Empty,   // or a marker of a missing value
    Number,  // decimal, with point or comma; also with an exponent
    Hex,     // 0x1F, or two hexadecimal digits
    Time,    // with a date or a clock
    Amount,  // a number and a word, such as a unit
    Truth,   // "true", "off"
    Word
};

CellKind KindOf(std::u16string_view cell);

// True for a text that stands for a value that was not measured: "NaN", "n/a", "---".
bool IsMissing(std::u16string_view cell);

// A word that stands for one of two states; which of them is true can't be told of all.
enum class TruthWord { None, True, False, Unclear };  // "ja", "off", "open"
TruthWord TruthOf(std::u16string_view cell);

inline bool IsTruth(std::u16string_view cell) {
    return TruthOf(cell) != TruthWord::None;
}

// What a number looks like.
struct NumberLook {
    char16_t Mark = u'\0';       // the decimal mark: point, comma, or NUL for none
    char16_t Thousands = u'\0';  // between groups of three digits, or NUL
    bool HasExponent = false;
    std::size_t Digits = 0;  // before the mark
};

// Nothing for a text that is no decimal number. A lone comma or point before exactly three digits may be
// either; it is taken for the decimal mark.
std::optional<NumberLook> LookAtNumber(std::u16string_view cell);

// A sign or none, digits, and no more than a decimal mark with digits after it.
struct PlainNumber {
    std::size_t Digits = 0;  // before the mark; 0 for any other text
    bool HasMark = false;
};

// What almost all numbers are, found in few steps.
PlainNumber LookAtPlainNumber(std::u16string_view cell, char16_t mark);

// What a cell is that is no plain number and not empty; no more than one of these.
struct CellFacts {
    std::optional<NumberLook> Number;
    bool IsMissing = false;
    TruthWord Truth = TruthWord::None;
};

CellFacts FactsOf(std::u16string_view cell);

constexpr std::size_t LongestUnit = 8;  // of an amount

// The parts of an amount within its cell.
struct AmountParts {
    std::u16string_view Sign, Number, Unit;
};

// As AmountIn, for a text that is no number.
std::optional<AmountParts> AmountPartsIn(std::u16string_view cell);

// A number and the unit after it, apart or not: "72%", "26,2 °C", "+  74.65 g".
struct Amount {
    std::u16string Number;  // with its sign, without blanks
    std::u16string Unit;
};

// Nothing for a text that is no amount: a number, one without a unit, or with a ratio or several words after
// the number.
std::optional<Amount> AmountIn(std::u16string_view cell);

// The value of a number with this decimal mark; a mark between thousands is stepped over.
double ValueOf(std::u16string_view number, const NumberLook& look);
}  // namespace kelvarin::plan
