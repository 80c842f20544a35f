// How the times of a copy are written.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "host/plan/TimeRecipe.h"

namespace kelvarin::plan {
enum class CopyTimes {
    Local,    // "2024-01-31 12:00:00.000000000", as written in the file
    Moments,  // seconds since 1970 in UTC with nine decimals
    Elapsed,  // seconds with nine decimals, none negative
};

CopyTimes CopyTimesOf(const TimeRecipe& recipe);

// Writes times one after the other; neighbours of one second are the fastest, then those of one day.
class TimeWriter {
  public:
    explicit TimeWriter(CopyTimes times) : Times(times) {}

    // Appends a time in ns, since 1970 or elapsed.
    void Append(std::int64_t time, std::string& out);

  private:
    void BeginSecond(std::int64_t time);
    void AppendLocal(std::int64_t time, std::string& out);

    const CopyTimes Times;
    std::int64_t Day = 0;
    std::string Date;                   // of Day, with a blank after it; empty at first
    std::string Text;                   // of the last time
    std::optional<std::int64_t> Begin;  // of the second of Text; none before 1970
};
}  // namespace kelvarin::plan
