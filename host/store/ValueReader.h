// The samples of a signal by their numbers, read where they are kept.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <deque>
#include <limits>
#include <memory>
#include <span>
#include <type_traits>
#include <vector>

#include "host/store/Blocks.h"
#include "host/store/GrowingList.h"

namespace kelvarin::store {
// Any number of threads may read, also while another thread adds samples to the signal.
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

// Where blocks of values lie, with the number of the first value of each and whatever else is known of it.
// Lengthened by one thread; what a reader has been told of it may read meanwhile.
template <class Entry>
class BlockTable {
  public:
    // The index of the block of a value, which must be in one of the first `count` blocks.
    std::size_t BlockOf(std::uint64_t row, std::size_t count) const {
        return FirstBlock(count, [row](const Entry& entry) { return entry.Begin > row; }) - 1;
    }

    // The index of the first of `count` blocks for which `isBeyond` is true, as it is for all behind it;
    // `count` if there is none.
    template <class IsBeyond>
    std::size_t FirstBlock(std::size_t count, IsBeyond isBeyond) const {
        std::size_t first = 0;
        while (first < count) {
            const std::size_t middle = first + (count - first) / 2;
            if (isBeyond(Entries[middle])) {
                count = middle;
            } else {
                first = middle + 1;
            }
        }
        return first;
    }

    GrowingList<Entry> Entries;
};

// The values in the kept blocks of a list.
template <class Value>
class BlockValues final : public ValueReader {
  public:
    // At most `most` values. `gaps` has the rows without a value, up to the last such row; nothing is asked
    // of it and of the list afterwards, but the memory of the list must outlive the reader. `before` is null
    // or the reader that was made of the same list last, with which this one shares what that one knows.
    BlockValues(const BlockList<Value>& list, const std::vector<bool>& gaps, std::uint64_t most,
                const BlockValues* before)
        : Known(before == nullptr ? std::make_shared<Shared>() : before->Known), Blocks(list.Kept().size()) {
        const std::size_t first = before == nullptr ? 0 : before->Blocks;
        std::uint64_t row = before == nullptr ? 0 : before->End;
        Known->Table.Entries.MakeRoom(Blocks);
        for (std::size_t block = first; block < Blocks; ++block) {
            const KeptBlock& kept = list.Kept()[block];
            Known->Table.Entries[block] = {kept, row, CopyGaps(gaps, row, kept.Count)};
            row += kept.Count;
        }
        End = row;
        Rows = std::min(End, most);
    }

    std::uint64_t Count() const override { return Rows; }

    void Read(std::uint64_t first, std::span<double> values) const override {
        std::uint64_t row = first;
        for (std::size_t block = Known->Table.BlockOf(first, Blocks); !values.empty(); ++block) {
            const Entry& entry = Known->Table.Entries[block];
            BlockList<Value>::VisitBlock(entry.Block, [&](std::span<const Value> kept) {
                const std::size_t skip = static_cast<std::size_t>(row - entry.Begin);
                const std::size_t count = std::min(values.size(), kept.size() - skip);
                Convert(kept.subspan(skip, count), values);
                if (entry.Gaps != nullptr) MarkGaps(*entry.Gaps, skip, values.first(count));
                row += count;
                values = values.subspan(count);
            });
        }
    }

    bool ReadOne(std::uint64_t row, void* value) const override {
        const Entry& entry = Known->Table.Entries[Known->Table.BlockOf(row, Blocks)];
        const auto at = static_cast<std::size_t>(row - entry.Begin);
        if (entry.Gaps != nullptr && (*entry.Gaps)[at]) return false;
        BlockList<Value>::VisitBlock(
            entry.Block, [&](std::span<const Value> kept) { std::memcpy(value, &kept[at], sizeof(Value)); });
        return true;
    }

    std::size_t ValueBytes() const override {
        std::size_t bytes = 0;
        for (std::size_t block = 0; block < Blocks; ++block) {
            const KeptBlock& kept = Known->Table.Entries[block].Block;
            bytes += std::size_t{kept.Count} * kept.Width;
        }
        return bytes;
    }
    std::size_t IndexBytes() const override {
        std::size_t bytes = Blocks * sizeof(Entry);
        for (std::size_t block = 0; block < Blocks; ++block) {
            const std::vector<bool>* const gaps = Known->Table.Entries[block].Gaps;
            if (gaps != nullptr) bytes += gaps->size() / 8 + sizeof *gaps;
        }
        return bytes;
    }

  private:
    struct Entry {
        KeptBlock Block;
        std::uint64_t Begin;            // the number of its first value
        const std::vector<bool>* Gaps;  // true for each of its values that is none; null if there is none
    };
    struct Shared {
        BlockTable<Entry> Table;
        std::deque<std::vector<bool>> Gaps;  // for the thread that makes readers
    };

    const std::vector<bool>* CopyGaps(const std::vector<bool>& gaps, std::uint64_t first, std::size_t count) {
        if (first >= gaps.size()) return nullptr;
        const auto begin = gaps.begin() + static_cast<std::ptrdiff_t>(first);
        const auto end =
            begin + static_cast<std::ptrdiff_t>(std::min<std::uint64_t>(gaps.size() - first, count));
        if (std::find(begin, end, true) == end) return nullptr;
        std::vector<bool>& copy = Known->Gaps.emplace_back(begin, end);
        copy.resize(count);
        return &copy;
    }

    static void Convert(std::span<const Value> kept, std::span<double> values) {
        for (std::size_t i = 0; i < kept.size(); ++i) {
            if constexpr (std::is_same_v<Value, std::uint8_t>) {
                values[i] = kept[i] != 0 ? 1 : 0;
            } else {
                values[i] = static_cast<double>(kept[i]);
            }
        }
    }

    static void MarkGaps(const std::vector<bool>& gaps, std::size_t first, std::span<double> values) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (gaps[first + i]) values[i] = std::numeric_limits<double>::quiet_NaN();
        }
    }

    const std::shared_ptr<Shared> Known;
    const std::size_t Blocks;  // that this reader knows of
    std::uint64_t End = 0;     // values in them
    std::uint64_t Rows = 0;
};
}  // namespace kelvarin::store
