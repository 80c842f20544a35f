// What becomes of the rows of a table when their times are read by one format.
#pragma once

#include <cstdint>
#include <vector>

#include "contract/TableReader.h"

namespace kelvarin::guess {

// A run of rows that a format doesn't fit. Lines count from 1; 0 is a line far down in a long file.
struct MisfitRows {
    std::uint64_t FirstLine;
    std::uint64_t LastLine;
};

struct TimeReading {
    std::vector<std::int64_t> Times;               // of each row; -1 where the format doesn't fit
    std::size_t Read = 0;                          // rows that the format fits
    std::size_t Rising = 0;                        // rows later than all before, which an import takes
    std::size_t Repeats = 0;                       // rows at the time of the row before
    std::size_t Falling = 0;                       // rows earlier than all before, the first among them
    std::size_t RollOvers = 0;                     // falls from late in a day to early in one
    std::int64_t First = 0, Last = 0;              // in nanoseconds
    std::int64_t MedianStep = 0, LargestStep = 0;  // from one rising row to the next
    std::vector<MisfitRows> Misfits;               // the first few
    std::size_t MisfitRuns = 0;                    // all of them

    // The part of all rows that an import would take.
    double RisingPart() const;

    // True if most rows come before all above them.
    bool IsDescending() const { return Falling > Rising && Falling * 2 > Read; }
};

// Judges the times of the rows; one time per row.
TimeReading JudgeTimes(const std::vector<SampledRow>& rows, std::vector<std::int64_t> times);

}  // namespace kelvarin::guess
