#include "app/Sparkline.h"

#include <algorithm>
#include <cmath>

void Sparkline::Add(double value) {
    if (!std::isfinite(value)) return;
    if (Count == 0 || InLast == PerStretch) {
        if (Count == Capacity) Halve();
        Stretches[Count++] = {value, value};
        InLast = 1;
        return;
    }
    Stretch& last = Stretches[Count - 1];
    last = {std::min(last.Lowest, value), std::max(last.Highest, value)};
    ++InLast;
}

void Sparkline::Halve() {
    for (std::size_t i = 0; i < Count / 2; ++i) {
        const Stretch& a = Stretches[2 * i];
        const Stretch& b = Stretches[2 * i + 1];
        Stretches[i] = {std::min(a.Lowest, b.Lowest), std::max(a.Highest, b.Highest)};
    }
    Count /= 2;
    PerStretch *= 2;
}

std::string Sparkline::Draw(std::size_t width) const {
    constexpr const char* Blocks[] = {"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
    constexpr double LastBlock = 7.0;
    if (Count == 0) return {};
    double lowest = Stretches[0].Lowest;
    double highest = Stretches[0].Highest;
    for (std::size_t i = 1; i < Count; ++i) {
        lowest = std::min(lowest, Stretches[i].Lowest);
        highest = std::max(highest, Stretches[i].Highest);
    }
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
