// Files that follow each other, imported as one device.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "host/store/SampleFile.h"
#include "program/ProgramRun.h"

namespace {
using Json = nlohmann::ordered_json;

// Rows "x" of a day at a clock, one a second: DayOf(5, 10, {"1", "2"}).
std::string DayOf(int day, int hour, const std::vector<std::string>& cells) {
    std::string text = "When;x\n";
    int second = 0;
    for (const std::string& cell : cells) {
        char time[32];
        std::snprintf(time, sizeof time, "2024-05-%02d %02d:%02d:%02d", day, hour, second / 60, second % 60);
        text += time + (";" + cell) + "\n";
        ++second;
    }
    return text;
}

// "a.csv 3 rows 1 left out gap 5 s shift 1 d; ...", then the number of samples of each signal.
std::string Summary(const Json& document) {
    std::string text;
    for (const Json& file : document.at("joined")) {
        text += file.at("file").get<std::string>() + " " + file.at("rows").dump();
        if (file.at("leftOut") != 0) text += " left out " + file.at("leftOut").dump();
        if (!file.at("gap").is_null())
            text += " gap " + std::to_string(file.at("gap").get<std::int64_t>() / 1'000'000'000);
        if (file.at("shift") != 0)
            text += " days " + std::to_string(file.at("shift").get<std::int64_t>() / 86'400'000'000'000);
        text += "; ";
    }
    for (const Json& signal : document.at("signals"))
        text += signal.at("type").dump() + ":" + signal.at("count").dump() + " ";
    return text;
}

bool AreTimesRising(const Json& document) {
    std::int64_t before = -1;
    for (const Json& sample : document.at("signals").at(0).at("samples")) {
        if (sample.at(0).get<std::int64_t>() <= before) return false;
        before = sample.at(0).get<std::int64_t>();
    }
    return true;
}

TEST(Join, SignalsRunOnOverTheBordersOfFiles) {
    const std::string later = DayOf(5, 10, {"4", "5", "6"});
    const struct {
        const char* What;
        std::vector<std::string> Files;  // a.csv, b.csv and so on
        const char* Summary;
    } cases[] = {
        {"in the order of their times",
         {DayOf(6, 10, {"4", "5"}), DayOf(5, 10, {"1.5", "2"})},
         "b.csv 2; a.csv 2 gap 86399; 13:4 "},
        {"an overlap",
         {"When;x\n2024-05-05 09:59:58;1\n2024-05-05 09:59:59;1\n2024-05-05 10:00:00;2\n2024-05-05 "
          "10:00:01;3\n",
          later},
         "a.csv 4; b.csv 1 left out 2; 15:5 "},
        {"one within the other",
         {DayOf(5, 10, {"1", "2", "3", "4", "5"}), DayOf(5, 10, {"1", "2"})},
         "a.csv 5; b.csv 0 left out 2; 15:5 "},
        {"no gap",
         {"When;x\n2024-05-05 09:59:58;1\n2024-05-05 09:59:59;2\n", later},
         "a.csv 2; b.csv 3; 15:5 "},
        {"a header alone",
         {DayOf(5, 9, {"1", "7"}), "When;x\n", later},
         "a.csv 2; c.csv 3 gap 3599; b.csv 0; 15:5 "},
        {"a copy of one file",
         {DayOf(5, 9, {"1", "7"}), "When;x\n2024-05-05 10:00:01;2\n2024-05-05 10:00:00;1\n"},
         "a.csv 2; b.csv 2 gap 3599; 15:4 "},
        {"clocks without a date",
         {"Clock;x\n23:59:57;1\n23:59:58;7\n", "Clock;x\n00:00:01;1\n00:00:02;2\n"},
         "a.csv 2; b.csv 2 gap 3 days 1; 15:4 "},
        {"elapsed times that run on",
         {"t [s];x\n0;1\n1;7\n2;3\n", "t [s];x\n3;1\n4;2\n"},
         "a.csv 3; b.csv 2; 15:5 "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.What);
        const ProgramRun run;
        std::string names;
        for (std::size_t i = 0; i < c.Files.size(); ++i) {
            const std::string name = std::string(1, static_cast<char>('a' + i)) + ".csv";
            run.Write(name, c.Files[i]);
            names += " " + name;
        }
        const ProgramResult result = run.Command("import --join --json --samples all" + names);
        ASSERT_EQ(result.Status, 0) << result.Err;
        const Json document = Json::parse(result.Out);
        EXPECT_EQ(Summary(document), c.Summary);
        EXPECT_TRUE(AreTimesRising(document)) << result.Out;
    }
}

TEST(Join, RefusesFilesThatDontFollowEachOther) {
    const std::string day = DayOf(5, 10, {"1", "2", "3"});
    const struct {
        std::string Options;
        const char* Second;
        int Status;
        const char* Error;
    } cases[] = {
        {"", "When;y\n2024-05-06 10:00:00;1\n2024-05-06 10:00:01;2\n", 1,
         "b.csv: not like the files that it is to be joined with: column 2 is \"y\", not \"x\""},
        {"", "", 1, "b.csv: not like the files that it is to be joined with: no table was found in it"},
        {"--no-guess --set 'TimestampFormat=JJJJ-MM-TT hh:mm:ss'",
         "When;x\n2024-05-06 10:00:00;1e-3\n2024-05-06 10:00:01;2.5\n", 1,
         "b.csv: the first file has no signal 'Spalte 2' of this type"},
        {"--jobs 2", "", 2, "--join reads its files in one process; leave --jobs out"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Error);
        const ProgramRun run;
        run.Write("a.csv", day);
        run.Write("b.csv", c.Second);
        const ProgramResult result = run.Command("import --join a.csv b.csv " + c.Options);
        EXPECT_EQ(result.Status, c.Status);
        EXPECT_EQ(result.Out, "");
        EXPECT_EQ(result.Err, std::string("kelvarin-import: ") + c.Error + "\n");
    }
}

TEST(Join, RefusesElapsedTimesThatBeginAnew) {
    const ProgramRun run;
    run.Write("a.csv", "t [s];x\n0;1\n1;7\n2;3\n");
    run.Write("b.csv", "t [s];x\n0;1\n1;2\n2;2\n3;1\n");
    const ProgramResult result = run({"import", "--join", "a.csv", "b.csv"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_NE(result.Err.find("b.csv: its times begin before the end of the file before"), std::string::npos)
        << result.Err;
}

// A number that no sample shows: all files are read anew with the wider type.
TEST(Join, AWiderCellFoundLateCountsForAllFiles) {
    const ProgramRun run;
    run.Write("a.csv", DayOf(5, 10, {"1", "2", "3"}));
    std::vector<std::string> cells(30'000, "12345");
    cells[7777] = "1e-3";
    std::string text = "When;x\n";
    for (std::size_t i = 0; i < cells.size(); ++i) {
        char time[32];
        std::snprintf(time, sizeof time, "2024-05-06 %02d:%02d:%02d", static_cast<int>(i / 3600),
                      static_cast<int>(i / 60 % 60), static_cast<int>(i % 60));
        text += time + (";" + cells[i]) + "\n";
    }
    run.Write("b.csv", text);
    run.Write("c.csv", DayOf(7, 10, {"1", "2", "3"}));
    const ProgramResult result = run({"import", "--join", "--json", "a.csv", "b.csv", "c.csv"});
    ASSERT_EQ(result.Status, 0) << result.Err;
    EXPECT_EQ(Summary(Json::parse(result.Out)),
              "a.csv 3; b.csv 30000 gap 50398; c.csv 3 gap 92401; 13:30006 ");
}

TEST(Join, IsKeptInOneFileAndVerified) {
    if (!kelvarin::store::HasSampleFiles()) GTEST_SKIP() << "built without HDF5";
    const ProgramRun run;
    run.Write("a.csv", DayOf(5, 10, {"1", "2", "3"}));
    run.Write("b.csv", DayOf(5, 11, {"1.5", "2"}));
    ASSERT_EQ(run({"import", "--join", "--store", "all.h5", "b.csv", "a.csv"}).Status, 0);
    const ProgramResult same = run({"verify", "--join", "all.h5", "a.csv", "b.csv"});
    EXPECT_EQ(same.Status, 0) << same.Out << same.Err;
    EXPECT_EQ(same.Out, "a.csv: equal to a fresh import, 5 samples compared\n");
    run.Write("b.csv", DayOf(5, 11, {"1.5", "4"}));
    const ProgramResult other = run({"verify", "--join", "all.h5", "a.csv", "b.csv"});
    EXPECT_EQ(other.Status, 3) << other.Err;
    EXPECT_EQ(other.Out, "a.csv: signal 'x', sample 5, value: the file has 2, the import gives 4\n");
    run.Write("b.csv", "When;y\n2024-05-05 11:00:00;1\n2024-05-05 11:00:01;2\n");
    EXPECT_EQ(run({"import", "--join", "--store", "all.h5", "a.csv", "b.csv"}).Status, 1);
    EXPECT_EQ(run({"verify", "--join", "all.h5", "a.csv"}).Status, 3);  // the old one is still there
}

TEST(Join, IsToldToPeople) {
    const ProgramRun run;
    run.Write("a.csv", DayOf(5, 10, {"1", "2", "3"}));
    run.Write("b.csv", DayOf(5, 10, {"1", "2", "3", "4"}));
    run.Write("c.csv", DayOf(5, 11, {"1", "2", "3"}));
    const ProgramResult result = run({"import", "--join", "a.csv", "b.csv", "c.csv"});
    EXPECT_EQ(result.Status, 0);
    for (const char* const part :
         {"a.csv\n", "    b.csv  1  rows  ", "b.csv: overlap: 3 of its rows left out",
          "c.csv: gap of 00:59:57 before", "one of 3 files of one kind", "x  integer  7  samples"})
        EXPECT_NE(result.Out.find(part), std::string::npos) << part << "\n" << result.Out;
}
}  // namespace
