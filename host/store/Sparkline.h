// The course of a signal in a few characters.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "host/store/NumberRange.h"

namespace kelvarin::store {

// Takes any number of values and keeps lowest and highest of at most 64 stretches of equal length: memory
// does not grow with the signal.
class Sparkline {
  public:
    // Values of a type that RangeOf knows. A number that isn't finite leaves a gap in the course, and is in
    // the range if it is infinite.
    template <class Value>
    void Add(std::span<const Value> values) {
        while (!values.empty()) {
            const auto room = static_cast<std::size_t>(std::min<std::uint64_t>(values.size(), MakeRoom()));
            const NumberRange range = RangeOf(values.first(room));
            if (std::isinf(range.Lowest) || std::isinf(range.Highest)) {
                IncludeFinite(values.first(room));
            } else {
                Stretches[Count - 1].Include(range);
            }
            InLast += room;
            values = values.subspan(room);
        }
    }

    // Of all values.
    NumberRange Range() const;

    // One block character per stretch, at most `width` of them; empty without finite values.
    std::string Draw(std::size_t width) const;

  private:
    // Begins a stretch if the last one is full; how many values it can take.
    std::uint64_t MakeRoom();

    // Of values among which some are not finite.
    template <class Value>
    void IncludeFinite(std::span<const Value> values) {
        for (const Value value : values) {
            const auto number = static_cast<double>(value);
            (std::isfinite(number) ? Stretches[Count - 1] : Infinite).Include(RangeOf(std::span(&number, 1)));
        }
    }

    static constexpr std::size_t Capacity = 64;
    std::array<NumberRange, Capacity> Stretches{};
    NumberRange Infinite;
    std::size_t Count = 0;         // stretches in use
    std::uint64_t PerStretch = 1;  // values that fill a stretch
    std::uint64_t InLast = 0;      // values in the last stretch
};

}  // namespace kelvarin::store
