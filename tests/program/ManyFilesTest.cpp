// Folders, patterns and processes.
#include <gtest/gtest.h>

#include <algorithm>

#include "host/SourceFiles.h"
#include "program/ProgramRun.h"

namespace {

struct PatternCase {
    const char* Name;
    const char* Pattern;
    bool Fits;
};

TEST(ManyFiles, PatternsKnowStarsAndQuestionMarks) {
    const PatternCase cases[] = {
        {"a.csv", "*.csv", true}, {"A.CSV", "*.csv", true},   {"a.csv.info", "*.csv", false},
        {"a.csv", "?.csv", true}, {"ab.csv", "?.csv", false}, {"ä.csv", "?.csv", true},
        {"aXbXc", "a*b*c", true}, {"abcb", "a*b", true},      {"abc", "a*b", false},
        {"", "*", true},          {"a", "", false},           {"run-07.txt", "run-0?.*", true},
    };
    for (const PatternCase& c : cases) {
        EXPECT_EQ(kelvarin::MatchesPattern(c.Name, c.Pattern), c.Fits) << c.Name << " by " << c.Pattern;
    }
}

std::string WithStrokes(std::string paths) {
    std::replace(paths.begin(), paths.end(), '\\', '/');
    return paths;
}

class Folders : public testing::Test {
  protected:
    Folders() {
        std::filesystem::create_directories(Run.Folder.NativePath("d/deep"));
        Run.Write("d/b.csv", "t;v\n2024-02-01;1\n2024-02-02;2\n");
        Run.Write("d/a.TXT", "t;v\n2024-02-01;1\n");
        Run.Write("d/c.dat", "no table of this program");
        Run.Write("d/deep/e.csv", "t;v\n2024-02-01;1\n");
        Run.Write("d/empty.csv", "");
    }
    const ProgramRun Run;
};

TEST_F(Folders, StandForTheirTablesWithOneSummary) {
    const ProgramResult flat = Run({"import", "--guess-time", "d"});
    EXPECT_EQ(WithStrokes(Headings(flat.Out)), "d/a.TXT|d/b.csv|");
    EXPECT_EQ(flat.Status, 1);
    EXPECT_EQ(WithStrokes(flat.Err),
              "kelvarin-import: d/empty.csv: the file is empty\n"
              "kelvarin-import: 3 files: 2 imported, 1 failed: d/empty.csv; 3 samples\n");
    const auto headings = [&](const char* line) { return WithStrokes(Headings(Run.Command(line).Out)); };
    EXPECT_EQ(headings("analyze --recursive d"), "d/a.TXT|d/b.csv|d/deep/e.csv|");
    EXPECT_EQ(headings("analyze d*/*/?.csv d/[b].csv"), "d/deep/e.csv|");
    EXPECT_EQ(Run({"analyze", "none*.csv"}).Status, 1);
}

TEST_F(Folders, InSeveralProcessesSayTheSameInTheSameOrder) {
    for (int i = 100; i < 130; ++i) {
        Run.Write("d/n" + std::to_string(i) + ".csv", "t;v\n2024-02-01;" + std::to_string(i) + "\n");
    }
    for (const char* const json : {"--json", "--guess-time"}) {
        const ProgramResult alone =
            Run({"import", json, "--samples=1", "--set", "TimestampFormat=JJJJ-MM-TT", "d"});
        const ProgramResult spread =
            Run({"import", json, "--samples=1", "--set", "TimestampFormat=JJJJ-MM-TT", "--jobs", "3", "d"});
        EXPECT_EQ(spread.Out, alone.Out);
        EXPECT_EQ(spread.Err, alone.Err);
        EXPECT_EQ(spread.Status, alone.Status);
        EXPECT_NE(alone.Err.find("33 files: 32 imported, 1 failed: "), std::string::npos) << alone.Err;
    }
}

// Every command walks its files in one way: it does all of them, and the worst outcome counts wherever it is.
struct WalkCase {
    const char* Arguments;
    int Status;
    const char* Summary;  // the last line on standard error begins so; empty: there is none
};

TEST_F(Folders, GiveTheWorstStatusWhateverTheCommand) {
    Run.Write("a.csv", "t;v\n2024-02-01;1\n2024-02-02;2\n");
    Run.Write("b.csv", "t;v\n2024-02-01;1\n2024-02-02;2\n");
    Run.Write("other.csv", "x;y;z\n1;2;3\n");
    ASSERT_EQ(Run({"sidecar", "--force", "--set", "TimestampFormat=JJJJ-MM-TT", "a.csv"}).Status, 0);
    Run.Write("bad.info", "<CSV-INFO");
    const WalkCase cases[] = {
        {"explain a.csv b.csv", 0, ""},
        {"explain missing.csv a.csv", 1, ""},
        {"explain --recursive d", 1, "kelvarin-import: 4 files: 3 explained, 1 failed: "},
        {"analyze missing.csv a.csv", 1, ""},
        {"sidecar --check bad.info a.csv.info", 1, ""},
        {"sidecar --check a.csv.info bad.info", 1, ""},
        {"sidecar --force --set TimestampFormat=JJJJ-MM-TT missing.csv a.csv", 1, ""},
        {"sidecar --force --set TimestampFormat=JJJJ-MM-TT ?.csv", 0, "kelvarin-import: 2 files: 2 written"},
        {"sidecar apply --force a.csv.info b.csv", 0, "kelvarin-import: 1 files: 1 with the sidecar"},
        {"sidecar apply --force a.csv.info other.csv b.csv", 1,
         "kelvarin-import: 2 files: 1 with the sidecar, 1 failed: other.csv"},
    };
    for (const WalkCase& c : cases) {
        SCOPED_TRACE(c.Arguments);
        const ProgramResult result = Run.Command(c.Arguments);
        EXPECT_EQ(result.Status, c.Status) << result.Err;
        EXPECT_NE(result.Out, "") << "the good file is done";
        const std::size_t line = result.Err.rfind("kelvarin-import: ");
        const std::string last = line == std::string::npos ? "" : result.Err.substr(line);
        EXPECT_EQ(last.find(" files: ") != std::string::npos, *c.Summary != '\0') << result.Err;
        EXPECT_TRUE(*c.Summary == '\0' || last.starts_with(c.Summary)) << result.Err;
    }
}

// A file that fails outweighs findings, which outweigh a clean one; in one process as in several.
TEST_F(Folders, AreCheckedWithTheWorstStatusOfAll) {
    // Two files: processes that check one at the same time would shut each other out.
    for (const char* const name : {"clean.csv", "clean too.csv"})
        Run.Write(name, "t;v\n2024-02-01;1\n2024-02-02;2\n2024-02-03;3\n");
    Run.Write("falls.csv", "t;v\n2024-02-03;1\n2024-02-02;2\n2024-02-01;3\n");
    for (const std::string jobs : {"1 ", "2 "}) {
        const std::string check = "check --set TimestampFormat=JJJJ-MM-TT --jobs " + jobs;
        EXPECT_EQ(Run.Command(check + "clean.csv 'clean too.csv'").Status, 0) << jobs;
        EXPECT_EQ(Run.Command(check + "falls.csv clean.csv").Status, 3) << jobs;
        EXPECT_EQ(Run.Command(check + "d/empty.csv falls.csv").Status, 1) << jobs;
    }
}

}  // namespace
