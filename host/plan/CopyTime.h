// How the times of a copy are written.
#pragma once

#include <cstdint>
#include <string>

#include "host/plan/TimeRecipe.h"

namespace kelvarin::plan {
enum class CopyTimes {
    Local,    // "2024-01-31 12:00:00.000000000", as written in the file
    Moments,  // seconds since 1970 in UTC with nine decimals
    Elapsed,  // seconds with nine decimals, none negative
};

CopyTimes CopyTimesOf(const TimeRecipe& recipe);

// Writes times one after the other; neighbours of one day are the fastest.
class TimeWriter {
  public:
    explicit TimeWriter(CopyTimes times) : Times(times) {}

    // Appends a time in ns, since 1970 or elapsed.
    void Append(std::int64_t time, std::string& out);

  private:
    void AppendLocal(std::int64_t time, std::string& out);

    const CopyTimes Times;
    std::int64_t Day = 0;
    std::string Date;  // of Day, with a blank after it; empty at first
};
}  // namespace kelvarin::plan
