#include "host/plan/LineMap.h"

#include <algorithm>

namespace kelvarin::plan {
void LineMap::Add(std::uint64_t sourceLine) {
    ++Lines;
    if (!Ranges.empty()) {
        Range& last = Ranges.back();
        const auto step = static_cast<std::int64_t>(sourceLine - Last);
        const bool isSecond = Lines == last.First + 1;
        if (isSecond) last.Step = step;
        Last = sourceLine;
        if (step == last.Step) return;
    }
    Last = sourceLine;
    Ranges.push_back({Lines, sourceLine, 0});
}

std::uint64_t LineMap::SourceLine(std::uint64_t copyLine) const {
    if (copyLine == 0 || copyLine > Lines) return 0;
    const auto next =
        std::upper_bound(Ranges.begin(), Ranges.end(), copyLine,
                         [](std::uint64_t line, const Range& range) { return line < range.First; });
    const Range& range = next[-1];
    return range.Source + (copyLine - range.First) * static_cast<std::uint64_t>(range.Step);
}
}  // namespace kelvarin::plan
