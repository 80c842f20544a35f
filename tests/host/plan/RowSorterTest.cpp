// Rows in the order of their times, in memory and by way of the disk.
#include "host/plan/RowSorter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace {

using namespace kelvarin::plan;

struct TimedRow {
    std::int64_t Time;
    std::uint64_t Line;
    std::string Text;
    bool operator==(const TimedRow&) const = default;
};

// As a failure shows it.
std::ostream& operator<<(std::ostream& out, const TimedRow& row) {
    return out << row.Time << " " << row.Line << " " << row.Text.substr(0, 20);
}

constexpr std::size_t Unbounded = std::size_t{1} << 30;

std::vector<TimedRow> Sorted(const std::vector<TimedRow>& rows, std::size_t mostBytes, std::size_t& pieces) {
    RowSorter sorter(mostBytes);
    for (const TimedRow& row : rows) sorter.Add(row.Time, row.Line, row.Text);
    std::vector<TimedRow> sorted;
    sorter.Finish([&](const SortedRow& row) {
        sorted.push_back({row.Time, row.Line, std::string(row.Text)});
        return true;
    });
    pieces = sorter.Pieces();
    return sorted;
}

// Few different times, so that many rows are of one; texts of any length, also none.
std::vector<TimedRow> ManyRows(std::size_t count, std::int64_t times) {
    std::mt19937 random(7);
    std::vector<TimedRow> rows;
    for (std::size_t i = 0; i < count; ++i) {
        const auto time = static_cast<std::int64_t>(random() % static_cast<std::uint32_t>(times)) - times / 2;
        rows.push_back({time, i + 1, std::string(random() % 60, static_cast<char>('a' + i % 26))});
    }
    return rows;
}

TEST(RowSorter, IsTheStableSortWhateverTheMemory) {
    const struct {
        const char* About;
        std::vector<TimedRow> Rows;
        std::size_t MostBytes;
        bool UsesDisk;
    } cases[] = {
        {"no row", {}, Unbounded, false},
        {"no row and no memory", {}, 0, false},
        {"in memory", ManyRows(2000, 50), Unbounded, false},
        {"few large pieces", ManyRows(2000, 50), 30'000, true},
        {"a piece for each row", ManyRows(300, 10), 1, true},
        {"all of one time", ManyRows(500, 1), 3000, true},
        {"backwards", {{3, 1, "c"}, {2, 2, "b"}, {1, 3, "a"}}, 1, true},
        {"a row beyond all blocks", {{2, 1, std::string(600'000, 'x')}, {1, 2, "a"}, {2, 3, ""}}, 1000, true},
        {"extreme times", {{INT64_MAX, 1, "c"}, {INT64_MIN, 2, "a"}, {0, 3, "b"}}, Unbounded, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.About);
        std::vector<TimedRow> wanted = c.Rows;
        std::stable_sort(wanted.begin(), wanted.end(),
                         [](const TimedRow& a, const TimedRow& b) { return a.Time < b.Time; });
        std::size_t pieces = 0;
        EXPECT_EQ(Sorted(c.Rows, c.MostBytes, pieces), wanted);
        EXPECT_EQ(pieces > 0, c.UsesDisk);
    }
}

TEST(RowSorter, EndsWhenNoMoreRowsAreTaken) {
    for (const std::size_t mostBytes : {Unbounded, std::size_t{1}}) {
        SCOPED_TRACE(mostBytes);
        RowSorter sorter(mostBytes);
        for (std::int64_t time = 5; time > 0; --time)
            sorter.Add(time, static_cast<std::uint64_t>(6 - time), "row");
        std::vector<std::int64_t> times;
        sorter.Finish([&](const SortedRow& row) {
            times.push_back(row.Time);
            return row.Time < 2;
        });
        EXPECT_EQ(times, (std::vector<std::int64_t>{1, 2}));
    }
}

}  // namespace
