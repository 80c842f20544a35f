// Memory for the samples of a device: an arena, and lists of values in blocks that are taken from it.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>
#include <vector>

namespace kelvarin::store {
// Hands out memory piece by piece and frees all of it in its destructor. Takes it from the system in chunks
// that double from 64 KiB to 1 MiB. For one thread at a time.
class Arena {
  public:
    Arena() = default;
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;
    ~Arena();

    // `size` bytes, by default aligned for every fundamental type; not initialised. Raises std::bad_alloc.
    void* Allocate(std::size_t size, std::size_t alignment = alignof(std::max_align_t));

    // What was handed out since the last Retain is free again, and is handed out anew.
    void Rewind() {
        Current = RetainedChunk;
        Used = RetainedUsed;
    }

    // What was handed out so far stays so.
    void Retain() {
        RetainedChunk = Current;
        RetainedUsed = Used;
    }

  private:
    struct Chunk {
        char* Memory;
        std::size_t Size;
    };

    std::vector<Chunk> Chunks;
    std::size_t Current = 0;  // index of the chunk that pieces come from, if there is any
    std::size_t Used = 0;     // of that chunk
    std::size_t RetainedChunk = 0;
    std::size_t RetainedUsed = 0;
};

// A full block of a list. Integers are packed to 1, 2, 4 or 8 bytes each, by the largest of the block: most
// measured integers are small, and memory that isn't touched costs no time either.
struct KeptBlock {
    const void* Values;
    std::uint32_t Count;
    std::uint32_t Width;  // bytes of a value
};

// A packed copy of some integers.
KeptBlock PackIntegers(std::span<const std::int64_t> values, Arena& memory);

// All values of such a copy.
void UnpackIntegers(const KeptBlock& block, std::int64_t* values);

// A value of such a copy.
std::int64_t UnpackInteger(const KeptBlock& block, std::size_t index);

// Values of one type in blocks that never move. The last block is open: values are appended to it while there
// is room; then the owner flushes it.
template <class Value>
class BlockList {
  public:
    // The arena must outlive the list.
    explicit BlockList(Arena& memory) : Memory(memory) {}

    // True also before the first Flush.
    bool IsFull() const { return Next == End; }

    // There must be room.
    void Append(Value value) { *Next++ = value; }

    // The values of the open block, valid until the next Flush.
    std::span<const Value> Open() const { return {Begin, static_cast<std::size_t>(Next - Begin)}; }

    // Empties the open block, after keeping its values if `keep`. Blocks that are kept grow, so that short
    // lists take little room and long ones have few blocks; without `keep` the list does not grow.
    void Flush(bool keep) {
        if (keep) Seal();
        Next = Begin;
        const bool canReuse = !keep || (IsPacked && Size == LargestSize);
        if (Begin == End || !canReuse) {
            Size = std::clamp(2 * Size, FirstSize, LargestSize);
            Begin = static_cast<Value*>(Memory.Allocate(Size * sizeof(Value)));
            End = Begin + Size;
            Next = Begin;
        }
    }

    // Keeps the values of the open block; what room is left stays open.
    void Seal() {
        if (Next == Begin) return;
        if constexpr (IsPacked) {
            Blocks.push_back(PackIntegers(Open(), Memory));
            Next = Begin;
        } else {
            Blocks.push_back({Begin, static_cast<std::uint32_t>(Open().size()), sizeof(Value)});
            Begin = Next;
        }
    }

    // Takes over the values of another list, but for the first `skip`, which lie in one block; it is empty
    // afterwards and keeps the room that it has. The memory of both must outlive this list; that of the other
    // is to be retained.
    void Take(BlockList& other, std::size_t skip = 0) {
        other.Seal();
        if (skip != 0) {
            other.VisitBlock(other.Blocks.front(), [&](std::span<const Value> values) {
                for (const Value value : values.subspan(skip)) {
                    if (IsFull()) Flush(true);
                    Append(value);
                }
            });
        }
        Seal();
        Blocks.insert(Blocks.end(), other.Blocks.begin() + (skip == 0 ? 0 : 1), other.Blocks.end());
        other.Blocks.clear();
        other.Retained = {other.Begin, other.End};
    }

    // Forgets all values, and the memory that they had but for the room kept when values were taken over.
    void Clear() {
        Blocks.clear();
        Begin = Next = Retained.Begin;
        End = Retained.End;
        if (Begin == nullptr) Size = 0;
    }

    // Calls `visit` with the values of each block, in order, as a span that is valid during the call.
    template <class Visit>
    void VisitBlocks(Visit visit) const {
        for (const KeptBlock& block : Blocks) VisitBlock(block, visit);
        if (Next != Begin) visit(Open());
    }

    // The blocks that are kept. What they hold never changes.
    const std::vector<KeptBlock>& Kept() const { return Blocks; }

    // Calls `visit` with the values of a kept block, as VisitBlocks does.
    template <class Visit>
    static void VisitBlock(const KeptBlock& block, Visit visit) {
        if constexpr (IsPacked) {
            std::array<Value, LargestSize> values;
            UnpackIntegers(block, values.data());
            visit(std::span<const Value>(values.data(), block.Count));
        } else {
            visit(std::span<const Value>(static_cast<const Value*>(block.Values), block.Count));
        }
    }

    // Bytes of the values in all blocks.
    std::size_t Bytes() const {
        std::size_t bytes = Open().size() * sizeof(Value);
        for (const KeptBlock& block : Blocks) bytes += std::size_t{block.Count} * block.Width;
        return bytes;
    }

    // All values where they are, if they lie in one block that isn't packed; null if not.
    Value* InOnePiece() const {
        if (Blocks.empty()) return Next == Begin ? nullptr : Begin;
        if (IsPacked || Blocks.size() != 1 || Next != Begin) return nullptr;
        return static_cast<Value*>(const_cast<void*>(Blocks.front().Values));
    }

    // Reads the values kept and then those of the open block, from the first on. The list must outlive it and
    // not grow meanwhile.
    class Reader {
      public:
        explicit Reader(const BlockList& list) : List(list) {}

        // The next value; there must be one.
        Value Next() {
            if (Block < List.Blocks.size() && At == List.Blocks[Block].Count) {
                ++Block;
                At = 0;
            }
            const std::size_t at = At++;
            if (Block == List.Blocks.size()) return List.Begin[at];
            const KeptBlock& block = List.Blocks[Block];
            if constexpr (IsPacked) {
                return UnpackInteger(block, at);
            } else {
                return static_cast<const Value*>(block.Values)[at];
            }
        }

      private:
        const BlockList& List;
        std::size_t Block = 0;  // an index of List.Blocks, or their number for the open block
        std::size_t At = 0;
    };

  private:
    static constexpr bool IsPacked = std::is_same_v<Value, std::int64_t>;
    static constexpr std::size_t FirstSize = 64;
    static constexpr std::size_t LargestSize = IsPacked ? 1024 : 8192;

    Arena& Memory;
    std::vector<KeptBlock> Blocks;
    Value* Begin = nullptr;  // of the open block
    Value* Next = nullptr;
    Value* End = nullptr;
    struct {
        Value* Begin = nullptr;
        Value* End = nullptr;
    } Retained;            // an open block without values
    std::size_t Size = 0;  // values for which memory was taken last
};
}  // namespace kelvarin::store
