#include "host/guess/TableTrial.h"

#include <algorithm>

#include "platform/framework/Numbers.h"
#include "settings/IntervalUnits.h"

namespace kelvarin::guess {
namespace {
// So many rows tell whether a format is worth trying on all, at a hundredth of the cost.
constexpr std::size_t FirstRows = 32;

std::ptrdiff_t FirstRowsOf(const TextList& texts) {
    return static_cast<std::ptrdiff_t>(std::min(texts.size(), FirstRows));
}

// From the last four hours of a day to the first four of one: a logger that sleeps over midnight still rolls
// over, and a time of day that falls by a clock set back does not.
bool IsRollOver(std::int64_t before, std::int64_t time) {
    constexpr std::int64_t Hour = IntervalUnits[0].Nanoseconds;
    return before >= 20 * Hour && before <= 24 * Hour && time >= 0 && time <= 4 * Hour;
}
}  // namespace

TimeReading::TimeReading(const std::vector<SampledRow>& rows, std::vector<std::int64_t> times)
    : Times(std::move(times)) {
    constexpr std::size_t MisfitsKept = 3;
    std::vector<std::int64_t> steps;
    std::int64_t latest = 0, earliest = 0;
    for (std::size_t i = 0; i < Times.size(); ++i) {
        const std::int64_t time = Times[i];
        if (time == -1) {
            const bool isNewRun = i == 0 || Times[i - 1] != -1;
            MisfitRuns += isNewRun;
            if (isNewRun && MisfitRuns <= MisfitsKept) Misfits.push_back({rows[i].Line, rows[i].Line});
            if (MisfitRuns == Misfits.size()) Misfits.back().LastLine = rows[i].Line;
            continue;
        }
        if (Read++ == 0) {
            First = Last = latest = earliest = time;
            Rising = Falling = 1;
            continue;
        }
        Repeats += time == Last;
        RollOvers += IsRollOver(Last, time);
        if (time > latest) {
            ++Rising;
            steps.push_back(WrappingSubtract(time, latest));
            latest = time;
        } else if (time < earliest) {
            ++Falling;
            earliest = time;
        }
        Last = time;
    }
    if (steps.empty()) return;
    std::sort(steps.begin(), steps.end());
    LargestStep = steps.back();
    MedianStep = steps[steps.size() / 2];
}

double TimeReading::RisingPart() const {
    return Times.empty() ? 0 : static_cast<double>(Rising) / static_cast<double>(Times.size());
}

TextList TableTrial::Texts(std::size_t one, std::size_t other) const {
    const auto [left, right] = std::minmax(one, other);
    TextList texts;
    texts.reserve(Table.Rows.size());
    for (const SampledRow& row : Table.Rows) {
        std::u16string& text = texts.emplace_back();
        if (right >= row.Cells.size()) continue;
        text = row.Cells[left];
        if (left != right) text += Table.Separator + row.Cells[right];
    }
    return texts;
}

TextList TableTrial::Examples(const TextList& texts) const {
    const auto end = texts.begin() + FirstRowsOf(texts);
    const auto first = std::find_if(texts.begin(), end, [](const auto& text) { return !text.empty(); });
    if (first == end) return {};
    const auto longest = std::max_element(
        first, end, [](const auto& one, const auto& other) { return one.size() < other.size(); });
    return *longest == *first ? TextList{*first} : TextList{*first, *longest};
}

bool TableTrial::FitsFirstRows(const std::u16string& format, const TextList& texts, bool hasDate) const {
    const TextList first(texts.begin(), texts.begin() + FirstRowsOf(texts));
    const std::vector<std::int64_t> times = Reader.ReadTimes(format, first, hasDate);
    const auto misfits = static_cast<std::size_t>(std::count(times.begin(), times.end(), -1));
    return misfits * 2 <= first.size() && misfits != first.size();
}
}  // namespace kelvarin::guess
