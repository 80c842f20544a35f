// Reads the time of a single row, apart from the rows around it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "host/check/TimeSource.h"

namespace kelvarin::check {

// What the module makes of the time of a row that stands alone.
struct ProbedTime {
    bool Reads = false;                // its text fits the format
    std::optional<std::int64_t> Time;  // uncorrected; unknown if the row has no other cell than its time
};

// The module says of a dropped row only that it has no valid time: the same message for a text that fits no
// format and for a time that doesn't rise. So the row alone is imported, out of a temporary file that goes
// with the object.
class TimeProbe {
  public:
    TimeProbe(const ModuleLoader& module, TimeSource reading);
    TimeProbe(const TimeProbe&) = delete;
    TimeProbe& operator=(const TimeProbe&) = delete;
    ~TimeProbe();

    // By the settings in force, or with another format. None if the temporary file can't be written.
    std::optional<ProbedTime> Read(const std::u16string& line) { return Read(line, Reading.Format); }
    std::optional<ProbedTime> Read(const std::u16string& line, const std::u16string& format);

  private:
    ProbedTime Import(const std::u16string& format) const;

    const ModuleLoader& Module;
    const TimeSource Reading;
    const std::filesystem::path File;
};

}  // namespace kelvarin::check
