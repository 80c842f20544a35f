// The words that times are written with: months, days of the week, halves of the day, zones, units.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace kelvarin::plan {
// 1 to 12 for the name of a month or its usual abbreviation, in the languages of Europe that are written in
// Latin letters, without regard to case; else 0.
int MonthOfName(std::u16string_view word);

// True for the name of a day of the week or its usual abbreviation.
bool IsDayOfWeek(std::u16string_view word);

// Minutes east of UTC for the abbreviation of a zone ("UTC", "CET", "EST").
std::optional<int> ZoneOfName(std::u16string_view word);

// Nanoseconds of a unit of time by its abbreviation or name ("d", "h", "min", "s", "ms", "µs", "us", "ns",
// "hours", "Sekunden"); 0 for any other word. "m" is minutes.
std::int64_t UnitOfTime(std::u16string_view word);
}  // namespace kelvarin::plan
