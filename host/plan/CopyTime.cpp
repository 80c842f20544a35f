#include "host/plan/CopyTime.h"

#include <chrono>

#include "host/plan/Durations.h"

namespace kelvarin::plan {
namespace {
void AppendDigits(std::int64_t number, int count, std::string& out) {
    const std::size_t begin = out.size();
    out.resize(begin + static_cast<std::size_t>(count));
    for (std::size_t at = out.size(); at > begin; number /= 10)
        out[--at] = static_cast<char>('0' + number % 10);
}

void AppendSeconds(std::int64_t time, std::string& out) {
    if (time < 0) out += '-';
    // Each part keeps the sign, so that the least number needs no other one's place.
    const std::int64_t whole = time / Second;
    const std::int64_t rest = time % Second;
    out += std::to_string(whole < 0 ? -whole : whole);
    out += '.';
    AppendDigits(rest < 0 ? -rest : rest, 9, out);
}

std::string DateOf(std::int64_t day) {
    const std::chrono::year_month_day date{std::chrono::sys_days{std::chrono::days{day}}};
    std::string text;
    AppendDigits(static_cast<int>(date.year()), 4, text);
    text += '-';
    AppendDigits(static_cast<unsigned>(date.month()), 2, text);
    text += '-';
    AppendDigits(static_cast<unsigned>(date.day()), 2, text);
    text += ' ';
    return text;
}
}  // namespace

CopyTimes CopyTimesOf(const TimeRecipe& recipe) {
    if (!recipe.IsAbsolute) return CopyTimes::Elapsed;
    return recipe.IsUtc || recipe.AppliesZone ? CopyTimes::Moments : CopyTimes::Local;
}

void TimeWriter::Append(std::int64_t time, std::string& out) {
    if (Times == CopyTimes::Local) {
        AppendLocal(time, out);
    } else {
        AppendSeconds(time, out);
    }
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
    out += Date;
    const std::int64_t seconds = clock / Second;
    AppendDigits(seconds / 3600, 2, out);
    out += ':';
    AppendDigits(seconds / 60 % 60, 2, out);
    out += ':';
    AppendDigits(seconds % 60, 2, out);
    out += '.';
    AppendDigits(clock % Second, 9, out);
}
}  // namespace kelvarin::plan
