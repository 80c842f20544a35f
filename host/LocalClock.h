// What clocks of the process's time zone show, for many moments at once.
#pragma once

#include <cstdint>
#include <span>

namespace kelvarin {
// Replaces moments, in nanoseconds since 1970-01-01 00:00 UTC, by the local date and time, counted in
// nanoseconds as if that were UTC. Moments whose local time has no room in 64 bits wrap. Fast where the
// moments of neighbours lie close together.
void ToLocalClock(std::span<std::int64_t> moments);
}  // namespace kelvarin
