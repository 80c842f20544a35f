#include "view/model/TimeTicks.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "host/plan/Durations.h"

namespace kelvarin::view {
namespace {
using plan::DayLength;
using plan::Hour;
using plan::Minute;
using plan::Second;

// The distance of marks: of nanoseconds, or of months.
struct Step {
    std::int64_t Size = 0;
    int Months = 0;  // 0: Size counts
    int Parts = 5;   // between two marks
};

constexpr std::array LongSteps = {
    Step{1 * Second},        Step{2 * Second, 0, 4},    Step{5 * Second},          Step{10 * Second},
    Step{15 * Second, 0, 3}, Step{30 * Second, 0, 3},   Step{1 * Minute, 0, 4},    Step{2 * Minute, 0, 4},
    Step{5 * Minute},        Step{10 * Minute},         Step{15 * Minute, 0, 3},   Step{30 * Minute, 0, 3},
    Step{1 * Hour, 0, 4},    Step{2 * Hour, 0, 4},      Step{3 * Hour, 0, 3},      Step{6 * Hour, 0, 6},
    Step{12 * Hour, 0, 4},   Step{1 * DayLength, 0, 4}, Step{2 * DayLength, 0, 2}, Step{7 * DayLength, 0, 7}};
constexpr std::array CalendarSteps = {Step{31 * DayLength, 1, 1},    Step{92 * DayLength, 3, 3},
                                      Step{184 * DayLength, 6, 6},   Step{366 * DayLength, 12, 4},
                                      Step{732 * DayLength, 24, 2},  Step{1830 * DayLength, 60, 5},
                                      Step{3660 * DayLength, 120, 2}};

// The least step that is not shorter than this.
Step StepFor(double shortest, bool hasCalendar) {
    for (std::int64_t size = 1; size < Second; size *= 10) {
        for (const std::int64_t factor : {1, 2, 5}) {
            const std::int64_t step = size * factor;
            if (static_cast<double>(step) >= shortest) return {step, 0, factor == 2 ? 4 : 5};
        }
    }
    for (const Step& step : LongSteps) {
        if (static_cast<double>(step.Size) >= shortest) return step;
    }
    if (hasCalendar) {
        for (const Step& step : CalendarSteps) {
            if (static_cast<double>(step.Size) >= shortest) return step;
        }
        return CalendarSteps.back();
    }
    for (std::int64_t size = 10 * DayLength;; size *= 10) {
        for (const std::int64_t factor : {1, 2, 5}) {
            const std::int64_t step = size * factor;
            if (static_cast<double>(step) >= shortest || step > INT64_MAX / 10) return {step};
        }
    }
}

std::int64_t CeilTo(std::int64_t value, std::int64_t step) {
    const std::int64_t rest = value % step;
    return rest == 0 ? value : value - rest + (rest > 0 ? step : 0);
}

// The clock's offset is looked up anew at each mark, so that marks stay on round times after a change of the
// clocks.
std::int64_t MomentAt(const Clock& clock, std::int64_t shown, std::int64_t offset) {
    return shown - OffsetOf(clock, shown - offset);
}

std::vector<std::int64_t> EvenMarks(const Clock& clock, const TimeRange& range, std::int64_t step) {
    std::vector<std::int64_t> marks;
    const std::int64_t offset = OffsetOf(clock, range.From);
    // A week begins on a Monday; 1970 began on a Thursday.
    const std::int64_t shift =
        step == 7 * DayLength && clock.Style != ClockStyle::Relative ? 4 * DayLength : 0;
    // The clocks may be set within the range.
    const std::int64_t early = step >= Minute ? Hour : 0;
    for (std::int64_t shown = CeilTo(range.From + offset - shift - early, step) + shift;; shown += step) {
        const std::int64_t at = MomentAt(clock, shown, offset);
        if (at > range.To) break;
        if (at >= range.From && (marks.empty() || at > marks.back())) marks.push_back(at);
    }
    return marks;
}

std::vector<std::int64_t> CalendarMarks(const Clock& clock, const TimeRange& range, int months) {
    using std::chrono::sys_days;
    std::vector<std::int64_t> marks;
    const std::int64_t offset = OffsetOf(clock, range.From);
    const std::chrono::year_month_day first(sys_days(std::chrono::days((range.From + offset) / DayLength)));
    auto month = first.year() / std::chrono::month(1);
    if (months > 12) month -= std::chrono::years(static_cast<int>(first.year()) % (months / 12));
    for (;; month += std::chrono::months(months)) {
        const auto days = sys_days(month / std::chrono::day(1)).time_since_epoch().count();
        const std::int64_t at = MomentAt(clock, days * DayLength, offset);
        if (at > range.To) return marks;
        if (at >= range.From) marks.push_back(at);
    }
}

std::vector<std::int64_t> Parted(const std::vector<std::int64_t>& marks, int parts, const TimeRange& range) {
    std::vector<std::int64_t> between;
    if (marks.size() < 2) return between;
    const std::int64_t before = marks[0] - (marks[1] - marks[0]);
    const std::int64_t after = marks.back() + (marks.back() - marks[marks.size() - 2]);
    std::int64_t last = before;
    std::vector<std::int64_t> ends = marks;
    ends.push_back(after);
    for (const std::int64_t end : ends) {
        for (int part = 1; part < parts; ++part) {
            const std::int64_t at = last + (end - last) / parts * part;
            if (at > last && at >= range.From && at <= range.To) between.push_back(at);
        }
        last = end;
    }
    return between;
}

int DigitsOf(std::int64_t step) {
    int digits = 0;
    for (std::int64_t unit = Second; step % unit != 0; unit /= 10) ++digits;
    return digits;
}

// Marks closer than a millisecond are counted from a full thousandth, whose text the axis has.
void LabelFine(const Clock& clock, const TimeRange& range, std::int64_t step, TimeTicks& ticks) {
    std::int64_t unit = step < 1000 ? 1'000'000 : Second / 100;
    if (step < 10) unit = 1'000;
    const std::int64_t base = range.From - ((range.From % unit) + unit) % unit;
    ticks.Base = MomentText(clock, base, DigitsOf(unit));
    for (TimeTick& mark : ticks.Marks) mark.Label = DurationText(mark.At - base);
}

void Label(const Clock& clock, const Step& step, TimeTicks& ticks) {
    std::string lastDate;
    const bool hasTimes = step.Months == 0 && step.Size < DayLength;
    for (TimeTick& mark : ticks.Marks) {
        const MomentParts parts = PartsOf(clock, mark.At, DigitsOf(step.Size));
        std::string time = parts.Time;
        if (step.Months == 0 && step.Size % Minute == 0 && parts.Date.empty() == false) time.resize(5);
        const std::string date = step.Months % 12 == 0 && step.Months != 0 ? parts.Date.substr(0, 4)
                                 : step.Months != 0                        ? parts.Date.substr(0, 7)
                                                                           : parts.Date;
        if (parts.Date.empty() || hasTimes) {
            mark.Label = time;
            if (date != lastDate) mark.Label += "\n" + date;
        } else {
            mark.Label = date;
        }
        lastDate = date;
    }
}
}  // namespace

TimeTicks TicksOf(const Clock& clock, const TimeRange& range, int most) {
    constexpr std::int64_t Fine = 1'000'000;
    const bool hasCalendar = clock.Style != ClockStyle::Relative;
    const Step step = StepFor(range.Length() / std::max(most - 1, 1), hasCalendar);
    const std::vector<std::int64_t> marks =
        step.Months == 0 ? EvenMarks(clock, range, step.Size) : CalendarMarks(clock, range, step.Months);
    TimeTicks ticks;
    for (const std::int64_t at : marks) ticks.Marks.push_back({at, {}});
    ticks.Between = Parted(marks, step.Parts, range);
    if (step.Months == 0 && step.Size < Fine) {
        LabelFine(clock, range, step.Size, ticks);
    } else {
        Label(clock, step, ticks);
    }
    return ticks;
}
}  // namespace kelvarin::view
