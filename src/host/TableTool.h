// What a module offers to a host that works out how the times of a file are written: samples of the table,
// and the reading of times by any format.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// One line of a source file, cut as the import cuts it.
struct SampledRow {
    std::uint64_t Line = 0;             // of the file, from 1; 0 for a row behind the part that was counted
    std::vector<std::u16string> Cells;  // the first 256, each cut behind 64 characters
};

// A table seen in part: thousands of rows at most, however long the file is.
struct TableSample {
    std::vector<std::u16string> Names;  // of the columns
    std::u16string Separator;           // empty if there is none
    std::vector<SampledRow> Above;      // the last lines above the data, the header among them
    std::vector<SampledRow> Rows;       // data, in the order of the file
    bool IsWhole = false;               // every row is among them; else the first ones and some of the rest
};

class ITableTool {
  public:
    virtual ~ITableTool() = default;

    // Samples a source file under the settings that an import of it would have; with a sidecar path under
    // those of that sidecar instead of its own. False, with the reason, if there is no table or a file can't
    // be read.
    virtual bool SampleTable(const char16_t* sourcePath, const char16_t* sidecarPath, TableSample& sample,
                             std::string& reason) = 0;

    // Reads each text by the format: nanoseconds, since 1970 with `hasDate`, or -1 for a text that doesn't
    // fit.
    virtual std::vector<std::int64_t> ReadTimes(const std::u16string& format,
                                                const std::vector<std::u16string>& texts, bool hasDate) = 0;

    // The six letters of a format: year, month, day, hours, minutes, seconds.
    virtual std::u16string FormatLetters() = 0;
};
