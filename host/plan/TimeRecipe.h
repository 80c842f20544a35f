// How the time of a row comes out of its cells.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/plan/MinuteMemo.h"
#include "host/plan/TimeText.h"

namespace kelvarin::plan {
enum class TimeKind {
    Text,      // one column, or a date and a clock in two, as people write them
    Parts,     // year, month, day, hours and so on in columns of their own
    Number,    // a number that counts a unit of time
    Interval,  // no column: the number of the row times a unit
};

// What a column of a Parts recipe holds.
enum class TimePart {
    Year,
    Month,
    Day,
    DayOfYear,
    Hours,
    Minutes,
    Seconds,
    HoursMinutes,
    HoursMinutesSeconds,  // "103045.30"
    Quarters,             // of an hour, from 1 on
    Date,
    Milliseconds,
    Clock,
    Week
};

struct PartColumn {
    std::size_t Column = 0;  // from 0
    TimePart Part = TimePart::Year;
    bool operator==(const PartColumn&) const = default;
};

struct TimeRecipe {
    TimeKind Kind = TimeKind::Text;
    std::vector<std::size_t> Columns;  // from 0, of Text and Number: the date's before the clock's
    std::vector<PartColumn> Parts;
    TimeStyle Style;
    std::int64_t Unit = 1'000'000'000;  // of Number, in ns
    std::int64_t Epoch = 0;  // of Number and Interval: ns since 1970 of its zero, if it is absolute
    std::int64_t Offset =
        0;                 // of Number: what its zero is called, in units; days of a calendar have large ones
    char16_t Mark = u'.';  // of Number: decimal mark
    bool IsAbsolute = false;   // times since 1970 in local time or in the zone they name; else elapsed
    bool IsUtc = false;        // numbers that count since 1970
    bool AppliesZone = false;  // of Text: each names its zone, and the times are in UTC
    bool RollsOver = false;    // a clock without a date that runs over midnight, or dates without a year
    bool EndsDays = false;     // midnight, 00:00, is written with the day that it ends
    bool CarriesDate = false;  // of a date and a clock: an empty date is that of the row before

    // Of Text, a clock: lines of their own hold the dates. Epoch is the date above the first row.
    bool HasDateLines = false;

    // Dates without a year and without one above are times since the start of some year.
    bool HasUnknownYear() const { return !IsAbsolute && Style.Year != 0; }

    // The time of a row in ns: since 1970 as written if absolute, else since the start; nothing for a row
    // whose cells hold no time.
    std::optional<std::int64_t> TimeOf(const std::vector<std::u16string_view>& cells) const;

    bool operator==(const TimeRecipe&) const = default;
};

// The times of the rows of a table, one after the other.
class TimeWalk {
  public:
    explicit TimeWalk(const TimeRecipe& recipe) : Recipe(recipe), Day(recipe.Epoch) {}

    // The time of the next row, with days added where a clock runs over midnight, and intervals counted;
    // nothing for a line that is no row: without a time, or with nothing else. Columns that end earlier leave
    // shorter rows. `width` is that of the table.
    std::optional<std::int64_t> Next(const std::vector<std::u16string_view>& cells, std::size_t width);

    // The date of the rows from here on; any other text changes nothing.
    void TakeDate(std::u16string_view text);

  private:
    std::optional<std::int64_t> TimeOf(const std::vector<std::u16string_view>& cells);
    std::int64_t RollLength() const;

    const TimeRecipe& Recipe;
    std::u16string Date;                     // the last one, where it is carried
    std::vector<std::u16string_view> Dated;  // cells with it
    MinuteMemo Memo;
    std::int64_t Day;  // of the last line with a date
    std::int64_t Before = 0;
    std::int64_t Days = 0;  // added so far, in ns
    std::int64_t Row = 0;
    bool IsFirst = true;
};
}  // namespace kelvarin::plan
