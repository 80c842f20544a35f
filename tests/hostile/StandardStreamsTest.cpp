// Standard streams that are full, closed, or that nobody reads.
#include <gtest/gtest.h>

#include "host/store/SampleFile.h"
#include "kit/Shell.h"
#include "program/ProgramRun.h"

namespace {

constexpr const char* FullDevice =
    "kelvarin-import: standard output can't be written: No space left on device\n";

// Every command that prints anything.
const char* const Printing[] = {
    "import a.csv",
    "import --json --samples all a.csv",
    "import --json --jobs 2 a.csv b.csv",
    "analyze a.csv",
    "explain a.csv",
    "check --set TimestampFormat=JJJJ-MM-TT a.csv",
    "prepare --force a.csv",
    "prepare --force --json a.csv",
    "sidecar --json c.csv",
    "sidecar --check b.csv.info",
    "sidecar diff b.csv.info d.csv.info",
    "dialog --script script.txt a.csv",
    "completion zsh",
    "manual",
    "--help",
    "import --help",
    "--version",
};

class HostileStreams : public testing::Test {
  protected:
    HostileStreams() {
        for (const char* const name : {"a.csv", "b.csv", "c.csv", "d.csv"}) Run.Write(name, DatedRows);
        Run.Write("script.txt", "dump\ncancel\n");
        Run({"sidecar", "b.csv"});
        Run({"sidecar", "--set", "TimestampFormat=JJJJ-MM-TT", "d.csv"});
    }
    const ProgramRun Run;
};

TEST_F(HostileStreams, AFullDeviceIsAFailureOfEveryCommand) {
    for (const char* const line : Printing) {
        const std::string command = Run.CommandLine(Words(line));
        SCOPED_TRACE(command);
        const ShellResult result = RunShell(command + " 2>&1 >/dev/full");
        EXPECT_EQ(result.Status, 1) << result.Out;
        EXPECT_NE(result.Out.find(FullDevice), std::string::npos) << result.Out;
    }
}

TEST_F(HostileStreams, AReaderThatHasGoneEndsEveryCommandQuietly) {
    for (const char* const line : Printing) {
        const std::string command = Run.CommandLine(Words(line));
        SCOPED_TRACE(command);
        // The pipe is opened for both ends, since else that would wait, and then only the writing end stays.
        const std::string pipe = "'" + Run.Folder.NativePath("pipe").string() + "'";
        const ShellResult result =
            RunShell("rm -f " + pipe + "; mkfifo " + pipe + "; exec 3<>" + pipe + " 4>" + pipe + " 3<&-; (" +
                     command + " 2>&1 >&4 4>&-); echo \"status $?\"");
        EXPECT_TRUE(result.Out.ends_with("status 141\n")) << result.Out;
        EXPECT_EQ(result.Out.find("can't be written"), std::string::npos) << result.Out;
    }
}

TEST_F(HostileStreams, WorkThatLeavesAFileIsDoneOnAFullDevice) {
    const ShellResult result = RunShell(Run.CommandLine({"sidecar", "a.csv", "c.csv"}) + " 2>&1 >/dev/full");
    EXPECT_EQ(result.Status, 1) << result.Out;
    EXPECT_NE(Run.Folder.Read("a.csv.info"), "");
    EXPECT_NE(Run.Folder.Read("c.csv.info"), "");
}

TEST_F(HostileStreams, ClosedOnesLeaveTheirNumbersToNoFile) {
    if (!kelvarin::store::HasSampleFiles()) GTEST_SKIP() << "this build writes no such files";
    std::string wide = "t";
    for (int column = 0; column < 300; ++column) wide += ";c" + std::to_string(column);
    for (int row = 0; row < 50; ++row) {
        wide += "\n" + std::to_string(row);
        for (int column = 0; column < 300; ++column) wide += ";" + std::to_string(row * column);
    }
    Run.Write("wide.csv", wide + "\n");
    const std::vector<std::string> import = Words(
        "import --json --samples all --set TimestampFormat=[s] --set DateSetting=2 --store s.h5 wide.csv");
    for (const char* const closing : {"1>&-", "0<&- 1>&-", "1>&- 2>&-", "0<&- 1>&- 2>&-"}) {
        SCOPED_TRACE(closing);
        const std::string command = "(" + Run.CommandLine(import) + " " + closing + "); echo \"status $?\"";
        EXPECT_EQ(RunShell(command).Out, "status 0\n");
        EXPECT_EQ(Run({"verify", "s.h5", "wide.csv"}).Status, 0) << "the report must not be in the file";
    }
}

}  // namespace
