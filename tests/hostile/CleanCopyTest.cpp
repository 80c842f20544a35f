// Copies that can't be made, above all on a disk that fails: the copy is whole or not there, and nothing else
// is left.
#include "host/plan/CleanCopy.h"

#include <gtest/gtest.h>

#include "host/plan/CopyKit.h"
#include "kit/FaultCount.h"

namespace {

using namespace kelvarin::plan;

// Times in column 1, in no order.
ReadingPlan PlanOfRows() {
    return copies::PlanOf("t@ v#i", copies::Number(copies::OneSecond));
}

CopyOptions OnDisk() {
    CopyOptions options;
    options.MostSortedBytes = 1;
    return options;
}

constexpr const char* Source = "t;v\n3;3\n1;1\n2;2\n";
constexpr const char* Copy = "\xEF\xBB\xBFt\tv\tTime\n\t1\t1.000000000\n\t2\t2.000000000\n\t3\t3.000000000\n";

using HostileCleanCopy = FaultCount;

TEST_F(HostileCleanCopy, IsWholeOrNotThereWhateverCallFails) {
    const Workdir folder;
    const std::u16string source = folder.Write("source.csv", Source);
    int failures = 0;
    const auto copy = [&](FileFaults& faults) {
        folder.Write("copy.csv", "old");
        faults.Armed = true;
        const CopyResult result = WriteCleanCopy(source, PlanOfRows(), folder.Path("copy.csv"), OnDisk());
        faults.Armed = false;
        failures += !result.Failure.empty();
        EXPECT_TRUE(result.Failure.empty() || faults.Failing != FileCallCount) << result.Failure;
        // A write in place, where the folder takes no new file, may have begun.
        EXPECT_EQ(folder.Read("copy.csv"), result.Failure.empty() ? Copy : "old");
        EXPECT_EQ(folder.Read("source.csv"), Source);
        if (faults.Failing != CallRemove) {
            EXPECT_EQ(folder.Names(), "copy.csv source.csv");
        }
    };
    FailEachCall(copy, {EIO});
    EXPECT_GE(failures, 10);
}

TEST_F(HostileCleanCopy, SaysThatTheDiskIsFull) {
    const Workdir folder;
    const std::u16string source = folder.Write("source.csv", Source);
    for (const bool isSorting : {false, true}) {
        SCOPED_TRACE(isSorting ? "of the temporary files" : "of the copy");
        FileFaults faults;
        faults.Failing = CallWrite;
        faults.FailsAt = isSorting ? 1 : 4;  // after three rows
        faults.Error = ENOSPC;
        faults.Armed = true;
        const CopyResult result = WriteCleanCopy(source, PlanOfRows(), folder.Path("copy.csv"), OnDisk());
        faults.Armed = false;
        EXPECT_NE(result.Failure.find("No space left"), std::string::npos) << result.Failure;
        EXPECT_EQ(folder.Names(), "source.csv");
    }
}

TEST_F(HostileCleanCopy, LeavesNothingWhereItFails) {
    const Workdir folder;
    const ReadingPlan plan = PlanOfRows();
    const CopyResult missing =
        WriteCleanCopy(folder.Path("none.csv"), plan, folder.Path("copy.csv"), CopyOptions{});
    EXPECT_NE(missing.Failure.find("none.csv"), std::string::npos) << missing.Failure;
    EXPECT_EQ(folder.Names(), "");

    const std::u16string source = folder.Write("source.csv", "t;v\n0;1\n");
    const CopyResult nowhere = WriteCleanCopy(source, plan, folder.Path("no folder/copy.csv"), CopyOptions{});
    EXPECT_NE(nowhere.Failure, "");
    EXPECT_EQ(folder.Names(), "source.csv");
}

TEST_F(HostileCleanCopy, LeavesTheTargetAsItWasWhenInterrupted) {
    const Workdir folder;
    const std::u16string source = folder.Write("source.csv", "t;v\n0;1\n");
    folder.Write("copy.csv", "old");
    const std::atomic<bool> cancel = true;
    CopyOptions options;
    options.Cancel = &cancel;
    const CopyResult result = WriteCleanCopy(source, PlanOfRows(), folder.Path("copy.csv"), options);
    EXPECT_TRUE(result.Interrupted);
    EXPECT_EQ(folder.Read("copy.csv"), "old");
    EXPECT_EQ(folder.Names(), "copy.csv source.csv");
}

}  // namespace
