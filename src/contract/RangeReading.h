// Optional interface of a filter: a run in ranges of its file, each by a filter of its own.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// The unit of a column that gets samples. Its first accepted value settles what the signal has; until then a
// cell may name it.
struct ColumnUnit {
    std::u16string OfCells;   // that the column's cells may have; empty: none has named one
    std::u16string OfSignal;  // of the signal
    bool IsSettled = false;

    bool operator==(const ColumnUnit&) const = default;
};

// A run between two lines: what the lines above mean for those below. Times are nanoseconds on the scale of
// CTimeStamp.
struct RunState {
    std::uint64_t Offset = 0;       // of the next line in the file, in bytes
    std::int64_t Line = 0;          // the next line's number as messages name it, without blank lines
    std::uint64_t BlankLines = 0;   // of the run so far
    std::int64_t LastTime = 0;      // of the row stored last; 0 if there is none
    std::int64_t FirstRowTime = 0;  // of the first data row, before correction
    std::vector<ColumnUnit> Units;  // of the columns that get samples, in order
    std::u16string FileFailure;     // as ISettingsView has it

    bool operator==(const RunState&) const = default;
};

// Lines of a range: those that are no row, and the others.
struct RangeLines {
    std::uint64_t Rows = 0;
    std::uint64_t Blank = 0;
    bool AreWhole = true;  // false: the range no longer ends at the end of a line
};

// What a range says of the time before it, which was not known for sure when it began.
struct RangeTimes {
    std::optional<std::int64_t> FirstStored;  // none: no row was stored
    bool DropsFirst = false;                  // a row with a time was dropped before any was stored
};

// The filter whose run has begun by BeginImport leads; the others follow it. All are of one module. A filter
// that leads is not used while others follow it, but for FindLineStart; each of the others is used by one
// thread at a time.
class IRangeReading {
  public:
    static constexpr const char* Id = "kelvarin.RangeReading/2";

    virtual ~IRangeReading() = default;

    // Of a run that has begun; its Offset alone costs nothing.
    virtual RunState GetState() const = 0;
    virtual std::uint64_t GetOffset() const = 0;

    // The run goes on from this state: that of another filter of the same file, which may have been shorter.
    // The units are those of the settings too.
    virtual void SetState(const RunState& state) = 0;

    // Finds the first byte position from `from` on at which a line starts; none if there is none. False if
    // the file can't be read. One thread at a time.
    virtual bool FindLineStart(std::uint64_t from, std::optional<std::uint64_t>& start) = 0;

    // In place of BeginImport: begins a run under the leader's settings, in its open file, with a device of
    // this filter's host. The leader's run must last longer. False, with a message, if there is no device.
    virtual bool Follow(IRangeReading& leader) = 0;

    // Reads a range into memory, from `begin`, where a line starts, up to `end`, none for the end of the
    // file, and counts its lines. A failure to read is reported by the run, behind the lines before it.
    virtual RangeLines LoadRange(std::uint64_t begin, std::optional<std::uint64_t> end) = 0;

    // ImportNextLine imports the lines of the range from now on, from this state, and returns false at its
    // end. May be called again for the same range. Offset and FileFailure don't matter.
    virtual void BeginRange(const RunState& state) = 0;

    // Since BeginRange.
    virtual RangeTimes GetRangeTimes() const = 0;
};
