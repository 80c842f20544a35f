#include "host/store/Sparkline.h"

namespace kelvarin::store {

std::uint64_t Sparkline::MakeRoom() {
    if (Count != 0 && InLast < PerStretch) return PerStretch - InLast;
    if (Count == Capacity) {
        for (std::size_t i = 0; i < Capacity / 2; ++i) {
            NumberRange joined = Stretches[2 * i];
            joined.Include(Stretches[2 * i + 1]);
            Stretches[i] = joined;
        }
        Count = Capacity / 2;
        PerStretch *= 2;
    }
    Stretches[Count++] = {};
    InLast = 0;
    return PerStretch;
}

NumberRange Sparkline::Range() const {
    NumberRange all = Infinite;
    for (std::size_t i = 0; i < Count; ++i) all.Include(Stretches[i]);
    return all;
}

std::string Sparkline::Draw(std::size_t width) const {
    constexpr const char* Blocks[] = {"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
    constexpr double LastBlock = 7.0;
    NumberRange all;
    double middle = 0;  // where the signal mostly is
    for (std::size_t i = 0; i < Count; ++i) {
        if (Stretches[i].IsEmpty()) continue;
        all.Include(Stretches[i]);
        middle += (Stretches[i].Lowest / 2 + Stretches[i].Highest / 2) / static_cast<double>(Count);
    }
    if (all.IsEmpty()) return {};
    const double span = all.Highest - all.Lowest;
    const std::size_t columns = std::min(width, Count);
    std::string line;
    for (std::size_t column = 0; column < columns; ++column) {
        NumberRange part;
        for (std::size_t i = column * Count / columns; i < (column + 1) * Count / columns; ++i)
            part.Include(Stretches[i]);
        if (part.IsEmpty()) {
            line += " ";
            continue;
        }
        // The value that lies farther from the others, so that a spike stays visible.
        const bool isHigh = std::abs(part.Highest - middle) > std::abs(part.Lowest - middle);
        const double shown = isHigh ? part.Highest : part.Lowest;
        const double level = span > 0 && std::isfinite(span) ? (shown - all.Lowest) / span * LastBlock : 0.0;
        line += Blocks[static_cast<std::size_t>(std::lround(level))];
    }
    return line;
}

}  // namespace kelvarin::store
