#include "host/LocalClock.h"

#include <chrono>

#include "platform/framework/Locale.h"
#include "platform/framework/Numbers.h"

namespace kelvarin {
namespace {
constexpr std::int64_t NanosecondsInSecond = 1'000'000'000;

// Clocks change at full quarters of an hour, in UTC, wherever they are set by daylight saving time.
constexpr std::int64_t Quarter = 900 * NanosecondsInSecond;

std::int64_t FloorDivide(std::int64_t number, std::int64_t by) {
    return number / by - (number % by < 0 ? 1 : 0);
}

// By how many nanoseconds the local clock is ahead of UTC; 0 if that can't be told.
std::int64_t OffsetAt(std::int64_t moment) {
    const std::int64_t seconds = FloorDivide(moment, NanosecondsInSecond);
    LocalTime local{};
    if (!ToLocalTime(seconds, local)) return 0;
    using namespace std::chrono;
    const sys_days day{year(local.Year) / month(static_cast<unsigned>(local.Month)) /
                       std::chrono::day(static_cast<unsigned>(local.Day))};
    const auto shown = day.time_since_epoch() + hours(local.Hour) + minutes(local.Minute) +
                       std::chrono::seconds(local.Second);
    return (std::chrono::seconds(shown).count() - seconds) * NanosecondsInSecond;
}
}  // namespace

void ToLocalClock(std::span<std::int64_t> moments) {
    std::int64_t quarter = 0;
    std::int64_t offset = OffsetAt(0);
    for (std::int64_t& moment : moments) {
        const std::int64_t own = FloorDivide(moment, Quarter);
        if (own != quarter) {
            // Within a quarter of an hour the offset is the same, except in some zones of the past.
            offset = OffsetAt(moment);
            quarter = own;
        }
        moment = WrappingAdd(moment, offset);
    }
}
}  // namespace kelvarin
