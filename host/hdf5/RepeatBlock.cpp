#include "host/hdf5/RepeatBlock.h"

#include <bit>

namespace kelvarin::hdf5 {

namespace {

// Bits fill a byte from its low end.
class BitWriter {
  public:
    void Number(unsigned value, int bits) {
        for (int i = 0; i < bits; ++i) Bit((value >> i) & 1);
    }

    // The codes of symbols come with their high bit first.
    void Code(unsigned value, int bits) {
        while (bits-- > 0) Bit((value >> bits) & 1);
    }

    void FillByte() { Free = 0; }

    std::vector<std::uint8_t> Bytes;

  private:
    void Bit(unsigned bit) {
        if (Free == 0) {
            Bytes.push_back(0);
            Free = 8;
        }
        Bytes.back() = static_cast<std::uint8_t>(Bytes.back() | bit << (8 - Free--));
    }

    int Free = 0;  // bits of the last byte
};

}  // namespace

std::vector<std::uint8_t> MakeRepeatBlock(std::size_t size, bool isLast) {
    // The format's numbers: a block of fixed codes; lengths 227 to 257 are symbol 284 and 5 bits; the
    // distance 2^n is symbol 2n - 1 and n - 2 bits, all ones, the last of its group.
    constexpr std::size_t Length = 256;
    constexpr unsigned LengthCode = 0b11000100;
    constexpr unsigned LengthBits = Length - 227;
    const int power = std::countr_zero(size);
    BitWriter writer;
    writer.Number(isLast ? 1 : 0, 1);
    writer.Number(1, 2);
    for (std::size_t done = 0; done < size; done += Length) {
        writer.Code(LengthCode, 8);
        writer.Number(LengthBits, 5);
        writer.Code(static_cast<unsigned>(2 * power - 1), 5);
        writer.Number((1u << (power - 2)) - 1, power - 2);
    }
    writer.Code(0, 7);  // the end of the block
    if (!isLast) {
        // An empty stored block, which begins wherever the last one ended and ends on a whole byte.
        writer.Number(0, 3);
        writer.FillByte();
        writer.Number(0x0000, 16);
        writer.Number(0xFFFF, 16);
    }
    return writer.Bytes;
}

}  // namespace kelvarin::hdf5
