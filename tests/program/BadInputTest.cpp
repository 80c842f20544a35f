// Files that can't be read, files that nobody meant to be text, and command lines that make no sense.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "program/ProgramRun.h"

namespace {

using Json = nlohmann::ordered_json;

// One second from row to row, the first line the header, whatever the file looks like.
const std::vector<std::string> Interval = {
    "--json", "--samples",    "1",     "--set",      "TimeSetting=1", "--set", "DateSetting=2",
    "--set",  "AutoFormat=0", "--set", "Separator=0"};

TEST(BadFile, IsNamedWithTheReasonAndTheOthersGoOn) {
    const ProgramRun run;
    run.Write("empty.csv", "");
    run.Write("good.csv", "t;v\n01.02.2024 10:00:00;1\n");
    std::string binary =
        "\x7F"
        "ELF";
    for (int i = 0; i < 3000; ++i) binary += static_cast<char>(i % 31);
    run.Write("binary.csv", binary);
    std::filesystem::create_directory(run.Folder.NativePath("folder"));
    const ProgramResult result = run({"--set", "TimestampFormat=TT.MM.JJJJ hh:mm:ss", "missing.csv", "folder",
                                      "empty.csv", "binary.csv", "good.csv"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Err,
              "kelvarin-import: missing.csv: No such file or directory\n"
              "kelvarin-import: folder: Is a directory\n"
              "kelvarin-import: empty.csv: the file is empty\n"
              "kelvarin-import: binary.csv: looks like a binary file (NUL byte in line 1)\n");
    EXPECT_NE(result.Out.find("good.csv\n"), std::string::npos) << result.Out;
    EXPECT_EQ(run({"analyze", "missing.csv"}).Err,
              "kelvarin-import: missing.csv: No such file or directory\n");
}

TEST(BadFile, WithoutATableSaysWhereItWasLookedFor) {
    const ProgramRun run;
    run.Write("gap.csv", "a;b\n\n1;2\n");
    const ProgramResult result = run({"gap.csv"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_NE(result.Err.find("gap.csv: Die Quelldatei ist keine gültige CSV-Datei"), std::string::npos);
    EXPECT_NE(result.Err.find("at line 2; name its line: --set AutoFormat=0 --set FirstLine="),
              std::string::npos)
        << result.Err;
}

// Bytes that no maker meant, and what becomes of the first sample of the first signal.
struct OddCase {
    const char* What;
    std::string Bytes;
    const char* Sample;  // as JSON
    int Lines;
};

TEST(OddFile, IsImportedByTheRules) {
    const std::string nul(1, '\0');
    const OddCase cases[] = {
        {"no line end at the end", "a;b\n1;2", "true", 1},
        {"NUL ends the cells of its line", "a;b\n1" + nul + "2;3\n", "true", 1},
        {"invalid UTF-8 is read as Western", "x\n\xFF\xFE\xFD\n", "\"ÿþý\"", 1},
        {"UTF-16 with half a unit at its end",
         std::string("\xFF\xFEn\0\n\0"
                     "7\0\n\0x",
                     11),
         "7", 1},
        {"UTF-16 with a lone surrogate", std::string("\xFF\xFEn\0\n\0\0\xD8z\0\n\0", 12), "\"\xEF\xBF\xBDz\"",
         1},
        {"lone carriage returns end lines", "n\r5\r6\r", "5", 2},
        {"a cell of 8 MiB", "n\n" + std::string(8u << 20, 'x') + "\n", nullptr, 1},
    };
    for (const OddCase& c : cases) {
        SCOPED_TRACE(c.What);
        const ProgramRun run;
        run.Write("odd.csv", c.Bytes);
        std::vector<std::string> arguments = Interval;
        arguments.push_back("odd.csv");
        const ProgramResult result = run(arguments);
        EXPECT_EQ(result.Status, 0) << result.Err;
        const Json document = Json::parse(result.Out, nullptr, false);
        ASSERT_FALSE(document.is_discarded()) << "not one valid JSON document";
        EXPECT_EQ(document["lines"], c.Lines) << result.Out.substr(0, 400);
        if (c.Sample == nullptr) continue;
        ASSERT_FALSE(document["signals"].empty()) << result.Out.substr(0, 400);
        const Json& samples = document["signals"][0]["samples"];
        EXPECT_EQ(samples.empty() ? "" : samples[0][1].dump(), c.Sample) << result.Out.substr(0, 400);
    }
}

TEST(OddFile, OfAHundredThousandColumnsGivesAsManySignals) {
    const ProgramRun run;
    std::string line;
    for (int i = 0; i < 100000; ++i) line += "1.5,";
    run.Write("wide.csv", line + "2\n" + line + "3\n");
    std::vector<std::string> arguments = Interval;
    arguments.insert(arguments.end(), {"--set", "Separator=1", "--set", "ImportHeader=0", "wide.csv"});
    const Json document = Json::parse(run(arguments).Out, nullptr, false);
    ASSERT_FALSE(document.is_discarded());
    EXPECT_EQ(document["signals"].size(), 100001u);
    EXPECT_EQ(document["signals"][100000]["symbol"], "Spalte 100001");
}

// A profile and the settings that come of it.
struct ProfileCase {
    const char* What;
    std::string Bytes;
    int FirstLine;
    const char* TimestampFormat;
    double IntervalValue;
};

TEST(BadProfile, GivesDefaultsForWhatIsBad) {
    const ProfileCase cases[] = {
        {"good", "[CsvImport]\nFirstLine=7\nTimestampFormat=\"hh\"\nIntervalValue=hex:0000000000000040\n", 7,
         "hh", 2.0},
        {"wrong kinds", "[CsvImport]\nFirstLine=\"7\"\nTimestampFormat=5\nIntervalValue=2\n", 1, "", 1.0},
        {"cut blocks and numbers",
         "[CsvImport]\nFirstLine=7x\nTimestampFormat=\"hh\nIntervalValue=hex:00004\n", 1, "", 1.0},
        {"out of range", "[CsvImport]\nFirstLine=2000\nIntervalValue=hex:000000000000f87f\n", 999, "", 1.0},
        {"half written", "[CsvImport]\nTimestampFormat=\"hh\"\nFirstLi", 1, "hh", 1.0},
        {"no profile at all", std::string("\0\xFF[[[\n=\n\"", 9), 1, "", 1.0},
    };
    for (const ProfileCase& c : cases) {
        SCOPED_TRACE(c.What);
        const ProgramRun run;
        run.Write("my.ini", c.Bytes);
        run.Write("a.csv", "a;b\n");
        const ProgramResult result =
            run({"analyze", "--json", "--profile", "my.ini", "--set", "AutoFormat=0", "a.csv"});
        const Json document = Json::parse(result.Out, nullptr, false);
        ASSERT_FALSE(document.is_discarded()) << result.Err;
        const Json& settings = document["settings"];
        EXPECT_EQ(settings["FirstLine"], c.FirstLine);
        EXPECT_EQ(settings["TimestampFormat"], c.TimestampFormat);
        EXPECT_EQ(settings["IntervalValue"], c.IntervalValue);
        EXPECT_EQ(run.Folder.Read("my.ini"), c.Bytes) << "an import must not touch the store";
    }
}

// A command line and its complaint.
struct UsageCase {
    std::vector<std::string> Arguments;
    const char* Complaint;  // how it begins
};

TEST(WrongUsage, GetsOneLineAndStatusTwo) {
    const UsageCase cases[] = {
        {{}, "A subcommand is required; see --help"},
        {{"import"}, "FILE is required; see --help"},
        {{"--frobnicate", "a.csv"},
         "The following argument was not expected: --frobnicate; allowed are --help, --profile, --set, "
         "--json, "
         "--language, --samples, --store, --base-time"},
        {{"analyze", "--samples", "3", "a.csv"}, "The following argument"},
        {{"--samples", "few", "a.csv"}, "--samples: 'few' is neither a number of samples nor all"},
        {{"--samples", "-1", "a.csv"}, "--samples: '-1' is neither a number of samples nor all"},
        {{"--store", "disk", "a.csv"}, "--store: 'disk' is not allowed; allowed are none and memory"},
        {{"--base-time", "now", "a.csv"}, "--base-time: 'now' is no 64-bit number of nanoseconds"},
        {{"--language", "xx", "a.csv"}, "--language: there are no texts for 'xx'; allowed is de"},
        {{"--set", "FirstLine", "a.csv"}, "--set: 'FirstLine' is not of the form KEY=VALUE"},
        {{"--set", "Firstline=1", "a.csv"},
         "--set: there is no setting 'Firstline'; allowed are AutoFormat, "},
        {{"--set", "FirstLine=1.5", "a.csv"},
         "--set: '1.5' is no value of FirstLine; allowed is a 32-bit whole number"},
        {{"--set", "FirstLine=4294967296", "a.csv"}, "--set: '4294967296' is no value of FirstLine"},
        {{"--set", "IntervalValue=1,5", "a.csv"},
         "--set: '1,5' is no value of IntervalValue; allowed is a decimal"},
        {{"--set", "StartDate=hex:0", "a.csv"},
         "--set: 'hex:0' is no value of StartDate; allowed is seconds"},
    };
    const ProgramRun run;
    run.Write("a.csv", "n\n1\n");
    for (const UsageCase& c : cases) {
        SCOPED_TRACE(c.Complaint);
        const ProgramResult result = run(c.Arguments);
        EXPECT_EQ(result.Status, 2);
        EXPECT_EQ(result.Out, "");
        EXPECT_EQ(result.Err.find(std::string("kelvarin-import: ") + c.Complaint), 0u) << result.Err;
        EXPECT_EQ(result.Err.find('\n'), result.Err.size() - 1) << result.Err;
    }
}

}  // namespace
