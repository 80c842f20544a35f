// A file that is read in ranges gives what it gives line by line.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <sstream>

#include "host/HostSession.h"
#include "host/Reading.h"
#include "host/ranges/GeneratedTable.h"
#include "kit/HostModule.h"
#include "kit/TestProfile.h"
#include "kit/Workdir.h"
#include "platform/framework/Text.h"

namespace {

using namespace kelvarin;

void Describe(const store::StoredSignal& signal, std::ostream& out) {
    const store::SignalDescription about = signal.Description();
    const store::SignalSummary sum = signal.Summary();
    out << Utf16ToUtf8(about.Name) << '/' << Utf16ToUtf8(about.Symbol) << '[' << Utf16ToUtf8(about.Unit)
        << "] type " << about.Type << " column " << about.Column << " metadata " << about.MetaData.size()
        << '\n'
        << sum.Count << " samples, " << sum.WithoutValue << " without, " << sum.FirstTime << " to "
        << sum.LastTime << ", first " << testing::PrintToString(sum.First) << ", last "
        << testing::PrintToString(sum.Last) << ", " << sum.Plot.Draw(64) << sum.Plot.Range().Lowest << ' '
        << sum.Plot.Range().Highest << '\n';
    signal.VisitSamples(KeepAll, [&](std::int64_t time, const void* data, std::uint32_t size) {
        out << time << '=';
        for (std::uint32_t i = 0; i < size && data != nullptr; ++i)
            out << int{static_cast<const unsigned char*>(data)[i]} << '.';
        out << (data == nullptr ? "none " : " ");
    });
    out << '\n';
}

// All that a run gives, as text.
std::string Describe(const HostSession& session, const RunResult& result) {
    std::ostringstream out;
    out << "begun " << result.Begun << ", failed " << result.Failed << ' ' << result.Failure << ", lines "
        << result.Lines << ", progress " << testing::PrintToString(result.Progress) << '\n';
    for (const MessageGroup& group : session.Messages().Groups())
        out << Utf16ToUtf8(group.FirstText) << " x " << group.Count << " in "
            << testing::PrintToString(group.Lines) << (group.Failure ? " !" : "") << '\n';
    for (const ImportMessage& message : session.Messages().Kept())
        out << message.Column << (message.Failure ? '!' : ':') << Utf16ToUtf8(message.Text) << '\n';
    for (const ColumnSummary& column : SummarizeColumns(session.Filter()))
        out << Utf16ToUtf8(column.Name) << " [" << Utf16ToUtf8(column.Unit) << "] ";
    out << '\n';
    if (session.Device() == nullptr) return out.str();
    for (const auto& signal : session.Device()->Signals) Describe(*signal, out);
    return out.str();
}

struct Cut {
    std::size_t Threads;
    std::uint64_t Range;  // bytes
    std::uint64_t HeadLines;
};

struct Outcome {
    std::string Text;
    bool TakesCopy;
    std::uint64_t Repeated;
};

// Without a cut line by line.
Outcome Import(const std::u16string& path, const GeneratedTable& table, bool guesses, std::size_t keep,
               const Cut* cut = nullptr, bool givesUp = false) {
    plan::AutomaticOptions automatic;
    automatic.IsOff = !guesses;
    if (!guesses) automatic.Wishes = table.Types;
    plan::AutomaticReading reading(HostModule(), path, {}, automatic);
    RunOptions options;
    options.KeepSamples = keep;
    options.KeepMessages = KeepAll;
    options.Reading = &reading;
    options.Threads = cut == nullptr ? 1 : cut->Threads;
    if (cut != nullptr) options.Sizes = {1, cut->Range, cut->HeadLines, givesUp};
    HostSession session(HostModule(), path, options);
    const RunResult result = session.Run();
    const std::string text = Describe(session, result);
    return {text, reading.TakesCopy(), result.RepeatedRanges};
}

// Every number of bytes up to the length of a line, so that each line begins a range of some run, and more.
std::vector<Cut> Cuts(std::size_t size) {
    std::vector<Cut> cuts = {{2, 1, 1}, {4, 1, 3}, {3, 1, 10}};
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
        const Outcome whole = Import(path, table, guesses, keep);
        for (const Cut& cut : Cuts(table.Bytes.size())) {
            const Outcome ranges = Import(path, table, guesses, keep, &cut, number % 5 == 0);
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

TEST(LimitsRanges, GiveWhatTheWholeFileGivesInManyTables) {
    EXPECT_GT(CompareRuns(40, 1000), 500u) << "too few ranges that began from another state";
}

}  // namespace
