// What a run in a range of a file tells its observer, kept until the ranges before it are joined.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "contract/RunObserver.h"

namespace kelvarin::ranges {
class RunRecord final : public IRunObserver {
  public:
    void OnRowStored(const RowPlace& place, std::int64_t time) override;
    void OnRowDropped(const DroppedRow& row) override;
    void OnCellRefused(const RefusedCell& cell) override;
    void OnTimeBefore1990(const RowPlace& place, std::int64_t time) override;
    void OnBlankLine(const RowPlace& place) override;

    // Tells an observer everything in the order in which it came.
    void Replay(IRunObserver& observer) const;

    void Clear();

    // Of memory that is used.
    std::size_t Bytes() const;

  private:
    enum class Kind : std::uint8_t { Stored, Dropped, Refused, Before1990, Blank };

    // TimeText and the cells, each ended by a zero.
    struct Row {
        DropReason Reason;
        std::optional<std::int64_t> Time;
        std::size_t Cells;
        std::u16string Texts;
    };
    struct Cell {
        int Column;
        int Type;
        std::u16string Text;
    };
    struct Event {
        RowPlace Place;
        std::int64_t Value;  // the time of a row that is stored or before 1990, else an index
        Kind What;
    };

    static void ReplayRow(const RowPlace& place, const Row& row, IRunObserver& observer);

    std::vector<Event> Events;
    std::vector<Row> Rows;
    std::vector<Cell> Cells;
    std::size_t TextBytes = 0;
};
}  // namespace kelvarin::ranges
