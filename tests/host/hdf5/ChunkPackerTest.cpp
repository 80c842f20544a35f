// The packing of chunks.
#include "host/hdf5/ChunkPacker.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <vector>

namespace {

// Leaves this value in the memory that the next calls use for their variables.
[[gnu::noinline]] void FillStack(std::uint16_t value) {
    volatile std::uint16_t memory[256 * 1024];
    for (auto& word : memory) word = value;
}

TEST(ChunkPacker, PacksAlikeWhateverMemoryHeldBefore) {
    // Lines of a text that repeats after 300 bytes: little is left if the packer looks back that far.
    std::vector<std::uint8_t> chunk(64 * 1024);
    for (std::size_t i = 0; i < chunk.size(); ++i) chunk[i] = static_cast<std::uint8_t>(i % 300 * 7 % 251);
    kelvarin::hdf5::ChunkPacker packer;
    for (const std::uint16_t before : std::initializer_list<std::uint16_t>{0, 1, 4, 9, 15, 16, 0xFFFF}) {
        FillStack(before);
        const auto packed = packer.Pack(chunk, 1);
        ASSERT_FALSE(packed.empty()) << "memory held " << before;
        EXPECT_LT(packed.size(), chunk.size() / 50) << "memory held " << before;
    }
}

}  // namespace
