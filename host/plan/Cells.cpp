#include "host/plan/Cells.h"

#include <algorithm>
#include <iterator>

#include "host/plan/TimeText.h"
#include "host/plan/WordList.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
bool IsSeparatorAt(const Cut& how, char16_t c) {
    return c == how.Separator || (how.Merges && how.Separator == u' ' && c == u'\t');
}

bool IsOneOf(std::u16string_view cell, const std::u16string_view* begin, const std::u16string_view* end) {
    return std::any_of(begin, end, [&](std::u16string_view word) {
        return cell.size() == word.size() && EqualsIgnoreCase(cell, word);
    });
}

bool IsHex(std::u16string_view cell) {
    const bool hasPrefix = cell.size() > 2 && cell[0] == u'0' && (cell[1] == u'x' || cell[1] == u'X');
    if (!hasPrefix && cell.size() != 2 && cell.size() != 8) return false;
    return std::all_of(cell.begin() + (hasPrefix ? 2 : 0), cell.end(),
                       [](char16_t c) { return IsHexDigit(c); });
}

// A sign of a number; a program for texts makes a minus or a dash of a hyphen.
bool IsSign(char16_t c) {
    return c == u'+' || c == u'-' || c == MinusSign || c == EnDash;
}

// Not the point and the comma, which may be decimal marks: the apostrophe and the blanks that hold a number
// together.
bool IsThousandsMark(char16_t c) {
    return c == u'\'' || c == 0xA0 || c == 0x202F || c == 0x2019;
}

// Where the exponent that begins at `at` ends; `at` if there is none. A "D" needs a sign: "4D2" is
// hexadecimal.
std::size_t ExponentEnd(std::u16string_view cell, std::size_t at) {
    if (at == cell.size()) return at;
    std::size_t begin = at + 1;
    const bool isSigned = begin < cell.size() && (cell[begin] == u'+' || cell[begin] == u'-');
    if ((cell[at] | 32) != u'e' && !((cell[at] | 32) == u'd' && isSigned)) return at;
    if (begin < cell.size() && (cell[begin] == u'+' || cell[begin] == u'-')) ++begin;
    std::size_t end = begin;
    while (end < cell.size() && IsDigit(cell[end])) ++end;
    constexpr std::size_t MostDigits = 3;
    return end > begin && end - begin <= MostDigits ? end : at;
}

// Where the number at the beginning ends; 0 if there is none.
std::size_t NumberEnd(std::u16string_view cell, NumberLook& look) {
    std::size_t at = 0;
    if (at < cell.size() && IsSign(cell[at])) ++at;
    while (at != 0 && at < cell.size() && cell[at] == u' ') ++at;
    std::size_t digits = 0;
    std::size_t group = 0;  // digits since the last mark
    std::size_t marks = 0;
    char16_t last = u'\0';
    char16_t first = u'\0';
    bool evenGroups = true;
    for (; at < cell.size(); ++at) {
        const char16_t c = cell[at];
        if (IsDigit(c)) {
            ++digits;
            ++group;
            continue;
        }
        const bool isMark = c == u'.' || c == u',' || (IsThousandsMark(c) && group > 0);
        if (!isMark || (last != u'\0' && last != first)) break;
        if (marks > 0) evenGroups &= group == 3;
        if (marks == 0) look.Digits = digits;
        if (marks > 0 && c == first && group != 3) break;
        if (first == u'\0') first = c;
        last = c;
        ++marks;
        group = 0;
    }
    if (digits == 0) return 0;
    if (marks == 0) {
        look.Digits = digits;
    } else if (last != first) {
        look = {last, first, false, look.Digits};
        if (!evenGroups) return 0;
    } else if (marks > 1 || IsThousandsMark(first)) {
        if (group != 3 || look.Digits > 3) return 0;
        look.Thousands = first;
    } else {
        look.Mark = first;
    }
    const std::size_t end = ExponentEnd(cell, at);
    look.HasExponent = end != at;
    return end;
}

// Not the stroke of "1/min" or the colon of "1:2".
bool BeginsUnit(char16_t c) {
    return IsLetter(c) || std::u16string_view(u"%°‰ΩÅ").find(c) != std::u16string_view::npos;
}

// What NumberEnd finds for almost all numbers, in fewer steps.
std::optional<NumberLook> LookAtPlainNumber(std::u16string_view cell) {
    for (const char16_t mark : {u'.', u','}) {
        const PlainNumber plain = plan::LookAtPlainNumber(cell, mark);
        if (plain.Digits != 0) return NumberLook{plain.HasMark ? mark : u'\0', u'\0', false, plain.Digits};
    }
    return std::nullopt;
}

// "V", "V DC".
bool IsOneUnit(std::u16string_view text) {
    if (text.empty() || text.size() > LongestUnit || !BeginsUnit(text[0])) return false;
    const std::size_t blank = text.find(u' ');
    return blank == text.npos || IsListed(u"DC AC RMS", text.substr(blank + 1));
}

bool LooksLikeTime(std::u16string_view cell) {
    const auto digits = std::count_if(cell.begin(), cell.end(), IsDigit);
    if (digits < 3 || digits * 4 < static_cast<std::ptrdiff_t>(cell.size())) return false;
    constexpr int AnyYear = 2000;  // "Apr 29 06:00"
    return ParseInAnyOrder(cell, AnyYear).has_value();
}
}  // namespace

std::u16string_view WithoutBrackets(std::u16string_view cell) {
    cell = TrimWhiteSpace(cell);
    const bool isEnclosed = cell.size() >= 2 && ((cell.front() == u'(' && cell.back() == u')') ||
                                                 (cell.front() == u'[' && cell.back() == u']'));
    return isEnclosed ? TrimWhiteSpace(cell.substr(1, cell.size() - 2)) : cell;
}

std::u16string_view LineCutter::Take(std::u16string_view line, std::size_t& at) {
    while (at < line.size() && IsWhiteSpace(line[at]) && !IsSeparatorAt(How, line[at])) ++at;
    if (at < line.size() && line[at] == u'"') {
        std::size_t end = at + 1;
        bool hasEscape = false;
        while (end < line.size() && (line[end] != u'"' || (end + 1 < line.size() && line[end + 1] == u'"'))) {
            hasEscape |= line[end] == u'"';
            end += line[end] == u'"' ? 2 : 1;
        }
        std::size_t after = end + 1;
        while (after < line.size() && IsWhiteSpace(line[after]) && !IsSeparatorAt(How, line[after])) ++after;
        if (end < line.size() && (after >= line.size() || IsSeparatorAt(How, line[after]))) {
            std::u16string_view cell = line.substr(at + 1, end - at - 1);
            at = after;
            if (!hasEscape) return TrimWhiteSpace(cell);
            Unescaped.push_back(ReplaceAll(std::u16string(cell), u"\"\"", u"\""));
            return TrimWhiteSpace(Unescaped.back());
        }
    }
    std::size_t end = at;
    while (end < line.size() && !IsSeparatorAt(How, line[end])) ++end;
    const std::u16string_view cell = line.substr(at, end - at);
    at = end;
    return TrimWhiteSpace(cell);
}

const std::vector<std::u16string_view>& LineCutter::operator()(std::u16string_view line) {
    Cells.clear();
    Unescaped.clear();
    if (How.IsLineQuoted) {
        line = TrimWhiteSpace(line);
        if (line.size() >= 2 && line.front() == u'"' && line.back() == u'"') {
            Unescaped.push_back(ReplaceAll(std::u16string(line.substr(1, line.size() - 2)), u"\"\"", u"\""));
            line = Unescaped.back();
        }
    }
    if (How.Separator == u'\0') {
        Cells.push_back(TrimWhiteSpace(line));
        return Cells;
    }
    std::size_t at = 0;
    if (How.Merges) {
        while (at < line.size() && IsSeparatorAt(How, line[at])) ++at;
        if (at == line.size()) return Cells;
    }
    for (;;) {
        Cells.push_back(Take(line, at));
        if (at >= line.size()) return Cells;
        ++at;
        if (!How.Merges) continue;
        while (at < line.size() && IsSeparatorAt(How, line[at])) ++at;
        if (at == line.size()) return Cells;
    }
}

bool IsMissing(std::u16string_view cell) {
    constexpr std::size_t LongestMarker = 8;
    if (cell.empty()) return true;
    // A field that its number does not fit, or that is beyond a range.
    const bool isFilled = cell.size() > 1 && (cell[0] == u'*' || cell[0] == u'>' || cell[0] == u'<') &&
                          cell.find_first_not_of(cell[0]) == cell.npos;
    if (isFilled) return true;
    if (cell.size() > LongestMarker) return false;
    if (IsDigit(cell.front())) return EqualsIgnoreCase(cell, u"1.#qnan");
    constexpr std::u16string_view Beginnings = u"-.#?*nNoOmMiI\\–—";
    if (Beginnings.find(cell.front()) == Beginnings.npos) return false;
    constexpr std::u16string_view Markers[] = {
        u"nan",  u"na",      u"n/a",     u"#n/a",   u"null", u"none", u"nil", u"-",        u"--",  u"---",
        u"----", u"?",       u"*",       u"***",    u"over", u"ovld", u"ol",  u"overflow", u"#nv", u"#div/0!",
        u"-nan", u"missing", u"no data", u"nodata", u"inf",  u"-inf", u".",   u"\\n",      u"–",   u"—"};
    return IsOneOf(cell, std::begin(Markers), std::end(Markers));
}

TruthWord TruthOf(std::u16string_view cell) {
    constexpr std::size_t Longest = 6;
    if (cell.size() < 2 || cell.size() > Longest || !IsLetter(cell.front())) return TruthWord::None;
    constexpr std::u16string_view True[] = {u"true", u"on", u"yes", u"ja", u"wahr"};
    constexpr std::u16string_view False[] = {u"false", u"off", u"no", u"nein", u"falsch"};
    constexpr std::u16string_view Unclear[] = {u"open", u"closed"};
    if (IsOneOf(cell, std::begin(True), std::end(True))) return TruthWord::True;
    if (IsOneOf(cell, std::begin(False), std::end(False))) return TruthWord::False;
    return IsOneOf(cell, std::begin(Unclear), std::end(Unclear)) ? TruthWord::Unclear : TruthWord::None;
}

PlainNumber LookAtPlainNumber(std::u16string_view cell, char16_t mark) {
    const std::size_t begin = !cell.empty() && (cell[0] == u'-' || cell[0] == u'+') ? 1 : 0;
    std::size_t at = begin;
    while (at < cell.size() && IsDigit(cell[at])) ++at;
    const std::size_t digits = at - begin;
    if (at == cell.size()) return {digits, false};
    const std::size_t decimals = at + 1;
    if (cell[at] != mark || decimals == cell.size()) return {};
    for (at = decimals; at < cell.size(); ++at) {
        if (!IsDigit(cell[at])) return {};
    }
    return {digits, true};
}

std::optional<NumberLook> LookAtNumber(std::u16string_view cell) {
    if (const std::optional<NumberLook> plain = LookAtPlainNumber(cell)) return plain;
    NumberLook look;
    const std::size_t end = NumberEnd(cell, look);
    if (end == 0 || end != cell.size()) return std::nullopt;
    return look;
}

CellFacts FactsOf(std::u16string_view cell) {
    CellFacts facts;
    facts.Number = LookAtNumber(cell);
    if (!facts.Number) facts.IsMissing = IsMissing(cell);
    if (!facts.Number && !facts.IsMissing) facts.Truth = TruthOf(cell);
    return facts;
}

std::optional<AmountParts> AmountPartsIn(std::u16string_view cell) {
    std::size_t at = !cell.empty() && IsSign(cell[0]) ? 1 : 0;
    const std::u16string_view sign = cell.substr(0, at);
    while (at < cell.size() && cell[at] == u' ') ++at;
    const std::size_t begin = at;
    while (at < cell.size() && (IsDigit(cell[at]) || cell[at] == u'.' || cell[at] == u',')) ++at;
    if (at == begin || at == cell.size()) return std::nullopt;
    const std::u16string_view unit = TrimWhiteSpace(cell.substr(at));
    if (!IsOneUnit(unit)) return std::nullopt;
    return AmountParts{sign, cell.substr(begin, at - begin), unit};
}

std::optional<Amount> AmountIn(std::u16string_view cell) {
    if (LookAtNumber(cell)) return std::nullopt;  // "1.5e-3"
    const std::optional<AmountParts> parts = AmountPartsIn(cell);
    if (!parts) return std::nullopt;
    Amount amount{std::u16string(parts->Sign), std::u16string(parts->Unit)};
    amount.Number += parts->Number;
    return amount;
}

double ValueOf(std::u16string_view number, const NumberLook& look) {
    std::u16string text(number);
    if (look.Thousands != u'\0') std::erase(text, look.Thousands);
    std::erase(text, u' ');
    std::replace_if(
        text.begin(), text.end(), [](char16_t c) { return c == u'D' || c == u'd'; }, u'E');
    if (text.starts_with(MinusSign) || text.starts_with(EnDash)) text[0] = u'-';
    const char16_t* end = nullptr;
    return ParseDouble(text.c_str(), look.Mark == u'\0' ? u'.' : look.Mark, &end);
}

CellKind KindOf(std::u16string_view given) {
    const std::u16string_view cell = WithoutBrackets(given);
    if (LookAtPlainNumber(cell)) return CellKind::Number;
    if (IsMissing(cell)) return CellKind::Empty;
    NumberLook look;
    const std::size_t end = NumberEnd(cell, look);
    if (end == cell.size()) return CellKind::Number;
    // "[dB]" is a unit.
    if (IsHex(cell)) return given.starts_with(u'[') ? CellKind::Word : CellKind::Hex;
    if (LooksLikeTime(cell)) return CellKind::Time;
    if (IsTruth(cell)) return CellKind::Truth;
    if (end != 0) {
        // A value and its unit; more words are a text that begins with a number.
        const std::u16string_view rest = TrimWhiteSpace(cell.substr(end));
        if (IsOneUnit(rest)) return CellKind::Amount;
    }
    return CellKind::Word;
}
}  // namespace kelvarin::plan
