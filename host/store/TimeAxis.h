// The times of the rows of a device.
#pragma once

#include <cstdint>

#include "host/store/IntegerList.h"
#include "platform/framework/Numbers.h"

namespace kelvarin::store {

// A growing list of times in nanoseconds, of which the first are kept. What is kept of a time is by how much
// its step from the one before differs from the step before: one byte for rows at a steady rate, four at most
// for others.
class TimeAxis {
  public:
    // The arena must outlive the axis.
    TimeAxis(std::uint64_t keepLimit, Arena& memory)
        : KeepLimit(keepLimit), Memory(memory), Changes(memory) {}

    // The first `count` times of another axis.
    TimeAxis(const TimeAxis& other, std::uint64_t count);

    void Append(std::int64_t time);

    // Of all times, kept or not.
    std::uint64_t Count() const { return Rows; }
    std::int64_t First() const { return FirstTime; }
    std::int64_t Last() const { return Now.Time; }

    // Reads the kept times from the first on. The axis must outlive it and not grow meanwhile.
    class Reader;

  private:
    // A time and the step that led to it. Sums wrap.
    struct Moment {
        std::int64_t Time = 0;
        std::int64_t Step = 0;
    };

    const std::uint64_t KeepLimit;
    Arena& Memory;
    IntegerList Changes;  // of the step, from row to row; both begin at 0
    std::uint64_t Rows = 0;
    std::int64_t FirstTime = 0;
    Moment Now;
};

class TimeAxis::Reader {
  public:
    explicit Reader(const TimeAxis& axis) : Changes(axis.Changes) {}

    // The next time; there must be one.
    std::int64_t Next() {
        Now.Step = WrappingAdd(Now.Step, Changes.Next());
        Now.Time = WrappingAdd(Now.Time, Now.Step);
        return Now.Time;
    }

  private:
    IntegerList::Reader Changes;
    Moment Now;
};

}  // namespace kelvarin::store
