#include "view/model/CrossPlot.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

namespace kelvarin::view {
namespace {
constexpr std::uint64_t BlockSize = 4096;

// Pairs of a part of the second signal's samples, block by block.
class PairReader {
  public:
    PairReader(const PlottedSignal& x, const PlottedSignal& y, const TimeRange& range)
        : First(x), Second(y), SharesTimes(&x.Times() == &y.Times()) {
        const store::TimeIndex& times = y.Times().Index();
        End = std::min(times.RowsBefore(range.To), y.Count());
        if (SharesTimes) End = std::min(End, x.Count());
        Begin = std::min(times.RowsBefore(range.From), End);
    }

    std::uint64_t Count() const { return End - Begin; }

    // Calls `take` with each pair and with whether a gap is before it.
    template <class Take>
    void Visit(const std::atomic<bool>& cancel, Take take) {
        const std::int64_t gap = Second.Times().GapAbove();
        bool isAfterGap = true;
        std::int64_t before = 0;
        for (std::uint64_t row = Begin; row < End && !cancel; row += Xs.size()) {
            Read(row, static_cast<std::size_t>(std::min(BlockSize, End - row)));
            for (std::size_t i = 0; i < Xs.size(); ++i) {
                if (!std::isfinite(Xs[i]) || !std::isfinite(Ys[i])) {
                    isAfterGap = true;
                    continue;
                }
                take(CrossPoint{Xs[i], Ys[i], isAfterGap || Times[i] - before > gap});
                isAfterGap = false;
                before = Times[i];
            }
        }
    }

  private:
    void Read(std::uint64_t row, std::size_t count) {
        Xs.resize(count);
        Ys.resize(count);
        Times.resize(count);
        Second.ReadValues(row, Ys);
        Second.Times().Index().Read(row, Times);
        if (SharesTimes) {
            First.ReadValues(row, Xs);
            return;
        }
        const store::TimeIndex& times = First.Times().Index();
        for (std::size_t i = 0; i < count; ++i) {
            const std::uint64_t rows = std::min(times.RowsBefore(Times[i] + 1), First.Count());
            Xs[i] = std::numeric_limits<double>::quiet_NaN();
            if (rows != 0) First.ReadValues(rows - 1, std::span(Xs).subspan(i, 1));
        }
    }

    const PlottedSignal& First;
    const PlottedSignal& Second;
    const bool SharesTimes;
    std::uint64_t Begin = 0, End = 0;
    std::vector<double> Xs, Ys;
    std::vector<std::int64_t> Times;
};

// The cell of a value among CellsAcross from the lowest to the highest.
std::size_t CellOf(double value, const ValueRange& range) {
    constexpr auto Last = static_cast<double>(CrossPlot::CellsAcross - 1);
    // Halves, as the difference of two large numbers may be too large for a number.
    const double size = range.Highest / 2 - range.Lowest / 2;
    const double share = size > 0 ? (value / 2 - range.Lowest / 2) / size : 0;
    return static_cast<std::size_t>(std::clamp(share, 0.0, 1.0) * Last + 0.5);
}
}  // namespace

CrossPlot CrossPlotOf(const PlottedSignal& x, const PlottedSignal& y, const TimeRange& range,
                      const std::atomic<bool>& cancel) {
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    CrossPlot plot;
    plot.X = plot.Y = {Infinity, -Infinity};
    PairReader pairs(x, y, range);
    const bool isDense = pairs.Count() > CrossPlot::MostPoints;
    pairs.Visit(cancel, [&](const CrossPoint& point) {
        ++plot.Pairs;
        plot.X = {std::min(plot.X.Lowest, point.X), std::max(plot.X.Highest, point.X)};
        plot.Y = {std::min(plot.Y.Lowest, point.Y), std::max(plot.Y.Highest, point.Y)};
        if (!isDense) plot.Points.push_back(point);
    });
    if (!isDense) return plot;
    plot.Cells.resize(CrossPlot::CellsAcross * CrossPlot::CellsAcross);
    pairs.Visit(cancel, [&plot](const CrossPoint& point) {
        plot.Cells[CellOf(point.Y, plot.Y) * CrossPlot::CellsAcross + CellOf(point.X, plot.X)] = true;
    });
    return plot;
}

std::optional<CrossPoint> CrossPointAt(const PlottedSignal& x, const PlottedSignal& y, std::int64_t time) {
    const std::optional<SampleAt> second = y.At(time);
    if (!second) return std::nullopt;
    const std::optional<SampleAt> first = x.At(second->Time);
    if (!first || !first->Number || !second->Number) return std::nullopt;
    const CrossPoint point{*first->Number, *second->Number, false};
    if (!std::isfinite(point.X) || !std::isfinite(point.Y)) return std::nullopt;
    return point;
}
}  // namespace kelvarin::view
