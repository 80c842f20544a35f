#include "view/model/Statistics.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <span>

namespace kelvarin::view {
namespace {
// Sums of values that keep their digits: squares are of the distances from the mean, as the difference of two
// large sums has none left where a signal varies little about a large value.
class Moments {
  public:
    void Include(std::span<const double> values) {
        if (values.empty()) return;
        const auto count = static_cast<double>(values.size());
        double sum = 0;
        for (const double value : values) sum += value;
        const double mean = sum / count;
        double squares = 0;
        for (const double value : values) squares += (value - mean) * (value - mean);
        const double all = Count + count;
        const double distance = mean - Mean;
        Squares += squares + distance * distance * (Count * count / all);
        Mean += distance * (count / all);
        Count = all;
    }

    void Fill(Statistics& result) const {
        result.Mean = Mean;
        result.Deviation = Count > 1 ? std::sqrt(Squares / (Count - 1)) : 0;
        result.Rms = Count > 0 ? std::sqrt(Mean * Mean + Squares / Count) : 0;
    }

  private:
    double Count = 0, Mean = 0, Squares = 0;
};
}  // namespace

TimeRange LookedAt(const PlotModel& model) {
    if (!model.Cursor || !model.Second) return model.Visible();
    return {std::min(*model.Cursor, *model.Second), std::max(*model.Cursor, *model.Second) + 1};
}

std::vector<SignalPart> PartsOf(const PlotModel& model, const TimeRange& range) {
    std::vector<SignalPart> parts;
    for (const Pane& pane : model.Panes()) {
        for (const SignalPointer& signal : pane.Signals) {
            const store::TimeIndex& times = signal->Times().Index();
            const std::uint64_t end = std::min(times.RowsBefore(range.To), signal->Count());
            parts.push_back({signal, std::min(times.RowsBefore(range.From), end), end});
        }
    }
    return parts;
}

Statistics StatisticsOf(const SignalPart& part, const std::atomic<bool>& cancel) {
    Statistics result;
    result.Samples = part.End - part.First;
    if (part.Signal->Kind() == SignalKind::Text) return result;
    result.Lowest = std::numeric_limits<double>::infinity();
    result.Highest = -result.Lowest;
    Moments moments;
    std::array<double, 4096> buffer;
    for (std::uint64_t row = part.First; row < part.End && !cancel;) {
        const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), part.End - row));
        const std::span<double> values = std::span(buffer).first(count);
        part.Signal->ReadValues(row, values);
        const auto finite =
            std::remove_if(values.begin(), values.end(), [](double value) { return !std::isfinite(value); });
        const std::span<const double> numbers(values.begin(), finite);
        for (const double value : numbers) {
            result.Lowest = std::min(result.Lowest, value);
            result.Highest = std::max(result.Highest, value);
        }
        moments.Include(numbers);
        result.Numbers += numbers.size();
        row += count;
    }
    moments.Fill(result);
    return result;
}
}  // namespace kelvarin::view
