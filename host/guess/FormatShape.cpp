// A text of a time is, from left to right:
//
//   text = { literal } [ date { literal } ] [ time [ zone ] ] { literal } [ the same once more ]
//   date = three numbers between two equal marks, or 6 or 8 digits, or 12 or 14 with the time
//   time = numbers between colons or points, or 4 or 6 digits; then a mark and digits for a fraction
//   zone = "Z", or a sign and two or four digits with or without a colon
//
// Only the look and the ranges of the numbers are judged here: whether a format holds is tried on many rows.
#include "host/guess/GuessParts.h"

#include <algorithm>
#include <array>

#include "platform/framework/Text.h"

namespace kelvarin::guess {
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
    ShapeReader(std::u16string_view text, DateOrder order, const std::u16string& letters)
        : Text(text), Order(order), Letters(letters) {
        Shape.Order = order;
    }

    // The shape, or nothing if the text has another one.
    std::optional<FormatShape> Read() {
        while (At < Text.size()) {
            if (!IsDigit(Text[At])) {
                if (!(Shape.HasTime && ReadZone())) AddLiteral();
            } else if (!ReadDateInPlace() && !ReadTimeInPlace()) {
                return std::nullopt;
            }
        }
        return Shape.HasTime || HasDate ? std::optional(Shape) : std::nullopt;
    }

  private:
    // A date, where one may be: first, and once more after the first time.
    bool ReadDateInPlace() {
        const std::size_t formatLength = Shape.Format.size();
        if (Order == DateOrder::NoDate || (HasDate && !Shape.HasTime)) return false;
        if (!Shape.RangeMark.empty() || !ReadDate()) return false;
        if (HasDate) {
            // What was read before is the first of two times.
            Shape.RangeMark = LiteralsAfterTime;
            Shape.FormatUpToMark = Shape.Format.substr(0, formatLength - LiteralsAfterTime.size());
            Shape.HasTime = false;
        }
        HasDate = true;
        return true;
    }

    bool ReadTimeInPlace() {
        if (Shape.HasTime || (Order != DateOrder::NoDate && !HasDate)) return false;
        Shape.HasTime = ReadTime();
        return Shape.HasTime;
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
        Shape.Format.append(width, Letters[letter]);
        At += digits;
    }

    // Any character as itself; white space as one blank.
    void AddLiteral() {
        char16_t c = Text[At++];
        if (IsWhiteSpace(c)) {
            while (At < Text.size() && IsWhiteSpace(Text[At])) ++At;
            c = u' ';
        }
        const bool isField = Letters.find(c) != std::u16string::npos || c == u'[';
        if (Shape.HasTime && (c == u'M' || c == u'm') && At >= 2) {
            Shape.IsTwelveHours |= std::u16string_view(u"APap").find(Text[At - 2]) != std::u16string::npos;
        }
        if (isField) Shape.Blocked = c;
        Shape.Format += isField ? u' ' : c;
        LiteralsAfterTime = Shape.HasTime ? LiteralsAfterTime + c : std::u16string();
    }

    bool ReadDate() {
        const std::size_t digits = DigitsAt(At);
        if (digits == 6 || digits == 8 || digits == 12 || digits == 14) return ReadCompactDate(digits);
        const std::size_t begin = At;
        char16_t mark = u'\0';
        for (const Letter letter : LettersOf(Order)) {
            if (At != begin) {
                const char16_t c = At < Text.size() ? Text[At++] : u'\0';
                if ((c != u'.' && c != u'/' && c != u'-') || (mark != u'\0' && c != mark)) return false;
                mark = c;
                Shape.Format += c;
            }
            const std::size_t length = DigitsAt(At);
            if (length == 0 || length > 4 || !IsInRange(letter, At, length)) return false;
            AddField(letter, letter == Year ? 4 : 2, length);
        }
        // Nobody writes the month first with points.
        return mark != u'.' || Order != DateOrder::MonthFirst;
    }

    // Without marks each number has its full length.
    bool ReadCompactDate(std::size_t digits) {
        if (Order == DateOrder::MonthFirst) return false;
        for (const Letter letter : LettersOf(Order)) {
            const std::size_t length = letter == Year && digits != 6 ? 4 : 2;
            if (!IsInRange(letter, At, length)) return false;
            AddField(letter, length, length);
        }
        Shape.IsDigitsOnly = digits == 6 && Text.size() == 6;
        if (digits < 12) return true;
        if (!ReadCompactTime(digits - 8)) return false;
        Shape.HasTime = true;
        return true;
    }

    bool ReadTime() {
        const std::size_t digits = DigitsAt(At);
        const char16_t mark = At + digits < Text.size() ? Text[At + digits] : u'\0';
        const bool marked = (mark == u':' || (mark == u'.' && digits <= 2)) && DigitsAt(At + digits + 1) == 2;
        if (marked) return ReadMarkedTime(digits, mark);
        if (digits != 4 && digits != 6) return false;
        Shape.IsDigitsOnly |= At == 0 && At + digits == Text.size();
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
            Shape.Format += u"[h]";
            At += digits;
        } else {
            AddField(Hours, 2, digits);
        }
        Shape.Format += Text[At++];
        AddField(!hasSeconds && hasFraction ? Seconds : Minutes, 2, 2);
        if (hasSeconds) {
            if (!IsInRange(Seconds, At + 1, 2)) return false;
            Shape.Format += Text[At++];
            AddField(Seconds, 2, 2);
        }
        return !(hasSeconds || hasFraction) || ReadFraction();
    }

    // A mark and digits after the seconds, if there are any.
    bool ReadFraction() {
        const bool marked = IsAt(At, u'.') || IsAt(At, u',') || IsAt(At, u':');
        if (!marked || DigitsAt(At + 1) == 0) return true;
        Shape.Format += Text[At++];
        Shape.Format += u"000";
        At += DigitsAt(At);
        HasFraction = true;
        return true;
    }

    // "0" would add the zone's digits as a fraction of a second; "[ns]" makes nanoseconds of them, but takes
    // the place of a fraction read before.
    bool ReadZone() {
        if (Text[At] == u'Z' && At + 1 == Text.size()) {
            Shape.Zone = u"Z";
            AddLiteral();
            return true;
        }
        const std::size_t hours = DigitsAt(At + 1);
        if (!(IsAt(At, u'+') || IsAt(At, u'-')) || (hours != 2 && hours != 4)) return false;
        const bool hasMinutes = hours == 2 && IsAt(At + 3, u':') && DigitsAt(At + 4) == 2;
        const std::size_t length = 1 + hours + (hasMinutes ? 3 : 0);
        if (At + length != Text.size()) return false;
        Shape.Zone = Text.substr(At, length);
        const bool isZero = Shape.Zone.find_first_not_of(u"+-0:") == std::u16string::npos;
        Shape.Format += Text[At];
        Shape.Format += isZero || HasFraction ? u"0" : u"[ns]";
        if (hasMinutes) Shape.Format += u":0";
        Shape.ZoneShiftsFraction = !isZero && HasFraction;
        At += length;
        return true;
    }

    const std::u16string_view Text;
    const DateOrder Order;
    const std::u16string& Letters;
    std::size_t At = 0;
    bool HasDate = false;
    bool HasFraction = false;
    std::u16string LiteralsAfterTime;
    FormatShape Shape;
};
}  // namespace

std::vector<FormatShape> ShapesOf(std::u16string_view text, const std::u16string& letters) {
    std::vector<FormatShape> shapes;
    for (const DateOrder order :
         {DateOrder::NoDate, DateOrder::YearFirst, DateOrder::DayFirst, DateOrder::MonthFirst}) {
        std::optional<FormatShape> shape = ShapeReader(TrimWhiteSpace(text), order, letters).Read();
        if (shape) shapes.push_back(std::move(*shape));
    }
    return shapes;
}
}  // namespace kelvarin::guess
