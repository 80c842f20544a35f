// The formats that a text may be read by, found from the look of the text alone.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvarin::guess {

// What the numbers of a date are, from left to right.
enum class DateOrder { NoDate, YearFirst, DayFirst, MonthFirst };

// One way to read a text.
struct FormatShape {
    std::u16string Format;
    DateOrder Order = DateOrder::NoDate;
    bool HasTime = false;
    bool IsDigitsOnly = false;      // a number might as well look so
    bool IsTwelveHours = false;     // a clock of twelve hours, which no format can read
    char16_t Blocked = u'\0';       // a letter of the text that a format takes for a field; a blank in Format
    std::u16string RangeMark;       // between the two times of a text that holds two; else empty
    std::u16string FormatUpToMark;  // of the first of two times
    std::u16string Zone;            // as it is written after the time; a format can only step over it
    bool ZoneShiftsFraction = false;  // stepping over it adds up to a quarter of a second
};

// Every way to read the text as a date, a time of day or both. `letters` are the six of a format.
std::vector<FormatShape> ShapesOf(std::u16string_view text, const std::u16string& letters);

}  // namespace kelvarin::guess
