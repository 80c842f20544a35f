#include "app/Sparkline.h"

#include <algorithm>
#include <cmath>

namespace {

// How many values at the start are finite. Most often all of them, which is cheap to see.
std::size_t CountFinite(std::span<const double> values) {
    bool allFinite = true;
    for (const double value : values) allFinite &= std::isfinite(value);
    if (allFinite) return values.size();
    const auto end = std::find_if_not(values.begin(), values.end(), [](double v) { return std::isfinite(v); });
    return static_cast<std::size_t>(end - values.begin());
}

}  // namespace

void Sparkline::Add(std::span<const double> values) {
    while (!values.empty()) {
        if (!std::isfinite(values.front())) {
            values = values.subspan(1);
            continue;
        }
        if (Count == 0 || InLast == PerStretch) {
            if (Count == Capacity) Halve();
            Stretches[Count++] = {};
            InLast = 0;
        }
        const auto room = std::min<std::uint64_t>(values.size(), PerStretch - InLast);
        const std::size_t finite = CountFinite(values.first(static_cast<std::size_t>(room)));
        Stretches[Count - 1].Include(RangeOf(values.first(finite)));
        InLast += finite;
        values = values.subspan(finite);
    }
}

void Sparkline::Halve() {
    for (std::size_t i = 0; i < Count / 2; ++i) {
        NumberRange joined = Stretches[2 * i];
        joined.Include(Stretches[2 * i + 1]);
        Stretches[i] = joined;
    }
    Count /= 2;
    PerStretch *= 2;
}

std::string Sparkline::Draw(std::size_t width) const {
    constexpr const char* Blocks[] = {"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
    constexpr double LastBlock = 7.0;
    if (Count == 0) return {};
    NumberRange all;
    for (std::size_t i = 0; i < Count; ++i) all.Include(Stretches[i]);
    const double lowest = all.Lowest;
    const double highest = all.Highest;
    const double middle = lowest / 2 + highest / 2;
    const double span = highest - lowest;
    const std::size_t columns = std::min(width, Count);
    std::string line;
    for (std::size_t column = 0; column < columns; ++column) {
        // Of each column the value that lies farther from the middle, so that a spike stays visible.
        double shown = middle;
        for (std::size_t i = column * Count / columns; i < (column + 1) * Count / columns; ++i) {
            for (const double value : {Stretches[i].Lowest, Stretches[i].Highest}) {
                if (std::abs(value - middle) > std::abs(shown - middle)) shown = value;
            }
        }
        const double level = span > 0 && std::isfinite(span) ? (shown - lowest) / span * LastBlock : 0.0;
        line += Blocks[static_cast<std::size_t>(std::lround(level))];
    }
    return line;
}
