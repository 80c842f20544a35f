// A file that is read on from where it ended gives what it gives as a whole.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "host/HostSession.h"
#include "host/ranges/GeneratedTable.h"
#include "host/ranges/RunText.h"
#include "kit/HostModule.h"
#include "kit/TestProfile.h"
#include "kit/Workdir.h"

namespace {

using namespace kelvarin;

// Reads a file again and again while it grows.
class Follower {
  public:
    Follower(const GeneratedTable& table, bool guesses, bool readsRanges)
        : Table(table), Guesses(guesses), ReadsRanges(readsRanges) {}

    // All that is known of the file's whole lines now, by reading the new ones only if that can be done.
    std::string Read(const std::u16string& path) {
        if (End && BytesBefore(path, End->State.Offset) == End->Bytes) {
            const std::string text = ReadOnce(path, &*End);
            if (!text.empty()) return text;
        }
        Heard.emplace();
        return ReadOnce(path, nullptr);
    }

    int ReadOn = 0;  // times that only the new lines were read

  private:
    std::string ReadOnce(const std::u16string& path, const RunEnd* after) {
        plan::AutomaticOptions automatic;
        automatic.IsOff = !Guesses;
        if (!Guesses) automatic.Wishes = Table.Types;
        plan::AutomaticReading reading(HostModule(), path, {}, automatic);
        RunOptions options;
        options.KeepSamples = options.KeepMessages = KeepAll;
        options.Reading = &reading;
        options.Observer = &*Heard;
        options.WholeLines = options.NotesEnd = true;
        options.After = after;
        if (ReadsRanges) {
            options.Threads = 3;
            options.Sizes.LeastFile = options.Sizes.HeadLines = 1;
            options.Sizes.Range = 100;
        }
        HostSession session(HostModule(), path, options);
        RunResult result = session.Run();
        if (result.IsUnlike) return {};
        result.Progress.clear();
        const std::string text = DescribeRun(session, result) + Heard->Text();
        const std::string copied = reading.TakesCopy() ? "takes a copy\n" : "takes no copy\n";
        ReadOn += after != nullptr ? 1 : 0;
        End = session.End();
        return copied + text;
    }

    const GeneratedTable& Table;
    const bool Guesses, ReadsRanges;
    std::optional<HeardText> Heard;
    std::optional<RunEnd> End;
};

TEST(FollowedRun, GivesWhatTheWholeFileGivesWhereverItHasEnded) {
    Workdir folder;
    int readOn = 0;
    int all = 0;
    for (std::uint32_t number = 0; number < 40; ++number) {
        const GeneratedTable table = MakeTable(number);
        const bool guesses = number % 3 == 2;
        const bool readsRanges = number % 2 == 0;
        const TestProfile profile(guesses ? ::SettingList() : table.Settings);
        const std::u16string path = folder.Write("data.csv", table.Bytes);
        const std::string whole = Follower(table, guesses, readsRanges).Read(path);
        const std::size_t size = table.Bytes.size();
        for (std::size_t cut = 1; cut < size; cut += 1 + size / 8) {
            Follower follower(table, guesses, readsRanges);
            for (const std::size_t now : {cut, cut + (size - cut) / 2, size}) {
                folder.Write("data.csv", table.Bytes.substr(0, now));
                const std::string text = follower.Read(path);
                if (now != size) continue;
                ASSERT_EQ(text, whole)
                    << "table " << number << " with " << table.About << ", cut at " << cut << '\n'
                    << table.Bytes;
            }
            readOn += follower.ReadOn;
            all += 2;
        }
    }
    std::printf("%d of %d times only the new lines were read\n", readOn, all);
    EXPECT_GT(readOn, all / 4) << "too few to tell";
}

TEST(FollowedRun, LeavesOutALineThatMayStillBeWritten) {
    Workdir folder;
    const TestProfile profile;
    const struct {
        const char* Bytes;
        std::uint64_t Lines;
    } cases[] = {
        {"t;a\n0;1\n1;2\n2;3", 2}, {"t;a\n0;1\n1;2\n2;3\n", 3}, {"t;a\n0;1\n1;2\r\n2;3\r", 2},
        {"t;a\n0;1", 0},           {"t;a\n0;1\n", 1},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(testing::PrintToString(test.Bytes));
        const std::u16string path = folder.Write("data.csv", test.Bytes);
        plan::AutomaticReading reading(HostModule(), path, {}, {});
        RunOptions options;
        options.KeepSamples = KeepAll;
        options.Reading = &reading;
        options.WholeLines = options.NotesEnd = true;
        HostSession session(HostModule(), path, options);
        EXPECT_EQ(session.Run().Lines, test.Lines);
    }
}

}  // namespace
