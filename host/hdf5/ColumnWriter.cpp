#include "host/hdf5/ColumnWriter.h"

#include <algorithm>
#include <cstring>

#include "host/hdf5/ElementTypes.h"

namespace kelvarin::hdf5 {

void ColumnWriter::Append(const void* values, std::size_t count, std::size_t chunkValues) {
    if (Chunk == nullptr) {
        ChunkValues = chunkValues;
        Chunk = std::make_unique_for_overwrite<std::uint8_t[]>(ChunkValues * Width);
    }
    const auto* next = static_cast<const std::uint8_t*>(values);
    while (count != 0) {
        const std::size_t taken = std::min(count, ChunkValues - Used);
        std::memcpy(Chunk.get() + Used * Width, next, taken * Width);
        Used += taken;
        next += taken * Width;
        count -= taken;
        if (Used == ChunkValues) Turn();
    }
}

void ColumnWriter::Turn() {
    if (!Set.IsMade()) Set.Create(ChunkValues, nullptr);
    const std::uint64_t count = Count();
    const std::size_t used = Used * Width;
    const std::size_t size = ChunkValues * Width;
    std::memset(Chunk.get() + used, 0, size - used);
    Set.Write(Full, {Chunk.get(), size}, count);
    ++Full;
    Used = 0;
}

void ColumnWriter::Finish(hid_t group, const char* name) {
    if (Full == 0) ChunkValues = std::max<std::size_t>(Used, 1);
    if (Used != 0) {
        Turn();
    } else if (!Set.IsMade()) {
        Set.Create(ChunkValues, nullptr);
    }
    Set.MoveInto(group, name);
}

FlagWriter::FlagWriter(DatasetPlace& place) : Set(place, ElementOf<std::uint8_t>()) {}

void FlagWriter::Append(const std::uint8_t* gaps, std::size_t count, std::size_t chunkValues) {
    if (ChunkValues == 0) ChunkValues = chunkValues;
    while (count != 0) {
        const std::size_t taken = std::min(count, ChunkValues - Used);
        if (gaps != nullptr) {
            const bool any = std::any_of(gaps, gaps + taken, [](std::uint8_t gap) { return gap != 0; });
            if (any && Flags.empty()) Flags.assign(ChunkValues, 1);
            for (std::size_t i = 0; any && i < taken; ++i) Flags[Used + i] = gaps[i] == 0;
            gaps += taken;
        }
        Used += taken;
        count -= taken;
        if (Used == ChunkValues) Turn(ChunkValues);
    }
}

void FlagWriter::Turn(std::size_t chunkValues) {
    if (!Flags.empty()) {
        constexpr std::uint8_t HasValue = 1;
        if (!Set.IsMade()) Set.Create(chunkValues, &HasValue);
        Set.Write(Full, std::span(Flags).first(chunkValues), Full * chunkValues + Used);
        Flags.clear();
    }
    ++Full;
    Used = 0;
}

void FlagWriter::Finish(hid_t group, const char* name) {
    const std::uint64_t count = Full * ChunkValues + Used;
    if (Used != 0) Turn(Full == 0 ? Used : ChunkValues);
    if (!Set.IsMade()) return;
    Set.SetCount(count);
    Set.MoveInto(group, name);
}

}  // namespace kelvarin::hdf5
