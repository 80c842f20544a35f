// The times of the rows of a device.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// A growing list of times in nanoseconds, of which the first are kept. Full stretches are packed to four
// bytes a row while neighbours are at most 4.29 seconds apart, and stay at eight bytes elsewhere.
class TimeAxis {
  public:
    explicit TimeAxis(std::uint64_t keepLimit) : KeepLimit(keepLimit) {}

    // The first `count` times of another axis.
    TimeAxis(const TimeAxis& other, std::uint64_t count);

    void Append(std::int64_t time);

    // Of all times, kept or not.
    std::uint64_t Count() const { return Rows; }
    std::int64_t First() const { return FirstTime; }
    std::int64_t Last() const { return LastTime; }

    // Reads the kept times from the first on. The axis must outlive it and not grow meanwhile.
    class Reader {
      public:
        explicit Reader(const TimeAxis& axis) : Axis(axis) {}

        // The next time; there must be one.
        std::int64_t Next();

      private:
        const TimeAxis& Axis;
        std::size_t Stretch = 0;  // its place among Axis.Packed; behind them is Axis.Open
        std::size_t Row = 0;      // in the stretch
        std::int64_t Time = 0;
    };

  private:
    // A full stretch: its first time and the steps to the others, or all times.
    struct PackedStretch {
        std::int64_t First;
        std::vector<std::uint32_t> Steps;
        std::vector<std::int64_t> Times;
    };

    void Pack();

    std::vector<PackedStretch> Packed;
    std::vector<std::int64_t> Open;  // the last stretch
    const std::uint64_t KeepLimit;
    std::uint64_t Rows = 0;
    std::int64_t FirstTime = 0;
    std::int64_t LastTime = 0;
};
