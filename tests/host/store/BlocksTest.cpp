// Blocks of values: what is kept comes back, in as little room as it needs.
#include <gtest/gtest.h>

#include <cstring>

#include "host/store/Blocks.h"
#include "host/store/TextBlocks.h"

namespace {

using namespace kelvarin::store;

TEST(Arena, GivesPiecesThatNeverOverlap) {
    Arena arena;
    std::vector<std::pair<unsigned char*, std::size_t>> pieces;
    for (const std::size_t size : {1u, 15u, 16u, 65'536u, 3u, 3'000'000u, 1u, 1'000'000u}) {
        auto* const piece = static_cast<unsigned char*>(arena.Allocate(size));
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(piece) % alignof(std::max_align_t), 0u) << size;
        std::memset(piece, static_cast<int>(pieces.size()), size);
        pieces.emplace_back(piece, size);
    }
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const auto [piece, size] = pieces[i];
        EXPECT_TRUE(piece[0] == i && piece[size - 1] == i) << "piece " << i;
    }
}

TEST(PackIntegers, TakesTheLeastWidth) {
    const struct {
        std::vector<std::int64_t> Values;
        std::uint32_t Width;
    } cases[] = {
        {{}, 1},
        {{0, -1, 127, -128}, 1},
        {{0, 128}, 2},
        {{-129}, 2},
        {{INT16_MAX, INT16_MIN}, 2},
        {{INT16_MAX + 1}, 4},
        {{INT32_MIN, INT32_MAX}, 4},
        {{1, INT32_MIN - std::int64_t{1}}, 8},
        {{INT64_MAX, INT64_MIN, 0}, 8},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(testing::PrintToString(test.Values));
        Arena arena;
        const KeptBlock block = PackIntegers(test.Values, arena);
        EXPECT_EQ(block.Width, test.Width);
        std::vector<std::int64_t> read;
        for (std::size_t i = 0; i < block.Count; ++i) read.push_back(UnpackInteger(block, i));
        EXPECT_EQ(read, test.Values);
    }
}

// Appends 0, 1, 2 and so on; the first `kept` blocks are kept.
template <class Value>
std::string ReadBack(std::size_t count, std::size_t kept) {
    Arena arena;
    BlockList<Value> list(arena);
    std::vector<Value> expected;
    std::size_t flushed = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (list.IsFull()) {
            const bool keep = flushed++ <= kept;  // the first call only makes room
            if (!keep) expected.resize(expected.size() - list.Open().size());
            list.Flush(keep);
        }
        list.Append(static_cast<Value>(i));
        expected.push_back(static_cast<Value>(i));
    }
    typename BlockList<Value>::Reader reader(list);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (reader.Next() != expected[i]) return "differs at " + std::to_string(i);
    }
    return "equal";
}

TEST(BlockList, ReadsKeptAndOpenBlocks) {
    for (const std::size_t count : {0u, 1u, 64u, 65u, 192u, 193u, 50'000u}) {
        for (const std::size_t kept : {0u, 1u, 3u, 1000u}) {
            SCOPED_TRACE(std::to_string(count) + " values, " + std::to_string(kept) + " blocks kept");
            EXPECT_EQ(ReadBack<std::int64_t>(count, kept), "equal");
            EXPECT_EQ(ReadBack<double>(count, kept), "equal");
            EXPECT_EQ(ReadBack<std::uint32_t>(count, kept), "equal");
        }
    }
}

TEST(TextBlocks, KeepsTextsNarrowWhereItCan) {
    const struct {
        std::u16string Text;
        bool IsNarrow;
    } cases[] = {
        {u"", true},
        {u"zu", true},
        {u"\xFF", true},
        {u"\x100", false},
        {u"12345678", true},
        {u"1234567\x20AC", false},
        {u"12345678\x20AC", false},
        {u"\xD800", false},
        {std::u16string(100'000, u'x'), true},
        {std::u16string(70'000, u'\x3A9'), false},
        {u"", true},
    };
    Arena arena;
    TextBlocks texts(arena);
    for (const auto& test : cases)
        EXPECT_EQ(texts.Append(test.Text.data(), test.Text.size()), test.IsNarrow) << test.Text.size();
    TextBlocks::Reader reader(texts);
    for (const auto& test : cases) {
        const std::u16string read(reader.Next(test.Text.size(), test.IsNarrow), test.Text.size());
        EXPECT_TRUE(read == test.Text) << test.Text.size();
    }
}

}  // namespace
