// The rows that the module dropped, by reason.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/check/FilePlaces.h"
#include "host/check/TimeProbe.h"

namespace kelvarin::check {

enum class DropReason : std::size_t {
    Empty,              // nothing but separators and blanks
    UnreadableAtStart,  // no time in it that fits the format, before the first row with one
    Unreadable,
    UnreadableAtEnd,  // behind the last row with one
    Repeats,          // the time of the stored row before
    Falls,            // before the time of the stored row before
    NotLater,         // one of these two; the row has no other cell, so its time can't be seen
    OutOfRange,       // a time outside the years that can be stored
    NoStep,           // counted by an interval that is nothing
    Unknown           // could not be looked at again
};
constexpr std::size_t DropReasonCount = 10;

struct RowRange {
    std::uint64_t First = 0, Last = 0;  // lines of the first and the last stored row; 0 without one
};

// Counts all dropped rows and chooses those that are looked at one by one: the first 1000, then ever fewer,
// so that a file in which every row fails costs neither memory nor hours. A row looked at stands for those
// since the one before.
class DroppedRows {
  public:
    // `lastTime` is that of the stored row before, if there is one.
    void Add(std::uint64_t line, std::uint64_t moduleLine, std::optional<std::int64_t> lastTime);

    // Tells the row whose time shows by how much the run's times are corrected.
    void SetReference(std::uint64_t line, std::int64_t time) { Reference = Chosen{line, 0, 0, time}; }

    // Reads the chosen rows in the file again, which the module has closed. Raises CFileException.
    void Examine(const std::u16string& path, const TimeSource& reading, TimeProbe& probe, RowRange stored);

    std::uint64_t Count() const { return Number; }
    std::uint64_t Examined() const { return Rows.size(); }
    const FilePlaces& Of(DropReason reason) const { return Reasons[static_cast<std::size_t>(reason)]; }

    // Of the rows that fall: by how much at most, by how much the first, and from which time.
    std::int64_t DeepestFall() const { return Deepest; }
    std::int64_t FirstFall() const { return FallOfFirst; }
    std::int64_t BeforeFirstFall() const { return TimeBeforeFall; }

    // True if nearly every row that falls also falls below the dropped one before it.
    bool RunsBackwards() const { return Descents * 10 >= Falls * 9 && Falls > 1; }

    // A format that reads at least half of the unreadable rows it was tried on; empty without one.
    const std::u16string& BetterFormat() const { return OtherFormat; }

  private:
    struct Chosen {
        std::uint64_t Line, ModuleLine, Weight;
        std::optional<std::int64_t> LastTime;
    };
    // Another format that may read rows, and how many it does.
    struct Variant {
        std::u16string Format;
        std::uint64_t Reads = 0;
    };

    DropReason ReasonOf(const Chosen& row, const std::u16string& line, const TimeSource& reading,
                        TimeProbe& probe, RowRange stored);
    DropReason CompareTime(std::int64_t time, const Chosen& row);
    void TryVariants(const std::u16string& line, TimeProbe& probe);
    void SettleCorrection(const std::optional<ProbedTime>& probed);

    std::vector<Chosen> Rows;
    std::uint64_t Number = 0;
    std::uint64_t Stride = 1, UntilNext = 1;
    std::uint64_t Unseen = 0;  // dropped since the last chosen row
    std::optional<Chosen> Reference;
    std::int64_t Correction = 0;

    std::array<FilePlaces, DropReasonCount> Reasons;
    std::int64_t Deepest = 0, FallOfFirst = 0, TimeBeforeFall = 0;
    std::uint64_t Falls = 0, Descents = 0;
    std::optional<std::int64_t> LastFallen;
    std::vector<Variant> Variants;
    std::uint64_t Tried = 0;
    std::u16string OtherFormat;
};

}  // namespace kelvarin::check
