// What becomes of rows when a format reads their times, and the texts that a trial takes from a table.
#include <gtest/gtest.h>

#include <limits>

#include "host/guess/TableTrial.h"
#include "platform/framework/Text.h"

namespace {

using kelvarin::guess::MisfitRows;
using kelvarin::guess::TableTrial;
using kelvarin::guess::TextList;
using kelvarin::guess::TimeReading;

constexpr std::int64_t Hour = 3'600'000'000'000;
constexpr std::int64_t No = -1;  // the format doesn't fit the row

TimeReading Judge(const std::vector<std::int64_t>& times) {
    std::vector<SampledRow> rows(times.size());
    for (std::size_t i = 0; i < rows.size(); ++i) rows[i].Line = i + 2;  // below a header
    return TimeReading(rows, times);
}

struct CountCase {
    const char* Name;
    std::vector<std::int64_t> Times;
    std::size_t Read;
    std::size_t Rising;
    std::size_t Falling;
    std::size_t Repeats;
    std::size_t RollOvers;
};

TEST(GuessTimeReading, CountsWhatAnImportWouldTake) {
    const CountCase cases[] = {
        {"no row", {}, 0, 0, 0, 0, 0},
        {"nothing fits", {No, No}, 0, 0, 0, 0, 0},
        {"one row rises and falls", {5}, 1, 1, 1, 0, 0},
        {"rising", {1, 2, 3}, 3, 3, 1, 0, 0},
        {"falling", {3, 2, 1}, 3, 1, 3, 0, 0},
        {"a repeat is neither", {1, 1, 2}, 3, 2, 1, 1, 0},
        {"back and forth: only later than all before", {5, 9, 6, 9, 10}, 5, 3, 1, 0, 0},
        {"misfits are left out", {1, No, 2, No}, 2, 2, 1, 0, 0},
        {"a repeat across a misfit", {4, No, 4}, 2, 1, 1, 1, 0},
        {"times before 1970 are times", {-3, -2}, 2, 2, 1, 0, 0},
        {"over midnight", {23 * Hour, 1 * Hour, 2 * Hour}, 3, 1, 2, 0, 1},
        {"twice over midnight", {20 * Hour, 4 * Hour, 24 * Hour, 0}, 4, 2, 3, 0, 2},
        {"too early in the evening", {20 * Hour - 1, 1 * Hour}, 2, 1, 2, 0, 0},
        {"too late in the morning", {23 * Hour, 4 * Hour + 1}, 2, 1, 2, 0, 0},
    };
    for (const CountCase& c : cases) {
        SCOPED_TRACE(c.Name);
        const TimeReading reading = Judge(c.Times);
        EXPECT_EQ(reading.Times, c.Times);
        EXPECT_EQ(reading.Read, c.Read);
        EXPECT_EQ(reading.Rising, c.Rising);
        EXPECT_EQ(reading.Falling, c.Falling);
        EXPECT_EQ(reading.Repeats, c.Repeats);
        EXPECT_EQ(reading.RollOvers, c.RollOvers);
    }
}

struct StepCase {
    const char* Name;
    std::vector<std::int64_t> Times;
    std::int64_t First;
    std::int64_t Last;
    std::int64_t Median;
    std::int64_t Largest;
    double RisingPart;
    bool IsDescending;
};

TEST(GuessTimeReading, MeasuresTheSteps) {
    constexpr std::int64_t Most = std::numeric_limits<std::int64_t>::max();
    const StepCase cases[] = {
        {"no row", {}, 0, 0, 0, 0, 0, false},
        {"one row", {7}, 7, 7, 0, 0, 1, false},
        {"even", {10, 20, 30}, 10, 30, 10, 10, 1, false},
        {"a gap", {10, 20, 30, 40, 90}, 10, 90, 10, 50, 1, false},
        {"a fall is no step", {10, 20, 5, 30}, 10, 30, 10, 10, 0.75, false},
        {"half fit", {10, No, 20, No}, 10, 20, 10, 10, 0.5, false},
        {"the newest first", {30, 20, 10}, 30, 10, 0, 0, 1.0 / 3, true},
        {"falling, but mostly repeated", {3, 3, 3, 2, 2}, 3, 2, 0, 0, 0.2, false},
        {"a step that no number holds wraps", {-Most, Most}, -Most, Most, -2, -2, 1, false},
    };
    for (const StepCase& c : cases) {
        SCOPED_TRACE(c.Name);
        const TimeReading reading = Judge(c.Times);
        EXPECT_EQ(reading.First, c.First);
        EXPECT_EQ(reading.Last, c.Last);
        EXPECT_EQ(reading.MedianStep, c.Median);
        EXPECT_EQ(reading.LargestStep, c.Largest);
        EXPECT_DOUBLE_EQ(reading.RisingPart(), c.RisingPart);
        EXPECT_EQ(reading.IsDescending(), c.IsDescending);
    }
}

struct MisfitCase {
    std::vector<std::int64_t> Times;
    std::vector<std::pair<std::uint64_t, std::uint64_t>> Kept;
    std::size_t Runs;
};

TEST(GuessTimeReading, KeepsTheFirstRunsOfMisfits) {
    const MisfitCase cases[] = {
        {{1, 2}, {}, 0},
        {{No, 2, 3}, {{2, 2}}, 1},
        {{1, No, No, 4, No}, {{3, 4}, {6, 6}}, 2},
        {{No, 1, No, 2, No, 3, No, No}, {{2, 2}, {4, 4}, {6, 6}}, 4},
    };
    for (const MisfitCase& c : cases) {
        const TimeReading reading = Judge(c.Times);
        std::vector<std::pair<std::uint64_t, std::uint64_t>> kept;
        for (const MisfitRows& misfit : reading.Misfits) kept.emplace_back(misfit.FirstLine, misfit.LastLine);
        EXPECT_EQ(kept, c.Kept);
        EXPECT_EQ(reading.MisfitRuns, c.Runs);
    }
}

// Reads a text of one digit as that many nanoseconds.
class DigitReader : public ITimeReader {
  public:
    std::vector<std::int64_t> ReadTimes(const std::u16string&, const std::vector<std::u16string>& texts,
                                        bool) override {
        std::vector<std::int64_t> times;
        for (const std::u16string& text : texts)
            times.push_back(text.size() == 1 && IsDigit(text[0]) ? text[0] - u'0' : No);
        return times;
    }
    std::u16string FormatLetters() override { return u"YMDhms"; }
};

TableSample TableOf(const std::vector<std::vector<std::u16string>>& rows) {
    TableSample table;
    table.Separator = u";";
    table.Names.resize(2);
    for (const std::vector<std::u16string>& cells : rows) table.Rows.push_back({0, cells});
    return table;
}

TEST(GuessTableTrial, TakesTextsOfOneColumnOrTwo) {
    DigitReader reader;
    const TableSample table = TableOf({{u"a", u"b"}, {u"c"}, {}});
    const TableTrial trial(reader, table);
    EXPECT_EQ(trial.Texts(0), (TextList{u"a", u"c", u""}));
    EXPECT_EQ(trial.Texts(1), (TextList{u"b", u"", u""}));
    EXPECT_EQ(trial.Texts(0, 1), (TextList{u"a;b", u"", u""}));
    EXPECT_EQ(trial.Texts(1, 0), (TextList{u"a;b", u"", u""}));
    EXPECT_EQ(trial.Texts(0, 0), trial.Texts(0));
}

struct ExamplesCase {
    TextList Texts;
    TextList Examples;
};

TEST(GuessTableTrial, TakesTheFirstTextAndTheLongestAsExamples) {
    DigitReader reader;
    const TableSample table;
    const TableTrial trial(reader, table);
    TextList many(32, u"1");
    many.push_back(u"1.25");  // beyond the rows looked at
    const ExamplesCase cases[] = {
        {{}, {}},
        {{u"", u""}, {}},
        {{u"", u"5", u"7"}, {u"5"}},
        {{u"5", u"5.25", u"6"}, {u"5", u"5.25"}},
        {many, {u"1"}},
    };
    for (const ExamplesCase& c : cases) EXPECT_EQ(trial.Examples(c.Texts), c.Examples);
}

TEST(GuessTableTrial, AFormatFitsWithHalfOfTheFirstRows) {
    DigitReader reader;
    const TableSample table;
    const TableTrial trial(reader, table);
    EXPECT_TRUE(trial.FitsFirstRows(u"x", {u"1", u"sum"}, false));
    EXPECT_FALSE(trial.FitsFirstRows(u"x", {u"1", u"sum", u"end"}, false));
    EXPECT_FALSE(trial.FitsFirstRows(u"x", {}, false));
    TextList late(32, u"1");
    late.resize(200, u"note");
    EXPECT_TRUE(trial.FitsFirstRows(u"x", late, false)) << "rows below the first ones do not count";
}

}  // namespace
