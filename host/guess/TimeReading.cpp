#include "host/guess/TimeReading.h"

#include <algorithm>

#include "platform/framework/Numbers.h"

namespace kelvarin::guess {

namespace {

constexpr std::int64_t Unread = -1;
constexpr std::int64_t Hour = 3'600'000'000'000;
constexpr std::size_t MisfitsKept = 3;

void AddMisfit(TimeReading& reading, bool isNewRun, std::uint64_t line) {
    if (isNewRun) {
        ++reading.MisfitRuns;
        if (reading.Misfits.size() < MisfitsKept) reading.Misfits.push_back({line, line});
    } else if (reading.MisfitRuns == reading.Misfits.size()) {
        reading.Misfits.back().LastLine = line;
    }
}

}  // namespace

double TimeReading::RisingPart() const {
    return Times.empty() ? 0 : static_cast<double>(Rising) / static_cast<double>(Times.size());
}

TimeReading JudgeTimes(const std::vector<SampledRow>& rows, std::vector<std::int64_t> times) {
    TimeReading reading;
    std::vector<std::int64_t> steps;
    std::int64_t latest = 0, earliest = 0;
    bool misfit = false;
    for (std::size_t i = 0; i < times.size(); ++i) {
        const std::int64_t time = times[i];
        if (time == Unread) {
            AddMisfit(reading, !misfit, rows[i].Line);
            misfit = true;
            continue;
        }
        misfit = false;
        if (reading.Read++ == 0) {
            reading.First = latest = earliest = time;
            reading.Rising = reading.Falling = 1;
        } else {
            if (time == reading.Last) ++reading.Repeats;
            if (time > latest) {
                ++reading.Rising;
                steps.push_back(WrappingSubtract(time, latest));
                latest = time;
            } else if (time < earliest) {
                ++reading.Falling;
                earliest = time;
            }
            if (reading.Last >= 20 * Hour && reading.Last <= 24 * Hour && time >= 0 && time <= 4 * Hour)
                ++reading.RollOvers;
        }
        reading.Last = time;
    }
    if (!steps.empty()) {
        reading.LargestStep = *std::max_element(steps.begin(), steps.end());
        const auto middle = steps.begin() + static_cast<std::ptrdiff_t>(steps.size() / 2);
        std::nth_element(steps.begin(), middle, steps.end());
        reading.MedianStep = *middle;
    }
    reading.Times = std::move(times);
    return reading;
}

}  // namespace kelvarin::guess
