#include "host/hdf5/ChunkPacker.h"

#include <isa-l/igzip_lib.h>

#include <algorithm>
#include <bit>
#include <cstring>

#include "simd/Planes.h"
#include "simd/WideRegisters.h"

namespace kelvarin::hdf5 {
namespace {
constexpr int Level = 1;

// A part of its own costs the tables of its codes.
constexpr std::size_t SmallestPart = 8 * 1024;

// Of a block that the format stores as it is.
constexpr std::size_t MostStored = 0xFFFF;

constexpr std::size_t LongestDistance = 32 * 1024;

constexpr std::size_t SumSize = 4;  // of the checksum at the end

// Above this share of its size a chunk is kept as it is: it reads faster.
constexpr std::size_t WorthNumerator = 31;
constexpr std::size_t WorthDenominator = 32;

// True if every byte occurs about as often as every other, judged by a few stretches.
bool IsFlat(std::span<const std::uint8_t> part) {
    constexpr std::size_t Stretches = 8;
    constexpr std::size_t StretchSize = 256;
    std::uint32_t counts[256] = {};
    for (std::size_t stretch = 0; stretch < Stretches; ++stretch) {
        const auto bytes = part.subspan(stretch * (part.size() / Stretches), StretchSize);
        for (const std::uint8_t byte : bytes) ++counts[byte];
    }
    std::uint32_t squares = 0;
    for (const std::uint32_t count : counts) squares += count * count;
    // 18,424 for chance. Up to this no code of whole bits saves more than a fiftieth.
    constexpr std::uint32_t MostForChance = 30'000;
    return squares < MostForChance;
}

void Shuffle(std::span<const std::uint8_t> in, std::uint8_t* out, std::size_t width) {
    const std::size_t count = in.size() / width;
    std::size_t done = 0;
    if (width == 8) {
        for (; done + 8 <= count; done += 8)
            simd::TransposeEight(in.data() + done * width, out + done, count);
    }
    for (std::size_t plane = 0; plane < width; ++plane) {
        for (std::size_t i = done; i < count; ++i) out[plane * count + i] = in[i * width + plane];
    }
}

// A block of the deflate format that repeats the last `size` bytes, a power of two up to LongestDistance. The
// blocks before and after it begin on whole bytes. Whole numbers of eight bytes mostly have upper bytes that
// are all alike; for these this is a thousand times faster than to search.
std::vector<std::uint8_t> MakeRepeatBlock(std::size_t size, bool isLast) {
    std::vector<std::uint8_t> block;
    int free = 0;  // bits of the last byte, which is filled from its low end
    const auto addBits = [&](unsigned value, int bits) {
        for (int i = 0; i < bits; ++i) {
            if (free == 0) block.push_back(0);
            free = (free + 7) % 8;
            block.back() = static_cast<std::uint8_t>(block.back() | ((value >> i) & 1) << (7 - free));
        }
    };
    // The codes of symbols come with their high bit first.
    const auto addCode = [&](unsigned code, int bits) {
        while (bits-- > 0) addBits(code >> bits, 1);
    };
    // A block of fixed codes; lengths 227 to 257 are symbol 284 and 5 bits; the distance 2^n is symbol 2n - 1
    // and n - 2 bits, all ones, the last of its group.
    constexpr std::size_t Length = 256;
    constexpr unsigned LengthCode = 0b11000100;
    constexpr unsigned LengthBits = Length - 227;
    const int power = std::countr_zero(size);
    addBits(isLast ? 1 : 0, 1);
    addBits(1, 2);
    for (std::size_t done = 0; done < size; done += Length) {
        addCode(LengthCode, 8);
        addBits(LengthBits, 5);
        addCode(static_cast<unsigned>(2 * power - 1), 5);
        addBits((1u << (power - 2)) - 1, power - 2);
    }
    addCode(0, 7);  // the end of the block
    if (isLast) return block;
    // An empty stored block, which begins wherever the last one ended and ends on a whole byte.
    addBits(0, 3);
    block.insert(block.end(), {0x00, 0x00, 0xFF, 0xFF});
    return block;
}
}  // namespace

ChunkPacker::ChunkPacker() : Workspace(ISAL_DEF_LVL1_DEFAULT) {}

std::span<const std::uint8_t> ChunkPacker::Pack(std::span<const std::uint8_t> chunk, std::size_t width) {
    const bool isWorthIt = PackParts(chunk, width);
    // The packing library leaves the upper halves of the registers in use: an import would take a quarter
    // longer.
    simd::ClearUpperHalves();
    return std::span(Packed).first(isWorthIt ? Used : 0);
}

bool ChunkPacker::PackParts(std::span<const std::uint8_t> chunk, std::size_t width) {
    std::span<const std::uint8_t> bytes = chunk;
    if (width > 1) {
        Planes.resize(chunk.size());
        Shuffle(chunk, Planes.data(), width);
        bytes = Planes;
    }
    constexpr std::uint8_t Head[] = {0x78, 0x01};  // of the zlib format: a window of 32 KiB, fastest
    Packed.resize(chunk.size() / WorthDenominator * WorthNumerator + sizeof Head + SumSize + 64);
    std::copy(std::begin(Head), std::end(Head), Packed.begin());
    Used = sizeof Head;
    // The planes of a number are as different as can be: codes of its own for each pack it better.
    const std::size_t plane = chunk.size() / width;
    const std::size_t part = plane >= SmallestPart ? plane : chunk.size();
    const bool canRepeat = part == plane && std::has_single_bit(part) && part <= LongestDistance;
    for (std::size_t at = 0; at < bytes.size(); at += part) {
        const bool isLast = at + part == bytes.size();
        const std::span<const std::uint8_t> next = bytes.subspan(at, part);
        const bool isRepeat = canRepeat && at != 0 && std::memcmp(next.data() - part, next.data(), part) == 0;
        const bool fits = isRepeat        ? Append(MakeRepeatBlock(part, isLast))
                          : IsNoise(next) ? Store(next, isLast)
                                          : Deflate(next, isLast);
        if (!fits) return false;
    }
    const std::uint32_t sum = isal_adler32(1, bytes.data(), bytes.size());
    for (int shift = 24; shift >= 0; shift -= 8) Packed[Used++] = static_cast<std::uint8_t>(sum >> shift);
    return true;
}

bool ChunkPacker::Append(std::span<const std::uint8_t> bytes) {
    if (Packed.size() - Used < bytes.size() + SumSize) return false;
    std::memcpy(Packed.data() + Used, bytes.data(), bytes.size());
    Used += bytes.size();
    return true;
}

bool ChunkPacker::IsNoise(std::span<const std::uint8_t> part) {
    constexpr std::size_t TrialSize = SmallestPart / 2;
    if (part.size() < SmallestPart || part.size() > MostStored || !IsFlat(part)) return false;
    // Flat may also be what repeats.
    const std::size_t before = Used;
    const bool fits = Deflate(part.first(TrialSize), false);
    const std::size_t size = Used - before;
    Used = before;
    return !fits || size > TrialSize / WorthDenominator * WorthNumerator;
}

bool ChunkPacker::Store(std::span<const std::uint8_t> part, bool isLast) {
    const auto low = [](std::size_t value) { return static_cast<std::uint8_t>(value); };
    const std::size_t size = part.size();
    const std::uint8_t head[] = {isLast, low(size), low(size >> 8), low(~size), low(~size >> 8)};
    return Append(head) && Append(part);
}

bool ChunkPacker::Deflate(std::span<const std::uint8_t> part, bool isLast) {
    isal_zstream stream;
    isal_deflate_stateless_init(&stream);
    stream.hist_bits = 0;  // The library leaves it as it was: chunks took up to five times the room.
    stream.level = Level;
    stream.level_buf = Workspace.data();
    stream.level_buf_size = static_cast<std::uint32_t>(Workspace.size());
    stream.gzip_flag = IGZIP_DEFLATE;
    stream.flush = isLast ? NO_FLUSH : FULL_FLUSH;
    stream.end_of_stream = isLast ? 1 : 0;
    stream.next_in = const_cast<std::uint8_t*>(part.data());
    stream.avail_in = static_cast<std::uint32_t>(part.size());
    stream.next_out = Packed.data() + Used;
    stream.avail_out = static_cast<std::uint32_t>(Packed.size() - SumSize - Used);
    if (isal_deflate_stateless(&stream) != COMP_OK) return false;
    Used += stream.total_out;
    return true;
}
}  // namespace kelvarin::hdf5
