// One signal over another: the pairs of their values at the same times.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "view/model/PlotModel.h"

namespace kelvarin::view {
struct CrossPoint {
    double X = 0, Y = 0;      // finite
    bool IsAfterGap = false;  // no line leads here from the point before
};

// Each sample of the second signal with the last one of the first that is not later; pairs with a value that
// is missing or not finite are left out. Points in the order of time where there are few, else a grid in
// which pairs fill cells: no pair that stands out is hidden.
struct CrossPlot {
    static constexpr std::uint64_t MostPoints = 50'000;
    static constexpr std::size_t CellsAcross = 500;

    std::uint64_t Pairs = 0;
    ValueRange X, Y;  // the lowest and the highest of the pairs; meaningless without one
    std::vector<CrossPoint> Points;
    std::vector<bool> Cells;  // CellsAcross times CellsAcross, lines of the same Y from the lowest on
};

// Both are signals of numbers. Ends early, with a result that means nothing, once `cancel` is true. Any
// number of threads may ask.
CrossPlot CrossPlotOf(const PlottedSignal& x, const PlottedSignal& y, const TimeRange& range,
                      const std::atomic<bool>& cancel);

// The pair at a moment; none before the first and where a value is missing or not finite.
std::optional<CrossPoint> CrossPointAt(const PlottedSignal& x, const PlottedSignal& y, std::int64_t time);
}  // namespace kelvarin::view
