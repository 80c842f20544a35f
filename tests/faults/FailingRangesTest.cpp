// A file that breaks, shrinks or grows while it is read in ranges ends the run as it does line by line.
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

#include "host/ranges/RunText.h"
#include "kit/HostModule.h"
#include "kit/TestProfile.h"
#include "kit/Workdir.h"
#include "platform/framework/portable/FileCalls.h"

namespace {

using namespace kelvarin;

constexpr off_t BadByte = 150'000;

// A disk that gives little at a time, so that a reader is never far ahead, and from BadByte on nothing while
// it is broken.
class BrokenDisk {
  public:
    BrokenDisk() {
        IsBroken = false;
        GetFileCalls().Read = [](int descriptor, void* data, std::size_t size) {
            return ReadPart(descriptor, data, size, lseek(descriptor, 0, SEEK_CUR), true);
        };
        GetFileCalls().ReadAt = [](int descriptor, void* data, std::size_t size, off_t at) {
            return ReadPart(descriptor, data, size, at, false);
        };
    }
    BrokenDisk(const BrokenDisk&) = delete;
    BrokenDisk& operator=(const BrokenDisk&) = delete;
    ~BrokenDisk() { GetFileCalls() = Real; }

    static inline std::atomic<bool> IsBroken = false;

  private:
    static ssize_t ReadPart(int descriptor, void* data, std::size_t size, off_t at, bool moves) {
        constexpr std::size_t Part = 1000;
        size = std::min(size, Part);
        if (IsBroken && at >= BadByte) {
            errno = EIO;
            return -1;
        }
        if (IsBroken) size = std::min(size, static_cast<std::size_t>(BadByte - at));
        return moves ? read(descriptor, data, size) : pread(descriptor, data, size, at);
    }

    const FileCalls Real = GetFileCalls();
};

std::string Rows(int begin, int end) {
    std::string text;
    for (int row = begin; row < end; ++row)
        text += std::to_string(row) + ";" + (row % 500 == 0 ? "x" : std::to_string(row * 3)) + ";2,5\n";
    return text;
}

constexpr int RowCount = 15'000;

ranges::RangeSizes RangesOf(std::uint64_t bytes) {
    ranges::RangeSizes sizes;
    sizes.LeastFile = 1;
    sizes.Range = bytes;
    sizes.GivesUp = false;
    return sizes;
}

struct Fault {
    const char* Name;
    void (*Do)(const std::filesystem::path& path);  // after the run has begun
    bool Fails;
    int LeastRows, MostRows;  // that are then stored
};

TEST(FaultsOfRanges, EndARunAsWithoutRanges) {
    const Fault faults[] = {
        {"nothing", [](const auto&) {}, false, RowCount, RowCount},
        {"a bad byte", [](const auto&) { BrokenDisk::IsBroken = true; }, true, 5000, RowCount - 1},
        {"cut", [](const auto& path) { std::filesystem::resize_file(path, 123'456); }, false, 5000,
         RowCount - 1},
        {"grown",
         [](const auto& path) { std::ofstream(path, std::ios::app) << Rows(RowCount + 1, RowCount + 701); },
         false, RowCount + 700, RowCount + 700},
        {"removed", [](const auto& path) { std::filesystem::remove(path); }, false, RowCount, RowCount},
    };
    const TestProfile profile({"AutoFormat=0", "Separator=0", "FirstLine=1", "ImportHeader=1",
                               "DateSetting=2", "TimeColumn=1", "TimestampFormat=[s]"});
    for (const Fault& fault : faults) {
        SCOPED_TRACE(fault.Name);
        std::string line;
        for (const std::size_t threads : {std::size_t{1}, std::size_t{2}, std::size_t{3}}) {
            Workdir folder;
            const std::u16string path = folder.Write("data.csv", "t;n;v\n" + Rows(1, RowCount + 1));
            const BrokenDisk disk;
            RunOptions options;
            options.KeepSamples = KeepAll;
            options.KeepMessages = KeepAll;
            options.Threads = threads;
            options.Sizes = RangesOf(8000);
            options.OnBegun = [&](const CImportFilter&) { fault.Do(folder.NativePath("data.csv")); };
            HostSession session(HostModule(), path, options);
            const RunResult result = session.Run();
            EXPECT_EQ(result.Failed, fault.Fails);
            const auto stored = static_cast<int>(session.Device()->Signals.front()->Summary().Count);
            EXPECT_GE(stored, fault.LeastRows);
            EXPECT_LE(stored, fault.MostRows);
            const std::string text = DescribeRun(session, result);
            if (threads == 1) line = text;
            EXPECT_TRUE(text == line) << text.substr(0, 3000) << "\nline by line\n" << line.substr(0, 3000);
        }
    }
}

// Takes a number of times and fails.
class FullSink final : public store::DeviceSink {
  public:
    store::SignalSink* AddSignal(const store::SignalDescription&) override { return nullptr; }
    void TakeTime(std::int64_t) override { ++Times; }
    bool HasFailed() const override { return Times >= 5000; }

    int Times = 0;
};

TEST(FaultsOfRanges, ASinkThatFailsEndsTheRun) {
    const TestProfile profile({"AutoFormat=0", "Separator=0", "FirstLine=1", "ImportHeader=1",
                               "DateSetting=2", "TimeColumn=1", "TimestampFormat=[s]"});
    Workdir folder;
    const std::u16string path = folder.Write("data.csv", "t;n;v\n" + Rows(1, RowCount + 1));
    for (const std::size_t threads : {std::size_t{1}, std::size_t{3}}) {
        FullSink sink;
        RunOptions options;
        options.Sink = &sink;
        options.Threads = threads;
        options.Sizes = RangesOf(4000);
        HostSession session(HostModule(), path, options);
        const RunResult result = session.Run();
        EXPECT_FALSE(result.Failed || result.Interrupted);
        EXPECT_EQ(result.Lines, static_cast<std::uint64_t>(sink.Times));
        EXPECT_LT(sink.Times, 6000) << threads << " threads: the run goes on";
    }
}

TEST(FaultsOfRanges, AnInterruptKeepsTheRowsBeforeIt) {
    const TestProfile profile({"AutoFormat=0", "Separator=0", "FirstLine=1", "ImportHeader=1",
                               "DateSetting=2", "TimeColumn=1", "TimestampFormat=[s]"});
    Workdir folder;
    const std::u16string path = folder.Write("data.csv", "t;n;v\n" + Rows(1, RowCount + 1));
    std::atomic<bool> cancel = false;
    RunOptions options;
    options.KeepSamples = KeepAll;
    options.Threads = 3;
    options.Sizes = RangesOf(4000);
    options.Cancel = &cancel;
    options.OnProgress = [&](std::uint32_t percent) { cancel = percent >= 50; };
    HostSession session(HostModule(), path, options);
    const RunResult result = session.Run();
    EXPECT_TRUE(result.Interrupted);
    EXPECT_FALSE(result.Failed);
    EXPECT_GE(result.Lines, RowCount / 3);
    EXPECT_LT(result.Lines, RowCount);
    for (const auto& signal : session.Device()->Signals) {
        EXPECT_EQ(signal->Summary().Count, result.Lines);
        std::int64_t row = 0;
        std::int64_t first = 0;
        signal->VisitSamples(KeepAll, [&](std::int64_t time, const void*, std::uint32_t) {
            if (row == 0) first = time;
            EXPECT_EQ(time, first + row++ * 1'000'000'000);
        });
        EXPECT_EQ(row, static_cast<std::int64_t>(result.Lines));
    }
}

}  // namespace
