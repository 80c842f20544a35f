// A file that is read in ranges gives what it gives line by line.
#include <gtest/gtest.h>

#include "host/HostSession.h"
#include "host/ranges/GeneratedTable.h"
#include "host/ranges/RunText.h"
#include "kit/HostModule.h"
#include "kit/TestProfile.h"
#include "kit/Workdir.h"

namespace {

using namespace kelvarin;

struct Cut {
    std::size_t Threads;
    std::uint64_t Range;  // bytes
    std::uint64_t HeadLines;
    bool AssumesHead = false;
};

// Who gets what the run gives, beside its device.
enum class Told { Nobody, Observer, ObserverAndSink };

struct Outcome {
    std::string Text;
    bool TakesCopy;
    std::uint64_t Repeated;
};

// Without a cut line by line.
Outcome Import(const std::u16string& path, const GeneratedTable& table, bool guesses, std::size_t keep,
               Told told, const Cut* cut = nullptr, bool givesUp = false) {
    plan::AutomaticOptions automatic;
    automatic.IsOff = !guesses;
    if (!guesses) automatic.Wishes = table.Types;
    plan::AutomaticReading reading(HostModule(), path, {}, automatic);
    RunOptions options;
    options.KeepSamples = keep;
    options.KeepMessages = KeepAll;
    options.Reading = &reading;
    HeardText heard;
    if (told != Told::Nobody) options.Observer = &heard;
    SunkText sunk;
    if (told == Told::ObserverAndSink) options.Sink = &sunk;
    options.Threads = cut == nullptr ? 1 : cut->Threads;
    if (cut != nullptr) {
        options.Sizes.LeastFile = 1;
        options.Sizes.Range = cut->Range;
        options.Sizes.HeadLines = cut->HeadLines;
        options.Sizes.GivesUp = givesUp;
        options.Sizes.AssumesHead = cut->AssumesHead;
        if (givesUp) options.Sizes.MostMessages = 2000;
        if (givesUp && cut->HeadLines == 1) options.Sizes.LongestLine = 40;
    }
    HostSession session(HostModule(), path, options);
    const RunResult result = session.Run();
    const std::string text = DescribeRun(session, result) + heard.Text() + sunk.Text();
    return {text, reading.TakesCopy(), result.RepeatedRanges};
}

// Every number of bytes up to the length of a line, so that each line begins a range of some run, and more.
std::vector<Cut> Cuts(std::size_t size) {
    std::vector<Cut> cuts = {{2, 1, 1}, {4, 1, 3}, {3, 1, 10}, {2, 1, 1, true}};
    for (std::uint64_t range = 2; range < size; range += 1 + range / 3) cuts.push_back({2, range, 1});
    return cuts;
}

// Compares the runs of tables with cuts everywhere. Returns how many ranges were imported again.
std::uint64_t CompareRuns(std::uint32_t begin, std::uint32_t end) {
    Workdir folder;
    std::uint64_t runs = 0;
    std::uint64_t repeated = 0;
    for (std::uint32_t number = begin; number < end; ++number) {
        const GeneratedTable table = MakeTable(number);
        const bool guesses = number % 3 == 2;
        const TestProfile profile(guesses ? ::SettingList() : table.Settings);
        const std::u16string path = folder.Write("data.csv", table.Bytes);
        const std::size_t keep = number % 4 == 0 ? 0 : number % 4 == 1 ? 10 : KeepAll;
        const Told told = number % 7 == 0  ? Told::Nobody
                          : number % 7 < 4 ? Told::Observer
                                           : Told::ObserverAndSink;
        const Outcome whole = Import(path, table, guesses, keep, told);
        for (const Cut& cut : Cuts(table.Bytes.size())) {
            const Outcome ranges = Import(path, table, guesses, keep, told, &cut, number % 5 == 0);
            EXPECT_EQ(ranges.Text, whole.Text)
                << "table " << number << " with " << table.About << ", ranges of " << cut.Range << " bytes\n"
                << table.Bytes;
            EXPECT_EQ(ranges.TakesCopy, whole.TakesCopy) << "table " << number;
            if (testing::Test::HasFailure()) return repeated;
            ++runs;
            repeated += ranges.Repeated;
        }
    }
    std::printf("%d runs, %d ranges imported again\n", static_cast<int>(runs), static_cast<int>(repeated));
    return repeated;
}

TEST(Ranges, GiveWhatTheWholeFileGivesWhereverItIsCut) {
    EXPECT_GT(CompareRuns(0, 40), 50u) << "too few ranges that began from another state";
}

// Of the rows that fall the first is a total and left out without a word, wherever it is.
TEST(Ranges, ConfirmARangeOnlyIfItsGuideKnewOfTheTotalBefore) {
    plan::ReadingPlan plan;
    plan.EndsInTotal = true;
    plan::RunGuide run(plan, nullptr, true);
    const DroppedRow falls{{}, DropReason::Falls, u"", 1, {}};
    plan::RunGuide first = run.ForRange();
    plan::RunGuide second = run.ForRange();
    const plan::RunGuide quiet = run.ForRange();
    EXPECT_TRUE(first.IsNoRow(falls));
    EXPECT_TRUE(second.IsNoRow(falls));
    EXPECT_TRUE(run.Confirms(first));
    run.Add(first);
    EXPECT_FALSE(run.Confirms(second));
    EXPECT_TRUE(run.Confirms(quiet));
    plan::RunGuide again = run.ForRange();
    EXPECT_FALSE(again.IsNoRow(falls));
    EXPECT_TRUE(run.Confirms(again));
    EXPECT_FALSE(run.AreLossesAvoidable());
    run.Add(again);
    EXPECT_TRUE(run.AreLossesAvoidable());
}

// Only amounts in the unit of the first one are counted, and ranges don't know of it from the start.
TEST(Ranges, CountAmountsInTheUnitOfTheFirst) {
    plan::ReadingPlan plan;
    plan.Mark = u'.';
    plan.Columns = {{u"m", u"", plan::ColumnType::Integer}};
    plan::RunGuide run(plan, nullptr, true);
    run.IsMissing(0, u"5 kg");
    plan::RunGuide other = plan::RunGuide(plan, nullptr, true).ForRange();
    other.IsMissing(0, u"1.5 m");
    other.IsMissing(0, u"2.5 kg");
    EXPECT_FALSE(run.Confirms(other)) << "one thread counts the kilograms";
    plan::RunGuide range = run.ForRange();
    range.IsMissing(0, u"1.5 m");
    EXPECT_TRUE(run.Confirms(range));
    run.Add(range);
    EXPECT_FALSE(run.AreLossesAvoidable()) << "metres are none of the column's amounts";
    plan::RunGuide next = run.ForRange();
    next.IsMissing(0, u"2.5 kg");
    EXPECT_TRUE(run.Confirms(next));
    run.Add(next);
    EXPECT_TRUE(run.AreLossesAvoidable());
}

TEST(LimitsRanges, GiveWhatTheWholeFileGivesInManyTables) {
    EXPECT_GT(CompareRuns(40, 1000), 500u) << "too few ranges that began from another state";
}

}  // namespace
