// The samples of a signal by their numbers, read where they are kept.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <span>
#include <type_traits>
#include <vector>

#include "host/store/Blocks.h"

namespace kelvarin::store {
// Where the blocks of a list begin, so that a value is found by its number.
class BlockStarts {
  public:
    template <class Value>
    explicit BlockStarts(const BlockList<Value>& list) {
        std::uint64_t row = 0;
        Starts.reserve(list.BlockCount() + 1);
        for (std::size_t block = 0; block < list.BlockCount(); ++block) {
            Starts.push_back(row);
            row += list.BlockSize(block);
        }
        Starts.push_back(row);
    }

    // The block of a value, which must be there.
    std::size_t BlockOf(std::uint64_t row) const {
        const auto after = std::upper_bound(Starts.begin(), Starts.end(), row);
        return static_cast<std::size_t>(after - Starts.begin()) - 1;
    }

    // The number of its first value.
    std::uint64_t Begin(std::size_t block) const { return Starts[block]; }

    std::size_t Bytes() const { return Starts.capacity() * sizeof Starts[0]; }

  private:
    std::vector<std::uint64_t> Starts;  // of each block, then the number of values
};

// Any number of threads may read.
class ValueReader {
  public:
    virtual ~ValueReader() = default;

    // Samples that can be read.
    virtual std::uint64_t Count() const = 0;

    // The values from number `first` on, as many as `values` has room for, which must be there. What is not a
    // number is a sample without a value; truth values are 0 and 1. Integers beyond 53 bits are rounded.
    virtual void Read(std::uint64_t first, std::span<double> values) const = 0;

    // Copies the bytes of a sample, as it was given; false, with nothing copied, for one without a value.
    virtual bool ReadOne(std::uint64_t row, void* value) const = 0;

    // Bytes of the values, and those that finding them takes beside.
    virtual std::size_t ValueBytes() const = 0;
    virtual std::size_t IndexBytes() const = 0;
};

// Values of a list of blocks; `gaps` has the rows without a value, up to the last such row. Both must outlive
// the reader and not change.
template <class Value>
class BlockValues final : public ValueReader {
  public:
    BlockValues(const BlockList<Value>& list, const std::vector<bool>& gaps, std::uint64_t count)
        : List(list), Gaps(gaps), Rows(count), Starts(list) {}

    std::uint64_t Count() const override { return Rows; }

    void Read(std::uint64_t first, std::span<double> values) const override {
        std::uint64_t row = first;
        for (std::size_t block = Starts.BlockOf(first); !values.empty(); ++block) {
            List.VisitBlockAt(block, [&](std::span<const Value> kept) {
                const std::size_t skip = static_cast<std::size_t>(row - Starts.Begin(block));
                const std::size_t count = std::min(values.size(), kept.size() - skip);
                Convert(kept.subspan(skip, count), values);
                MarkGaps(row, values.first(count));
                row += count;
                values = values.subspan(count);
            });
        }
    }

    bool ReadOne(std::uint64_t row, void* value) const override {
        if (row < Gaps.size() && Gaps[static_cast<std::size_t>(row)]) return false;
        const std::size_t block = Starts.BlockOf(row);
        List.VisitBlockAt(block, [&](std::span<const Value> kept) {
            std::memcpy(value, &kept[static_cast<std::size_t>(row - Starts.Begin(block))], sizeof(Value));
        });
        return true;
    }

    std::size_t ValueBytes() const override { return List.Bytes(); }
    std::size_t IndexBytes() const override { return Starts.Bytes(); }

  private:
    static void Convert(std::span<const Value> kept, std::span<double> values) {
        for (std::size_t i = 0; i < kept.size(); ++i) {
            if constexpr (std::is_same_v<Value, std::uint8_t>) {
                values[i] = kept[i] != 0 ? 1 : 0;
            } else {
                values[i] = static_cast<double>(kept[i]);
            }
        }
    }

    void MarkGaps(std::uint64_t first, std::span<double> values) const {
        if (first >= Gaps.size()) return;
        const std::uint64_t end = std::min<std::uint64_t>(Gaps.size() - first, values.size());
        for (std::size_t i = 0; i < end; ++i) {
            if (Gaps[static_cast<std::size_t>(first) + i])
                values[i] = std::numeric_limits<double>::quiet_NaN();
        }
    }

    const BlockList<Value>& List;
    const std::vector<bool>& Gaps;
    const std::uint64_t Rows;
    const BlockStarts Starts;
};
}  // namespace kelvarin::store
