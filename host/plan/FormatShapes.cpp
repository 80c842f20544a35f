// A text of a time is, from left to right:
//
//   text = { literal } [ date { literal } ] [ time [ zone ] ] { literal }
//   date = three numbers between two equal marks, or 6 or 8 digits, or 12 or 14 with the time
//   time = numbers between colons or points, or 4 or 6 digits; then a mark and digits for a fraction
//   zone = a sign and two or four digits with or without a colon, of which a format only steps over those of
//          UTC
#include "host/plan/FormatShapes.h"

#include <algorithm>
#include <array>
#include <optional>

#include "host/plan/TimeText.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
enum Letter : std::size_t { Year, Month, Day, Hours, Minutes, Seconds };

// The letters of a date from left to right.
std::array<Letter, 3> LettersOf(DateOrder order) {
    if (order == DateOrder::YearFirst) return {Year, Month, Day};
    if (order == DateOrder::DayFirst) return {Day, Month, Year};
    return {Month, Day, Year};
}

class ShapeReader {
  public:
    // Without an order there is no date in the text.
    ShapeReader(std::u16string_view text, std::optional<DateOrder> order, const std::u16string& letters)
        : Text(text), Order(order), Letters(letters) {}

    // The format, or nothing if the text has another look.
    std::optional<std::u16string> Read() {
        while (At < Text.size()) {
            if (!IsDigit(Text[At])) {
                if (HasTime && ReadZone()) continue;
                if (!ReadLiteral()) return std::nullopt;
            } else if (!ReadDateInPlace() && !ReadTimeInPlace()) {
                return std::nullopt;
            }
        }
        return HasTime || HasDate ? std::optional(Format) : std::nullopt;
    }

  private:
    bool ReadDateInPlace() {
        if (!Order || HasDate || HasTime) return false;
        HasDate = ReadDate();
        return HasDate;
    }

    bool ReadTimeInPlace() {
        if (HasTime || (Order && !HasDate)) return false;
        HasTime = ReadTime();
        return HasTime;
    }

    std::size_t DigitsAt(std::size_t at) const {
        std::size_t end = at;
        while (end < Text.size() && IsDigit(Text[end])) ++end;
        return end - at;
    }
    bool IsAt(std::size_t at, char16_t c) const { return at < Text.size() && Text[at] == c; }

    // Whether the digits at a place may be the number of this field.
    bool IsInRange(Letter letter, std::size_t at, std::size_t digits) const {
        int number = 0;
        for (std::size_t i = 0; i < digits; ++i) number = 10 * number + (Text[at + i] - u'0');
        if (letter == Year) return digits == 2 || (digits == 4 && number >= 1970 && number <= 2115);
        if (letter == Hours) return number <= 24;
        if (letter == Minutes || letter == Seconds) return number < 60;
        return digits <= 2 && number >= 1 && number <= (letter == Month ? 12 : 31);
    }

    // A field of so many letters; the place moves on.
    void AddField(Letter letter, std::size_t width, std::size_t digits) {
        Format.append(width, Letters[letter]);
        At += digits;
    }

    // Any character as itself, white space as one blank. False for a letter of a format and for AM and PM.
    bool ReadLiteral() {
        char16_t c = Text[At++];
        if (IsWhiteSpace(c)) {
            while (At < Text.size() && IsWhiteSpace(Text[At])) ++At;
            c = u' ';
        }
        const bool isHalfDay = HasTime && (c == u'M' || c == u'm') && At >= 2 &&
                               std::u16string_view(u"APap").find(Text[At - 2]) != std::u16string::npos;
        if (isHalfDay || c == u'[' || Letters.find(c) != std::u16string::npos) return false;
        Format += c;
        return true;
    }

    bool ReadDate() {
        const std::size_t digits = DigitsAt(At);
        if (digits == 6 || digits == 8 || digits == 12 || digits == 14) return ReadCompactDate(digits);
        const std::size_t begin = At;
        char16_t mark = u'\0';
        for (const Letter letter : LettersOf(*Order)) {
            if (At != begin) {
                const char16_t c = At < Text.size() ? Text[At++] : u'\0';
                if ((c != u'.' && c != u'/' && c != u'-') || (mark != u'\0' && c != mark)) return false;
                mark = c;
                Format += c;
            }
            const std::size_t length = DigitsAt(At);
            if (length == 0 || length > 4 || !IsInRange(letter, At, length)) return false;
            AddField(letter, letter == Year ? 4 : 2, length);
        }
        // Nobody writes the month first with points.
        return mark != u'.' || *Order != DateOrder::MonthFirst;
    }

    // Without marks each number has its full length.
    bool ReadCompactDate(std::size_t digits) {
        if (*Order == DateOrder::MonthFirst) return false;
        for (const Letter letter : LettersOf(*Order)) {
            const std::size_t length = letter == Year && digits != 6 ? 4 : 2;
            if (!IsInRange(letter, At, length)) return false;
            AddField(letter, length, length);
        }
        if (digits < 12) return true;
        if (!ReadCompactTime(digits - 8)) return false;
        HasTime = true;
        return true;
    }

    bool ReadTime() {
        const std::size_t digits = DigitsAt(At);
        const char16_t mark = At + digits < Text.size() ? Text[At + digits] : u'\0';
        const bool marked = (mark == u':' || (mark == u'.' && digits <= 2)) && DigitsAt(At + digits + 1) == 2;
        if (marked) return ReadMarkedTime(digits, mark);
        if (digits != 4 && digits != 6) return false;
        return ReadCompactTime(digits) && (digits == 4 || ReadFraction());
    }

    bool ReadCompactTime(std::size_t digits) {
        for (std::size_t i = 0; i < digits; i += 2) {
            const auto letter = static_cast<Letter>(Hours + i / 2);
            if (!IsInRange(letter, At, 2)) return false;
            AddField(letter, 2, 2);
        }
        return true;
    }

    bool ReadMarkedTime(std::size_t digits, char16_t mark) {
        const std::size_t second = At + digits + 1;
        const bool hasSeconds = IsAt(second + 2, mark) && DigitsAt(second + 3) == 2;
        if (mark == u'.' && !hasSeconds) return false;
        const bool hasFraction =
            mark == u':' && (IsAt(second + 2, u'.') || IsAt(second + 2, u',')) && DigitsAt(second + 3) != 0;
        if (!IsInRange(Minutes, second, 2)) return false;
        if (!hasSeconds && hasFraction) {
            AddField(Minutes, 2, digits);
        } else if (digits > 2 || !IsInRange(Hours, At, digits)) {
            if (digits > 8 || mark == u'.') return false;
            Format += u"[h]";
            At += digits;
        } else {
            AddField(Hours, 2, digits);
        }
        Format += Text[At++];
        AddField(!hasSeconds && hasFraction ? Seconds : Minutes, 2, 2);
        if (hasSeconds) {
            if (!IsInRange(Seconds, At + 1, 2)) return false;
            Format += Text[At++];
            AddField(Seconds, 2, 2);
        }
        return !(hasSeconds || hasFraction) || ReadFraction();
    }

    // A mark and digits after the seconds, if there are any.
    bool ReadFraction() {
        const bool marked = IsAt(At, u'.') || IsAt(At, u',') || IsAt(At, u':');
        if (!marked || DigitsAt(At + 1) == 0) return true;
        Format += Text[At++];
        Format += u"000";
        At += DigitsAt(At);
        return true;
    }

    // The digits of UTC: those of another zone would count as a fraction.
    bool ReadZone() {
        const std::size_t hours = DigitsAt(At + 1);
        if (!(IsAt(At, u'+') || IsAt(At, u'-')) || (hours != 2 && hours != 4)) return false;
        const bool hasMinutes = hours == 2 && IsAt(At + 3, u':') && DigitsAt(At + 4) == 2;
        const std::size_t length = 1 + hours + (hasMinutes ? 3 : 0);
        if (At + length != Text.size()) return false;
        if (Text.substr(At, length).find_first_not_of(u"+-0:") != std::u16string::npos) return false;
        Format += Text[At];
        Format += hasMinutes ? u"0:0" : u"0";
        At += length;
        return true;
    }

    const std::u16string_view Text;
    const std::optional<DateOrder> Order;
    const std::u16string& Letters;
    std::size_t At = 0;
    bool HasDate = false;
    bool HasTime = false;
    std::u16string Format;
};
}  // namespace

std::vector<std::u16string> FormatsLike(std::u16string_view text, const std::u16string& letters) {
    std::vector<std::u16string> formats;
    for (const std::optional<DateOrder> order :
         {std::optional<DateOrder>(), std::optional(DateOrder::YearFirst), std::optional(DateOrder::DayFirst),
          std::optional(DateOrder::MonthFirst)}) {
        if (std::optional<std::u16string> format = ShapeReader(TrimWhiteSpace(text), order, letters).Read())
            formats.push_back(*std::move(format));
    }
    return formats;
}
}  // namespace kelvarin::plan
