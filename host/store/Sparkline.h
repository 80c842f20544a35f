// The range of many numbers, and their shape in a few characters.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string>

namespace kelvarin::store {
// The lowest and the highest of some numbers; empty at the start. Infinities count, what is not a number does
// not.
struct NumberRange {
    double Lowest = std::numeric_limits<double>::infinity();
    double Highest = -std::numeric_limits<double>::infinity();

    bool IsEmpty() const { return Lowest > Highest; }

    void Include(const NumberRange& other) {
        if (other.Lowest < Lowest) Lowest = other.Lowest;
        if (other.Highest > Highest) Highest = other.Highest;
    }
};

NumberRange RangeOf(std::span<const double> numbers);
NumberRange RangeOf(std::span<const std::int64_t> numbers);
NumberRange RangeOf(std::span<const std::uint8_t> truthValues);  // of 0 and 1

// Takes any number of values and keeps the ranges of at most 64 buckets of equal size: memory does not grow
// with the signal.
class Sparkline {
  public:
    // Takes the next values, of a type that RangeOf has. Infinities are left out of the drawing but not out
    // of Range.
    template <class Value>
    void Add(std::span<const Value> values) {
        while (!values.empty()) {
            const auto room = static_cast<std::size_t>(std::min<std::uint64_t>(values.size(), MakeRoom()));
            const NumberRange range = RangeOf(values.first(room));
            if (std::isinf(range.Lowest) || std::isinf(range.Highest)) {
                IncludeFinite(values.first(room));
            } else {
                Buckets[Count - 1].Include(range);
            }
            InLast += room;
            values = values.subspan(room);
        }
    }

    // Takes the next values by their number, which is not 0, and their range. False, with no value taken, if
    // their range doesn't say enough: they fill more than one bucket, or some are infinite.
    bool AddRange(const NumberRange& range, std::uint64_t count) {
        if (std::isinf(range.Lowest) || std::isinf(range.Highest) || MakeRoom() < count) return false;
        Buckets[Count - 1].Include(range);
        InLast += count;
        return true;
    }

    // Of all values.
    NumberRange Range() const;

    // UTF-8: a block character or, where no value is finite, a space for each of at most `width` (and 64)
    // equal parts of the values; empty without finite values.
    std::string Draw(std::size_t width) const;

  private:
    // Begins a bucket if the last one is full; returns how many values it can take.
    std::uint64_t MakeRoom();

    // Of values among which some are infinite.
    template <class Value>
    void IncludeFinite(std::span<const Value> values) {
        for (const Value value : values) {
            const auto number = static_cast<double>(value);
            (std::isfinite(number) ? Buckets[Count - 1] : Infinite).Include(RangeOf(std::span(&number, 1)));
        }
    }

    static constexpr std::size_t Capacity = 64;
    std::array<NumberRange, Capacity> Buckets{};
    NumberRange Infinite;
    std::size_t Count = 0;         // buckets in use
    std::uint64_t BucketSize = 1;  // values that fill a bucket
    std::uint64_t InLast = 0;      // values in the last bucket
};
}  // namespace kelvarin::store
