// prepare: the copies, what is said about them, and what is refused.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "host/plan/CleanCopy.h"
#include "program/ProgramRun.h"

namespace {

using Json = nlohmann::ordered_json;

// The text of a copy without its byte order mark, "|" for a tab.
std::string Shown(std::string bytes) {
    EXPECT_TRUE(bytes.starts_with("\xEF\xBB\xBF"));
    bytes.erase(0, 3);
    for (char& c : bytes) c = c == '\t' ? '|' : c;
    return bytes;
}

TEST(Prepare, WritesOneTableInTheOrderOfItsTimes) {
    const ProgramRun run;
    std::string source = "Station 7\n\nDatum;Zeit;Druck;Ort\n;;[bar];\n";
    std::string wanted = "Time|Druck [bar]|Ort\n";
    for (int second = 0; second < 40; ++second) {
        const std::string clock = "12:00:" + std::to_string(second / 10) + std::to_string(second % 10);
        const char* const value = second == 7 ? "n/a" : "1,5";
        source += "31.01.2024;" + clock + ";" + value + ";room " + std::to_string(second) + "\n";
        if (second == 19) source += "\nDatum;Zeit;Druck;Ort\n";
        wanted += "2024-01-31 " + clock + ".000000000|" + (second == 7 ? "" : "1.5") + "|\"room " +
                  std::to_string(second) + "\"\n";
    }
    source += "31.01.2024;11:59:59;2;late\nEnd\n";
    wanted.insert(wanted.find('\n') + 1, "2024-01-31 11:59:59.000000000|2|late\n");
    run.Write("a.csv", source);
    const ProgramResult result = run({"prepare", "--language", "en", "a.csv"});
    EXPECT_EQ(result.Status, 0) << result.Err;
    EXPECT_EQ(
        result.Out,
        "  a.csv\n"
        "  times     columns 1, 2: as written, without a zone\n"
        "  assumed   4 columns from line 5 on, separated by semicolons; names in line 3; units in line 4 "
        "(certain)\n"
        "            date and time in column 1 (\"Datum\"), column 2 (\"Zeit\"), day before month (certain)\n"
        "            41 of the 41 rows looked at have a time (likely)\n"
        "              but: times fall back: 1\n"
        "            1 column with units, from line 4 (certain)\n"
        "            decimal numbers: 1, texts: 1 (certain)\n"
        "  copy      a.csv.prepared.csv\n"
        "  content   41 rows, sorted by time\n"
        "  left out  blank lines: 1 (line 25)\n"
        "            header lines again: 1 (line 26)\n"
        "            lines without a time: 1 (line 48)\n"
        "  changed   numbers and truth values: 39\n"
        "            markers of missing values that became empty cells: 1\n"
        "  columns\n"
        "    3  Druck  [bar]\n"
        "    4  Ort\n");
    EXPECT_EQ(result.Err, "");
    EXPECT_EQ(Shown(run.Folder.Read("a.csv.prepared.csv")), wanted);
    EXPECT_EQ(run.Folder.Read("a.csv"), source);
    EXPECT_EQ(run.Folder.Names(), "a.csv a.csv.prepared.csv");
}

TEST(Prepare, SaysTheSameInJson) {
    const ProgramRun run;
    run.Write("a.csv", "t [s];v\n1;1,5\n2;2,5\n0,5;3,5\n\n-1;7,5\n3;8,5\n");
    const ProgramResult result = run({"prepare", "--json", "-o", "out.txt", "a.csv"});
    EXPECT_EQ(result.Status, 0) << result.Err;
    const Json document = Json::parse(result.Out);
    EXPECT_EQ(document["times"].dump(), R"({"kind":"elapsed","columns":[1]})");
    EXPECT_EQ(document["copies"].size(), 1u);
    const Json copy = document["copies"][0];
    EXPECT_EQ(copy["copy"], "out.txt");
    EXPECT_EQ(copy["shift"], 1'000'000'000);
    EXPECT_EQ(copy["rows"], 5);
    EXPECT_EQ(copy["sorted"], true);
    EXPECT_EQ(copy["leftOut"]["blank"].dump(), R"({"count":1,"lines":[5]})");
    EXPECT_EQ(copy["rewritten"]["values"], 5);
    EXPECT_EQ(document["columns"].dump(), R"([{"column":2,"name":"v","unit":"","type":"float"}])");
    EXPECT_EQ(run.Folder.Names(), "a.csv out.txt");
}

// The column of times of a copy in place of a file, and of which kind they are.
std::string TimesOf(const std::u16string& path) {
    using namespace kelvarin::plan;
    const std::optional<ReadingPlan> plan = FindPlan(path);
    if (!plan || !plan->Times) return "no times";
    ScratchFile file;
    const CopyResult result = WriteCleanCopy(path, *plan, file, CopyOptions{});
    std::string bytes(100'000, ' ');
    bytes.resize(file.Read(0, bytes.data(), bytes.size()));
    std::string times = std::to_string(static_cast<int>(result.Times)) + ":";
    for (std::size_t at = bytes.find('\n') + 1; at < bytes.size();) {
        const std::size_t end = bytes.find('\n', at);
        const std::size_t tab = bytes.rfind('\t', end);
        times += " " + bytes.substr(tab + 1, end - tab - 1);
        at = end + 1;
    }
    return times;
}

// Whoever finds out how the copy is built finds the times of the file.
TEST(Prepare, KeepsTheTimesOfTheFile) {
    const struct {
        const char* About;
        const char* Text;
        const char* First;          // time in the copy
        const char* Head = "Time";  // of the times in the copy for people
    } cases[] = {
        {"date and clock",
         "Datum;Zeit;v\n31.12.2023;23:59:59,5;1\n01.01.2024;00:00:00;2\n01.01.2024;00:00:00,5;3\n",
         "2023-12-31 23:59:59.500000000"},
        {"24:00 is the next day", "t;v\n31.12.2023 24:00;1\n01.01.2024 01:00;2\n01.01.2024 02:00;3\n",
         "2024-01-01 00:00:00.000000000"},
        {"before 1970", "t;v\n31.12.1969 23:59:59,5;1\n01.01.1970 00:00:00;2\n01.01.1970 00:00:00,5;3\n",
         "1969-12-31 23:59:59.500000000"},
        {"a clock over midnight", "Clock;v\n23:59:59;1\n00:00:01;2\n00:00:03;2\n", "86399.000000000",
         "Time [s]"},
        {"microseconds", "t [us];v\n123456.789;1\n2000000;2\n3000000;3\n", "0.123456789", "Time [s]"},
        {"seconds in the range of days of a spreadsheet",
         "Time [s],v\n45000.5,1\n45000.75,2\n45001,3\n45001.25,4\n", "45000.500000000", "Time [s]"},
        {"milliseconds since 1970",
         "t,v\n1706702400123,1.5\n1706702400124,2\n1706702400125,3\n1706702400126,4\n",
         "1706702400.123000000", "Time [s since 1970]"},
        {"seconds since 1970, long ago", "s since 1970,v\n-1000,1\n-999,2\n-998,3\n-997,4\n",
         "-1000.000000000", "Time [s since 1970]"},
        {"a zone that changes",
         "time,v\n2024-10-27T02:30:00+02:00,1\n2024-10-27T02:45:00+02:00,2\n2024-10-27T02:00:00+01:00,3\n"
         "2024-10-27T02:15:00+01:00,4\n",
         "1729989000.000000000", "Time [s since 1970]"},
        {"before a trigger", "Time (ms);v\n-500;1,5\n0;2\n500;3,5\n1000;4\n", "0.000000000", "Time [s]"},
        {"newest first",
         "t;v\n04.02.2024 10:00;1\n03.02.2024 10:00;2\n02.02.2024 10:00;3\n13.01.2024 10:00;4\n",
         "2024-01-13 10:00:00.000000000"},
        {"empty cells everywhere",
         "t;a;b;c;d;e;f\n13.02.2024 10:00;;;;;1;\n14.02.2024 10:00;;2;;;;\n15.02.2024 10:00;;;3;;;\n"
         "16.02.2024 10:00;4;;;;;\n",
         "2024-02-13 10:00:00.000000000"},
        {"bytes in one column",
         "Time (s),id,length,data\n0.1,1,5,01 02 03 04 05\n0.2,2,5,06 07 08 09 0A\n0.3,1,5,0B 0C 0D 0E 0F\n",
         "0.100000000", "Time [s]"},
        {"a header in each block",
         "t,v\n2024-02-01 10:00,1\n2024-02-01 10:01,2\nt,v\n2024-02-01 10:02,1\n2024-02-01 10:03,2\n",
         "2024-02-01 10:00:00.000000000"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.About);
        const ProgramRun run;
        run.Write("a.csv", c.Text);
        const ProgramResult result = run({"prepare", "a.csv"});
        ASSERT_EQ(result.Status, 0) << result.Err;
        const std::string times = TimesOf(run.Folder.Path("a.csv"));
        EXPECT_EQ(times.substr(3, std::string(c.First).size()), c.First);
        EXPECT_EQ(TimesOf(run.Folder.Path("a.csv.prepared.csv")), times);
        const std::string copy = Shown(run.Folder.Read("a.csv.prepared.csv"));
        EXPECT_EQ(copy.substr(0, copy.find('|')), c.Head);
    }
}

TEST(Prepare, GivesEachDeviceItsOwnCopy) {
    std::string interleaved = "time;sensor;value\n";
    std::string copies[2];
    for (int second = 10; second < 40; ++second) {
        const std::string time = "2024-02-01 10:00:" + std::to_string(second);
        for (int device = 0; device < 2; ++device) {
            const std::string name = device == 0 ? "north 1/2" : "south";
            interleaved += time + ";" + name + ";" + std::to_string(second + device) + "\n";
            copies[device] += time + ".000000000|" + (device == 0 ? "\"north 1/2\"" : name) + "|" +
                              std::to_string(second + device) + "\n";
        }
    }
    const ProgramRun run;
    run.Write("a.csv", interleaved);
    const ProgramResult result = run({"prepare", "--language", "en", "a.csv", "-o", "out.csv"});
    EXPECT_EQ(result.Status, 0) << result.Err;
    EXPECT_NE(result.Out.find("  devices   2, told apart by column 2; each has its own copy\n"),
              std::string::npos)
        << result.Out;
    EXPECT_EQ(Shown(run.Folder.Read("out.north_1_2.csv")), "Time|sensor|value\n" + copies[0]);
    EXPECT_EQ(Shown(run.Folder.Read("out.south.csv")), "Time|sensor|value\n" + copies[1]);
    EXPECT_EQ(run.Folder.Names(), "a.csv out.north_1_2.csv out.south.csv");
    EXPECT_EQ(run({"prepare", "a.csv", "-o", "out.csv"}).Status, 1) << "they are there already";
}

TEST(Prepare, IsReadByTheModule) {
    const ProgramRun run;
    run.Write("a.csv",
              "t;v;w\n31.01.2024 12:00:01;1,5;x y\n31.01.2024 12:00:00;2,5;z\n31.01.2024 12:00:02;3,5;z\n");
    ASSERT_EQ(run({"prepare", "a.csv"}).Status, 0);
    const ProgramResult result = run.Command(
        "--json --samples all --set 'TimestampFormat=JJJJ-MM-TT hh:mm:ss.000000000' --set DateColumn=1 "
        "--set TimeColumn=1 --set DateSetting=0 --set TimeSetting=0 a.csv.prepared.csv");
    ASSERT_EQ(result.Status, 0) << result.Err;
    const Json signals = Json::parse(result.Out)["signals"];
    ASSERT_EQ(signals.size(), 2u);
    EXPECT_EQ(signals[0]["samples"].dump(),
              "[[1706698800000000000,2.5],[1706698801000000000,1.5],[1706698802000000000,3.5]]");
    EXPECT_EQ(signals[1]["samples"][1][1], "x y");
}

TEST(Prepare, RefusesWithReasonAndRemedy) {
    const struct {
        std::string Arguments;
        int Status;
        const char* Complaint;  // a part of it
    } cases[] = {
        {"none.csv", 1, "none.csv: "},
        {"empty.csv", 1, "empty.csv: the file is empty"},
        {"prose.txt", 1, "prose.txt: no table was found"},
        {"timeless.csv", 1, "timeless.csv: no times were found"},
        {"kept.csv", 1, "kept.csv.prepared.csv exists already; --force replaces it"},
        {"good.csv -o good.csv", 2, "good.csv: this file is read, and would be overwritten"},
        {"good.csv kept.csv -o x.csv", 2, "--output names the copy of one file"},
        {"--set FirstLine=3 good.csv", 2, "leave --set out"},
        {"good.csv -o nowhere/x.csv", 1, "good.csv: the copy can't be made: nowhere/x.csv: "},
    };
    const ProgramRun run;
    run.Write("empty.csv", "");
    run.Write("prose.txt", "All work and no play\nmakes Jack a dull boy.\n");
    run.Write("timeless.csv", "a;b\n1,5;x\n-2,5;y\n0,5;z\n");
    run.Write("good.csv", "t [s];v\n1;1\n2;2\n3;3\n");
    run.Write("kept.csv", "t [s];v\n1;1\n2;2\n3;3\n");
    run.Write("kept.csv.prepared.csv", "mine");
    const std::string names = run.Folder.Names();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Arguments);
        const ProgramResult result = run.Command("prepare --language en " + c.Arguments);
        EXPECT_EQ(result.Status, c.Status);
        EXPECT_NE(result.Err.find(c.Complaint), std::string::npos) << result.Err;
        EXPECT_EQ(result.Out, "");
        EXPECT_EQ(run.Folder.Names(), names);
    }
    EXPECT_EQ(run.Folder.Read("good.csv"), "t [s];v\n1;1\n2;2\n3;3\n");
    EXPECT_EQ(run.Folder.Read("kept.csv.prepared.csv"), "mine");
    EXPECT_EQ(run({"prepare", "--force", "kept.csv"}).Status, 0);
    EXPECT_EQ(Shown(run.Folder.Read("kept.csv.prepared.csv")).substr(0, 10), "Time [s]|v");
}

TEST(Prepare, CopiesNoCopiesOfAFolder) {
    const ProgramRun run;
    std::filesystem::create_directory(run.Folder.NativePath("in"));
    run.Write("in/a.csv", "t [s];v\n1;1\n2;2\n3;3\n");
    run.Write("in/b.csv", "t [s];v\n1;1\n2;2\n3;3\n");
    for (const char* const jobs : {"1", "2"}) {
        SCOPED_TRACE(jobs);
        const ProgramResult result = run({"prepare", "--language", "en", "--force", "--jobs", jobs, "in"});
        EXPECT_EQ(result.Status, 0);
        EXPECT_NE(result.Err.find("2 files: 2 prepared"), std::string::npos) << result.Err;
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(run.Folder.NativePath("in")))
            count += entry.is_regular_file();
        EXPECT_EQ(count, 4u);
    }
}

}  // namespace
