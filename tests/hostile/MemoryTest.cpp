// Lines, tables and sidecars that are too large.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include "kit/Shell.h"
#include "program/ProgramRun.h"
#include "settings/CsvInfoFile.h"

namespace {

constexpr std::uint64_t Mebi = 1 << 20;

// Makes a file of `size` bytes that takes no room on the disk: `head`, zeros, `tail`.
void WriteSparse(const std::filesystem::path& path, const std::string& head, std::uint64_t size,
                 const std::string& tail) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    ASSERT_GE(pwrite(file, head.data(), head.size(), 0), 0);
    ASSERT_GE(pwrite(file, tail.data(), tail.size(), static_cast<off_t>(size - tail.size())), 0);
    close(file);
}

TEST(HostileMemory, ASidecarOfAGibibyteIsNotRead) {
    const Workdir folder;
    WriteSparse(folder.NativePath("a.csv.info"), "<CSV-INFO>", 1024 * Mebi, "</CSV-INFO>");
    CCsvInfoFile file(folder.Path("a.csv"));
    EXPECT_EQ(file.Read(), 1);
    EXPECT_EQ(file.GetDiagnosis().Reason, "the file is larger than 1 MiB");
    EXPECT_EQ(file.GetDiagnosis().Line, 1);
}

TEST(HostileMemory, ASidecarMayHaveManyAttributes) {
    std::string attributes;
    for (int i = 0; i < 60'000; ++i) attributes += " a" + std::to_string(i) + "=''";
    const Workdir folder;
    folder.Write("a.csv.info", "<CSV-INFO format-rev='9'" + attributes + "/>");
    CCsvInfoFile file(folder.Path("a.csv"));
    EXPECT_EQ(file.Read(), 0);
    folder.Write("a.csv.info", "<CSV-INFO" + attributes + " a0=''/>");
    EXPECT_GT(file.Read(), 0);
    EXPECT_EQ(file.GetDiagnosis().Reason, "the attribute a0 stands twice");
}

// The line numbers of a sidecar are any: what is added to them must not leave the numbers' range, which
// UndefinedBehaviorSanitizer sees.
TEST(HostileMemory, AStartLineMayBeAnyNumber) {
    for (const char* const line : {"2147483645", "2147483646", "2147483647", "-1", "-2147483648"}) {
        SCOPED_TRACE(line);
        const ProgramRun run;
        run.Write("a.csv", "n;m\n1;2\n");
        run.Write("a.csv.info", "<CSV-INFO format-rev='2'><START-LINE>" + std::string(line) +
                                    "</START-LINE><SEPARATOR>;</SEPARATOR><DELIMITER-DECIMAL-POINT>."
                                    "</DELIMITER-DECIMAL-POINT><DELIMITER-MIL>_</DELIMITER-MIL></CSV-INFO>");
        for (const char* const command : {"import", "analyze", "explain", "check", "sidecar"}) {
            const ProgramResult result = run({command, "a.csv"});
            EXPECT_LT(result.Status, 4) << command << ": " << result.Err;
            EXPECT_EQ(result.Err.find("runtime error"), std::string::npos) << command << ": " << result.Err;
        }
    }
}

TEST(LimitsHostileMemory, AMillionColumnsTakeFourHundredMegabytes) {
    const ProgramRun run;
    std::string bytes;
    for (const char* const cell : {"n", "1", "2", "3"}) {
        for (int column = 0; column < 1'000'000; ++column)
            bytes += (column == 0 ? "" : ";") + std::string(cell);
        bytes += "\n";
    }
    run.Write("wide.csv", bytes);
    for (const char* const command : {"import", "analyze", "explain"}) {
        rusage after{};
        std::vector<std::string> arguments = {command, "--set",         "TimeSetting=1",
                                              "--set", "DateSetting=2", "wide.csv"};
        const ProgramResult result = run(arguments);
        getrusage(RUSAGE_CHILDREN, &after);
        EXPECT_EQ(result.Status, 0) << result.Err;
        EXPECT_LT(after.ru_maxrss, 400'000'000 / 1024) << command;
        EXPECT_NE(result.Out.find("999800 more columns"), std::string::npos) << result.Out.substr(0, 2000);
    }
}

// What each command does with a file that it has no room for: names it, and does the others.
TEST(LimitsHostileMemory, ALineOfThreeGibibytesFailsAlone) {
    const ProgramRun run;
    run.Write("a.csv", "n;m\n1;2\n3;4\n");
    run.Write("b.csv", "n;m\n1;2\n");
    WriteSparse(run.Folder.NativePath("huge.csv"), "n;m\n5;", 3072 * Mebi, "x\n6;7\n");
    const std::string counted = " --set TimeSetting=1 --set DateSetting=2";
    for (const std::string command :
         {"import --json", "import --jobs 2", "analyze", "explain", "check --json", "import --guess-time",
          "import --store s.h5", "sidecar"}) {
        SCOPED_TRACE(command);
        const ShellResult result = RunShell("ulimit -v 1000000; cd '" + run.Folder.NativePath("").string() +
                                            "'; XDG_CONFIG_HOME=config LC_ALL=C " KELVARIN_IMPORT " " +
                                            command + counted + " a.csv huge.csv b.csv 2>&1");
        EXPECT_EQ(result.Status, 1) << result.Out;
        EXPECT_NE(result.Out.find("kelvarin-import: huge.csv: not enough memory\n"), std::string::npos)
            << result.Out;
        EXPECT_NE(result.Out.find("a.csv"), std::string::npos) << result.Out;
        EXPECT_NE(result.Out.find("b.csv"), std::string::npos) << result.Out;
    }
    const ProgramResult check = run({"verify", "s.h5", "a.csv", "b.csv"});
    EXPECT_EQ(check.Status, 0) << check.Out << check.Err;
}

}  // namespace
