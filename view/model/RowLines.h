// Which line of a file each row of a run comes from.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

#include "contract/RunObserver.h"

namespace kelvarin::view {
// Lines and rows that rise together. A file without breaks in its table takes one entry.
class RowLines {
  public:
    // The next row that is stored comes from this line, from 1.
    void Add(std::uint64_t line) {
        if (Starts.empty() || line - Starts.back().Line != Count - Starts.back().Row)
            Starts.push_back({Count, line});
        ++Count;
    }

    std::uint64_t Rows() const { return Count; }

    // The line of a row, from 0, which must be there.
    std::uint64_t LineOf(std::uint64_t row) const {
        const auto after =
            std::upper_bound(Starts.begin(), Starts.end(), row,
                             [](std::uint64_t at, const Start& start) { return at < start.Row; });
        return (after - 1)->Line + (row - (after - 1)->Row);
    }

    // The row that comes from a line or, if none does, the last one from a line above; none above the first.
    std::optional<std::uint64_t> RowAt(std::uint64_t line) const {
        const auto after =
            std::upper_bound(Starts.begin(), Starts.end(), line,
                             [](std::uint64_t at, const Start& start) { return at < start.Line; });
        if (after == Starts.begin()) return std::nullopt;
        const std::uint64_t end = after == Starts.end() ? Count : after->Row;
        return std::min((after - 1)->Row + (line - (after - 1)->Line), end - 1);
    }

  private:
    struct Start {
        std::uint64_t Row, Line;
    };
    std::vector<Start> Starts;
    std::uint64_t Count = 0;
};

// Notes the lines of the rows that are stored, and passes all on to another observer, which may be null.
class RowLinesObserver final : public IRunObserver {
  public:
    RowLinesObserver(RowLines& lines, IRunObserver* next) : Lines(lines), Next(next) {}

    void OnRowStored(const RowPlace& place, std::int64_t time) override {
        Lines.Add(place.Line);
        if (Next != nullptr) Next->OnRowStored(place, time);
    }
    void OnRowDropped(const DroppedRow& row) override {
        if (Next != nullptr) Next->OnRowDropped(row);
    }
    void OnCellRefused(const RefusedCell& cell) override {
        if (Next != nullptr) Next->OnCellRefused(cell);
    }
    void OnTimeBefore1990(const RowPlace& place, std::int64_t time) override {
        if (Next != nullptr) Next->OnTimeBefore1990(place, time);
    }
    void OnBlankLine(const RowPlace& place) override {
        if (Next != nullptr) Next->OnBlankLine(place);
    }

  private:
    RowLines& Lines;
    IRunObserver* const Next;
};
}  // namespace kelvarin::view
