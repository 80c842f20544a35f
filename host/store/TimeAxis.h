// The times of the samples of a device.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "host/store/Blocks.h"
#include "platform/framework/Numbers.h"

namespace kelvarin::store {
// A growing list of times in nanoseconds, of which the first are kept. What is kept of a time is by how much
// its step from the time before differs from the step before: one byte for rows at a steady rate, mostly four
// for others.
class TimeAxis {
  public:
    // A time and the step that led to it. Sums wrap.
    struct Moment {
        std::int64_t Time = 0;
        std::int64_t Step = 0;
    };

    // Keeps at most `keepLimit` times. The arena must outlive the axis.
    TimeAxis(std::uint64_t keepLimit, Arena& memory)
        : KeepLimit(keepLimit), Memory(memory), Changes(memory) {}

    // The first `count` times of another axis; it must have as many.
    TimeAxis(const TimeAxis& other, std::uint64_t count) : TimeAxis(other.KeepLimit, other.Memory) {
        Reader reader(other);
        while (Rows < std::min(count, KeepLimit)) Append(reader.Next());
        FirstTime = other.FirstTime;
        Rows = count;
    }

    void Append(std::int64_t time) {
        const std::int64_t step = WrappingSubtract(time, Now.Time);
        if (Rows < KeepLimit) {
            if (Changes.IsFull()) Changes.Flush(true);
            Changes.Append(WrappingSubtract(step, Now.Step));
        }
        if (Rows == 0) FirstTime = time;
        Now = {time, step};
        ++Rows;
    }

    // Appends the times of another axis, which is empty afterwards. It keeps all of its times unless this one
    // keeps none. Its memory must outlive this axis.
    void Take(TimeAxis& other) {
        if (other.Rows == 0) return;
        // The first two entries of an axis are differences from nothing.
        constexpr std::uint64_t FirstEntries = 2;
        const bool keep = Rows < KeepLimit;
        const std::uint64_t rows = Rows + other.Rows;
        if (Rows == 0) FirstTime = other.FirstTime;
        if (keep) {
            Reader reader(other);
            const std::uint64_t copied = std::min(other.Rows, FirstEntries);
            for (std::uint64_t i = 0; i < copied; ++i) Append(reader.Next());
            Changes.Take(other.Changes, static_cast<std::size_t>(copied));
        }
        if (!keep || other.Rows > FirstEntries) Now = other.Now;
        Rows = rows;
        other.Restart();
    }

    // Forgets all times, and the memory that they had but for what is retained.
    void Clear() {
        Changes.Clear();
        Restart();
    }

    // Of all times, kept or not. First and Last are 0 if there is none.
    std::uint64_t Count() const { return Rows; }
    std::int64_t First() const { return FirstTime; }
    std::int64_t Last() const { return Now.Time; }

    // Reads the kept times from the first on. The axis must outlive it and not grow meanwhile.
    class Reader {
      public:
        explicit Reader(const TimeAxis& axis) : Changes(axis.Changes) {}

        // The next time; there must be one.
        std::int64_t Next() {
            Now.Step = WrappingAdd(Now.Step, Changes.Next());
            Now.Time = WrappingAdd(Now.Time, Now.Step);
            return Now.Time;
        }

      private:
        BlockList<std::int64_t>::Reader Changes;
        Moment Now;
    };

    // The blocks of kept times as changes of the step, which follow from a Moment of zeros.
    const std::vector<KeptBlock>& Kept() const { return Changes.Kept(); }

    // Keeps all times so far.
    void Seal() { Changes.Seal(); }

    // Copies the first `count` times, which must be kept.
    void CopyTo(std::int64_t* times, std::uint64_t count) const {
        Moment now;
        const std::int64_t* const end = times + count;
        Changes.VisitBlocks([&](std::span<const std::int64_t> changes) {
            for (const std::int64_t change : changes) {
                if (times == end) return;
                now.Step = WrappingAdd(now.Step, change);
                now.Time = WrappingAdd(now.Time, now.Step);
                *times++ = now.Time;
            }
        });
    }

    // Calls `visit` with each time, if all are kept.
    template <class Visit>
    void VisitTimes(Visit visit) const {
        Reader reader(*this);
        for (std::uint64_t i = 0; i < Rows; ++i) visit(reader.Next());
    }

  private:
    void Restart() {
        Rows = 0;
        FirstTime = 0;
        Now = {};
    }

    const std::uint64_t KeepLimit;
    Arena& Memory;
    BlockList<std::int64_t> Changes;  // of the step, from row to row; step and time begin at 0
    std::uint64_t Rows = 0;
    std::int64_t FirstTime = 0;
    Moment Now;
};
}  // namespace kelvarin::store
