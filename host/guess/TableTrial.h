// Tries formats on the rows of a sampled table.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "contract/TableReader.h"
#include "contract/TimeReader.h"

namespace kelvarin::guess {
using TextList = std::vector<std::u16string>;

// A run of rows that a format doesn't fit. Lines count from 1; 0 is a line far down in a long file.
struct MisfitRows {
    std::uint64_t FirstLine;
    std::uint64_t LastLine;
};

// What becomes of the rows of a table when their times are read by one format. Times are in nanoseconds.
struct TimeReading {
    TimeReading() = default;

    // `times` has one per row, -1 where the format doesn't fit.
    TimeReading(const std::vector<SampledRow>& rows, std::vector<std::int64_t> times);

    std::vector<std::int64_t> Times;
    std::size_t Read = 0;       // rows that the format fits
    std::size_t Rising = 0;     // rows later than all before, which an import takes
    std::size_t Repeats = 0;    // rows at the time of the row before
    std::size_t Falling = 0;    // rows earlier than all before, the first among them
    std::size_t RollOvers = 0;  // falls from late in a day to early in one
    std::int64_t First = 0, Last = 0;
    std::int64_t MedianStep = 0, LargestStep = 0;  // from one rising row to the next
    std::vector<MisfitRows> Misfits;               // the first few
    std::size_t MisfitRuns = 0;                    // all of them

    // The part of all rows that an import would take.
    double RisingPart() const;

    // Rows in the better of both directions.
    std::size_t Ordered() const { return Rising > Falling ? Rising : Falling; }

    // True if most rows come before all above them.
    bool IsDescending() const { return Falling > Rising && Falling * 2 > Read; }
};

class TableTrial {
  public:
    // Both outlive the trial.
    TableTrial(ITimeReader& reader, const TableSample& table) : Reader(reader), Table(table) {}

    const TableSample& Sample() const { return Table; }
    std::size_t Columns() const { return std::min<std::size_t>(Table.Names.size(), CellsSampled); }

    // The six letters of a format: year, month, day, hours, minutes, seconds.
    const std::u16string& Letters() const { return FormatLetters; }

    // The cells of a column, from 0; an empty text for a row without.
    TextList Texts(std::size_t column) const { return Texts(column, column); }

    // Of two columns, as the import joins their cells, the left one first; of one column if both are the
    // same.
    TextList Texts(std::size_t one, std::size_t other) const;

    // The texts that tell the look of a column: its first one, and the longest of the first rows.
    TextList Examples(const TextList& texts) const;

    // True if the format fits at least half of the first rows.
    bool FitsFirstRows(const std::u16string& format, const TextList& texts, bool hasDate) const;

    // Reads all rows.
    TimeReading Read(const std::u16string& format, const TextList& texts, bool hasDate) const {
        return TimeReading(Table.Rows, Reader.ReadTimes(format, texts, hasDate));
    }

  private:
    static constexpr std::size_t CellsSampled = 256;  // of a row

    ITimeReader& Reader;
    const TableSample& Table;
    const std::u16string FormatLetters = Reader.FormatLetters();
};
}  // namespace kelvarin::guess
