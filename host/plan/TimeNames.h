// What the texts above a column say of times in it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/plan/Labels.h"
#include "host/plan/TimeRecipe.h"

namespace kelvarin::plan {
// A word for time or date is among the texts.
bool IsNamedTime(const Label& label);
bool IsNamedDate(const Label& label);

// A word for hours or a clock: "hour", "HH", "tijdstip".
bool IsNamedClock(const Label& label);

// The part of a time that a name such as "year", "month" or "MM" stands for.
std::optional<TimePart> PartOfName(const Label& label);

// A word for a day of the year: "DOY", "DECDOY", "JDAY".
bool IsDayOfYear(const Label& label);

// True if a text spells minutes and seconds without hours: "Time [mm:ss]".
bool SpellsMinutesFirst(const Label& label);

// A word for the modified Julian date.
bool IsModifiedJulian(const Label& label);

// Nanoseconds of the unit of time that the label names; 0 for none. The s of m/s is none.
std::int64_t UnitNamed(const Label& label);

// What texts such as "MM/DD/YYYY" say about the order of day and month.
std::optional<DateOrder> OrderIn(const std::vector<std::u16string>& labels);
}  // namespace kelvarin::plan
