// What the lines above a table say of its times.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "host/plan/TableSearch.h"

namespace kelvarin::plan {
struct PreambleClues {
    std::optional<std::int64_t> Start;     // ns since 1970 as written: when the measurement began
    std::optional<std::int64_t> Interval;  // ns from row to row, of an interval or a sampling rate
    std::optional<int> Year;               // that a line names on its own
    std::optional<std::int64_t> TimeUnit;  // ns, of a line such as "Time Offset (ms)"
    bool HasTwelveHours = false;           // a date between strokes has AM or PM
    std::u16string Missing;                // the text that a line declares for missing values: "-9999"
};

PreambleClues ReadPreamble(const FileSample& sample, const FoundTable& table);
}  // namespace kelvarin::plan
