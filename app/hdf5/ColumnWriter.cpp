#include "app/hdf5/ColumnWriter.h"

#include <algorithm>
#include <cstring>

#include "app/hdf5/ElementTypes.h"

void ColumnWriter::Append(const void* values, std::size_t count, std::size_t chunkValues) {
    if (Chunk == nullptr) {
        ChunkValues = chunkValues;
        Chunk = std::make_unique_for_overwrite<std::uint8_t[]>(ChunkValues * Type.Width);
    }
    const auto* next = static_cast<const std::uint8_t*>(values);
    while (count != 0) {
        const std::size_t taken = std::min(count, ChunkValues - Used);
        std::memcpy(Chunk.get() + Used * Type.Width, next, taken * Type.Width);
        Used += taken;
        next += taken * Type.Width;
        count -= taken;
        if (Used == ChunkValues) Turn();
    }
}

void ColumnWriter::Turn() {
    if (!Set.IsOpen()) Set.Create(Place, Type, ChunkValues, nullptr);
    const std::uint64_t count = Count();
    const std::size_t used = Used * Type.Width;
    const std::size_t size = ChunkValues * Type.Width;
    std::memset(Chunk.get() + used, 0, size - used);
    Set.Write(Full, {Chunk.get(), size}, count);
    ++Full;
    Used = 0;
}

hid_t ColumnWriter::Finish() {
    if (Full == 0) ChunkValues = std::max<std::size_t>(Used, 1);
    if (Used != 0) {
        Turn();
    } else if (!Set.IsOpen()) {
        Set.Create(Place, Type, ChunkValues, nullptr);
    }
    return Set.Id();
}

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
        if (!Set.IsOpen()) Set.Create(Place, ElementOf<std::uint8_t>(), chunkValues, &HasValue);
        Set.Write(Full, std::span(Flags).first(chunkValues), Full * chunkValues + Used);
        Flags.clear();
    }
    ++Full;
    Used = 0;
}

hid_t FlagWriter::Finish() {
    const std::uint64_t count = Full * ChunkValues + Used;
    if (Used != 0) Turn(Full == 0 ? Used : ChunkValues);
    if (!Set.IsOpen()) return H5I_INVALID_HID;
    Set.SetCount(count);
    return Set.Id();
}
