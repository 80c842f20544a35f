#include "host/store/Sparkline.h"

namespace kelvarin::store {

std::uint64_t Sparkline::MakeRoom() {
    if (Count != 0 && InLast < BucketSize) return BucketSize - InLast;
    if (Count == Capacity) {
        for (std::size_t i = 0; i < Capacity / 2; ++i) {
            NumberRange joined = Buckets[2 * i];
            joined.Include(Buckets[2 * i + 1]);
            Buckets[i] = joined;
        }
        Count = Capacity / 2;
        BucketSize *= 2;
    }
    Buckets[Count++] = {};
    InLast = 0;
    return BucketSize;
}

NumberRange Sparkline::Range() const {
    NumberRange all = Infinite;
    for (std::size_t i = 0; i < Count; ++i) all.Include(Buckets[i]);
    return all;
}

std::string Sparkline::Draw(std::size_t width) const {
    constexpr const char* Blocks[] = {"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
    constexpr double LastBlock = 7.0;
    NumberRange all;
    double middle = 0;  // where the signal mostly is
    for (std::size_t i = 0; i < Count; ++i) {
        if (Buckets[i].IsEmpty()) continue;
        all.Include(Buckets[i]);
        middle += (Buckets[i].Lowest / 2 + Buckets[i].Highest / 2) / static_cast<double>(Count);
    }
    if (all.IsEmpty()) return {};
    const double span = all.Highest - all.Lowest;
    const std::size_t columns = std::min(width, Count);
    std::string line;
    for (std::size_t column = 0; column < columns; ++column) {
        NumberRange part;
        for (std::size_t i = column * Count / columns; i < (column + 1) * Count / columns; ++i)
            part.Include(Buckets[i]);
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
