// A text of a time taken apart: its digits, and what its words say.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin::plan {
// A run of digits, and what is between it and the run before: marks without blanks, "" for blanks alone.
struct DigitGroup {
    std::u16string_view Digits;
    std::u16string Before;
    bool AfterBlank = false;  // or after a letter T, or a word

    std::int64_t Number() const {
        std::int64_t number = 0;
        for (const char16_t c : Digits) number = 10 * number + (c - u'0');
        return number;
    }
    std::size_t Length() const { return Digits.size(); }
};

enum class DayHalf { Unnamed, Morning, Afternoon };

// "AM", "pm", "오후"; Unnamed for any other word.
DayHalf HalfOfName(std::u16string_view word);

struct TimeGroups {
    std::vector<DigitGroup> Groups;  // those that no word or zone has taken; views into the text
    int Month = 0;                   // that a word names; 0 for none
    char16_t Period = u'\0';  // W of "2024-W10", M of "1992M01", Q of "2024Q1", between the first two groups
    DayHalf Half = DayHalf::Unnamed;
    std::optional<int> ZoneMinutes;  // east of UTC
    bool IsSpan = false;             // amounts with units of time, as in "3d 18:47:23"
    std::int64_t Span = 0;           // their sum in ns
};

// White space and enclosing brackets or quotes are left aside. Nothing for a text that is no time: with other
// words or marks than times are written with, or with too many numbers.
std::optional<TimeGroups> CutTimeText(std::u16string_view text);
}  // namespace kelvarin::plan
