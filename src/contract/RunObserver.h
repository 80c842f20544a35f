// Optional interface of a filter: what becomes of each row of a run, and why.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

// Why a row gives no samples.
enum class DropReason {
    DoesNotFit,  // its text is none that the timestamp format reads
    Repeats,     // its time is that of the row stored last
    Falls,       // its time lies before that of the row stored last
    OutOfRange,  // its time lies beyond the greatest one, or at or before 1970 with no row stored yet
    NoStep       // the fixed interval doesn't lead beyond the row stored last
};

// The place of a row: the line of the file, from 1, and the line that messages name, which leaves out blank
// lines of the table.
struct RowPlace {
    std::uint64_t Line = 0;
    std::uint64_t MessageLine = 0;
};

struct DroppedRow {
    RowPlace Place;
    DropReason Reason;
    const char16_t* TimeText;          // what the format was to read; empty without such a cell
    std::optional<std::int64_t> Time;  // what the row would have been stored under; none if nothing was read
    std::span<char16_t* const> Cells;  // all cells of the row
};

struct RefusedCell {
    RowPlace Place;
    int Column;            // 0-based
    int Type;              // of the column: 1 boolean to 8 text
    const char16_t* Text;  // as the parser left it: without the marks that it removed or replaced
};

// Called by the filter within ImportNextLine, or by a host that joins ranges of the file (RangeReading.h): on
// one thread at a time, one row after the other. Pointers are valid during the call. Times are nanoseconds on
// the scale of CTimeStamp.
class IRunObserver {
  public:
    virtual ~IRunObserver() = default;

    // The row's samples are added under this time. Comes before its refused cells.
    virtual void OnRowStored(const RowPlace& place, std::int64_t time) = 0;
    virtual void OnRowDropped(const DroppedRow& row) = 0;

    // A cell that is not of its column's type: the sample has no value. Empty cells are not told.
    virtual void OnCellRefused(const RefusedCell& cell) = 0;

    // An absolute time that the host can't process, before the row is stored or dropped.
    virtual void OnTimeBefore1990(const RowPlace& place, std::int64_t time) = 0;

    // A blank line, which is no row.
    virtual void OnBlankLine(const RowPlace& place) = 0;
};

class IObservedRun {
  public:
    static constexpr const char* Id = "kelvarin.ObservedRun/1";

    virtual ~IObservedRun() = default;

    // Who is told by the run from now on; null for nobody, as at first. The observer must outlive the run.
    virtual void ObserveRun(IRunObserver* observer) = 0;
};
