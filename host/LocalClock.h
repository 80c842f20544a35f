// What clocks of the process's time zone show, for many moments at once.
#pragma once

#include <cstdint>
#include <span>

namespace kelvarin {
// Both replace moments, in nanoseconds since 1970-01-01 00:00 UTC, by a local date and time, counted in
// nanoseconds as if that were UTC. Moments whose local time has no room in 64 bits wrap. Fast where
// neighbours lie close together.

// The date and time that clocks show at these moments.
void ToLocalClock(std::span<std::int64_t> moments);

// The date and time in a file whose rows have both: a run adds the time of day to the midnight of the date,
// which on a day when the clocks change leads to another time than clocks show. The day that is an hour
// shorter then overlaps the next one; rows that follow one another belong to the same day.
void ToClockOfFile(std::span<std::int64_t> moments);
}  // namespace kelvarin
