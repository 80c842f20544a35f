#include "host/plan/CopyTime.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cstring>

#include "host/plan/Durations.h"

namespace kelvarin::plan {
namespace {
// Writes a number with leading zeros.
template <int Count>
char* PutDigits(std::uint32_t number, char* out) {
    for (int at = Count; at > 0; number /= 10) out[--at] = static_cast<char>('0' + number % 10);
    return out + Count;
}

constexpr std::size_t MostText = 32;  // of a clock or of seconds

constexpr std::size_t FractionDigits = 9;  // of a second

// "00" to "99".
constexpr auto TwoDigits = [] {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

char* PutPair(std::uint32_t number, char* out) {
    std::memcpy(out, TwoDigits.data() + std::size_t{2} * number, 2);
    return out + 2;
}

char* PutFractionDigits(std::int64_t nanoseconds, char* out) {
    const auto number = static_cast<std::uint32_t>(nanoseconds);
    const std::uint32_t four = number / 100'000;
    const std::uint32_t five = number % 100'000;
    out = PutPair(four / 100, out);
    out = PutPair(four % 100, out);
    out = PutPair(five / 1000, out);
    out = PutPair(five / 10 % 100, out);
    *out = static_cast<char>('0' + five % 10);
    return out + 1;
}

char* PutFraction(std::int64_t nanoseconds, char* out) {
    *out = '.';
    return PutFractionDigits(nanoseconds, out + 1);
}

void AppendSeconds(std::int64_t time, std::string& out) {
    char text[MostText];
    char* end = text;
    if (time < 0) *end++ = '-';
    // Each part keeps the sign, so that the least number needs no other one's place.
    const std::int64_t whole = time / Second;
    const std::int64_t rest = time % Second;
    end = std::to_chars(end, text + MostText, whole < 0 ? -whole : whole).ptr;
    end = PutFraction(rest < 0 ? -rest : rest, end);
    out.append(text, end);
}

std::string DateOf(std::int64_t day) {
    const std::chrono::year_month_day date{std::chrono::sys_days{std::chrono::days{day}}};
    char text[MostText];
    char* end = PutDigits<4>(static_cast<std::uint32_t>(static_cast<int>(date.year())), text);
    *end++ = '-';
    end = PutDigits<2>(static_cast<unsigned>(date.month()), end);
    *end++ = '-';
    end = PutDigits<2>(static_cast<unsigned>(date.day()), end);
    *end++ = ' ';
    return {text, end};
}
}  // namespace

CopyTimes CopyTimesOf(const TimeRecipe& recipe) {
    if (!recipe.IsAbsolute) return CopyTimes::Elapsed;
    return recipe.IsUtc || recipe.AppliesZone ? CopyTimes::Moments : CopyTimes::Local;
}

void TimeWriter::Append(std::int64_t time, std::string& out) {
    if (Begin && time >= *Begin && time - *Begin < Second) {
        PutFractionDigits(time - *Begin, Text.data() + Text.size() - FractionDigits);
    } else {
        BeginSecond(time);
    }
    out += Text;
}

void TimeWriter::BeginSecond(std::int64_t time) {
    Text.clear();
    if (Times == CopyTimes::Local) {
        AppendLocal(time, Text);
    } else {
        AppendSeconds(time, Text);
    }
    Begin.reset();
    if (time >= 0) Begin = time - time % Second;
}

void TimeWriter::AppendLocal(std::int64_t time, std::string& out) {
    std::int64_t day = time / DayLength;
    std::int64_t clock = time % DayLength;
    if (clock < 0) {
        clock += DayLength;
        --day;
    }
    if (Date.empty() || day != Day) Date = DateOf(day);
    Day = day;
    const auto seconds = static_cast<std::uint32_t>(clock / Second);
    char text[MostText];
    char* end = PutDigits<2>(seconds / 3600, text);
    *end++ = ':';
    end = PutDigits<2>(seconds / 60 % 60, end);
    *end++ = ':';
    end = PutDigits<2>(seconds % 60, end);
    end = PutFraction(clock % Second, end);
    out += Date;
    out.append(text, end);
}
}  // namespace kelvarin::plan
