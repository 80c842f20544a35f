// From local time back to the moment, in one way on all systems. Their own conversions settle a time that
// occurs twice differently, some of them by the time that was converted before.
#include "platform/framework/Locale.h"

namespace {

constexpr std::int64_t DaySeconds = 86'400;

// Days from 1970-01-01 to a date, by years that begin in March. Any numbers are taken, such as a user types.
std::int64_t DaysTo(std::int64_t year, std::int64_t month, std::int64_t day) {
    const std::int64_t y = year - (month <= 2 ? 1 : 0);
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const std::int64_t yearOfEra = y - era * 400;
    const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return era * 146'097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719'468;
}

// The moment of a local time if the zone were UTC.
std::int64_t MomentInUtc(const LocalTime& local) {
    return DaysTo(local.Year, local.Month, local.Day) * DaySeconds + std::int64_t{local.Hour} * 3'600 +
           std::int64_t{local.Minute} * 60 + local.Second;
}

// Seconds by which local time is ahead of UTC at a moment. False if the moment has no local time.
bool OffsetAt(std::int64_t seconds, std::int64_t& offset) {
    LocalTime local{};
    if (!ToLocalTime(seconds, local)) return false;
    offset = MomentInUtc(local) - seconds;
    return true;
}

}  // namespace

std::int64_t FromLocalTime(const LocalTime& local) {
    const std::int64_t inUtc = MomentInUtc(local);
    std::int64_t offset = 0;
    std::int64_t before = 0;
    std::int64_t after = 0;
    // Offsets are less than a day, so the moment is less than a day from `inUtc`, and in that time the clocks
    // change once at most. Set back, they show the time first by the offset before the change.
    if (!OffsetAt(inUtc - DaySeconds, before)) return -1;
    if (OffsetAt(inUtc - before, offset) && offset == before) return inUtc - before;
    if (!OffsetAt(inUtc + DaySeconds, after)) return -1;
    if (OffsetAt(inUtc - after, offset) && offset == after) return inUtc - after;
    return inUtc - before;
}
