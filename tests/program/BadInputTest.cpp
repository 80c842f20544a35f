// Files that can't be read, files that nobody meant to be text, bad profiles, and command lines that make no
// sense.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "program/ProgramRun.h"

namespace {

using Json = nlohmann::ordered_json;

// The document of one file, one second from row to row, the first line the header, whatever the file looks
// like.
Json Imported(const ProgramRun& run, const std::string& bytes, const std::string& separator) {
    run.Write("odd.csv", bytes);
    const ProgramResult result =
        run({"--json", "--samples", "1", "--set", "TimeSetting=1", "--set", "DateSetting=2", "--set",
             "AutoFormat=0", "--set", "Separator=" + separator, "odd.csv"});
    EXPECT_EQ(result.Status, 0) << result.Err;
    return Json::parse(result.Out, nullptr, false);
}

TEST(BadFile, IsNamedWithTheReasonAndTheOthersGoOn) {
    const ProgramRun run;
    run.Write("empty.csv", "");
    run.Write("gap.csv", "a;b\n\n1;2\n");
    run.Write("good.csv", "t;v\n01.02.2024 10:00:00;1\n");
    std::string binary;
    for (int i = 0; i < 3000; ++i) binary += static_cast<char>(i % 31);
    run.Write("binary.csv", binary);
    std::filesystem::create_directory(run.Folder.NativePath("folder"));
    const ProgramResult result =
        run({"--no-guess", "--set", "TimestampFormat=TT.MM.JJJJ hh:mm:ss", "missing.csv", "folder",
             "empty.csv", "binary.csv", "gap.csv", "good.csv"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(
        result.Err,
        "kelvarin-import: missing.csv: No such file or directory\n"
        "kelvarin-import: folder: Is a directory\n"
        "kelvarin-import: empty.csv: the file is empty\n"
        "kelvarin-import: binary.csv: looks like a binary file (NUL byte in line 1)\n"
        "kelvarin-import: gap.csv: no table was found at line 2; `kelvarin-import explain FILE` says where "
        "one is\n");
    EXPECT_NE(result.Out.find("good.csv\n"), std::string::npos) << result.Out;
}

TEST(OddFile, IsImportedByTheRules) {
    struct Case {
        const char* What;
        std::string Bytes;
        const char* Sample;  // the first of the first signal, as JSON; null: too long to show
    };
    const Case cases[] = {
        {"no line end at the end", "a;b\n1;2", "true"},
        {"NUL ends the cells of its line", std::string("a;b\n1\0002;3\n", 10), "true"},
        {"invalid UTF-8 is read as Western", "x\n\xFF\xFE\xFD\n", "\"ÿþý\""},
        {"UTF-16 with half a unit at its end", std::string("\xFF\xFEn\0\n\0007\0\n\0x", 11), "7"},
        {"UTF-16 with a lone surrogate", std::string("\xFF\xFEn\0\n\0\0\xD8z\0\n\0", 12),
         "\"\xEF\xBF\xBDz\""},
        {"lone carriage returns end lines", "n\r5\r6\r", "5"},
        {"a cell of 2 MiB", "n\n" + std::string(2u << 20, 'x') + "\n", nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.What);
        const ProgramRun run;
        const Json document = Imported(run, c.Bytes, "0");
        ASSERT_FALSE(document.is_discarded() || document["signals"].empty());
        const Json& samples = document["signals"][0]["samples"];
        ASSERT_EQ(samples.size(), 1u);
        EXPECT_TRUE(c.Sample == nullptr || samples[0][1].dump() == c.Sample) << samples[0][1].dump();
    }
    const ProgramRun run;
    std::string line;
    for (int i = 0; i < 10000; ++i) line += "1.5,";
    EXPECT_EQ(Imported(run, line + "2\n" + line + "3\n", "1")["signals"].size(), 10001u);
}

TEST(BadProfile, GivesDefaultsForWhatIsBadAndIsNotTouched) {
    struct Case {
        const char* What;
        std::string Bytes;
        const char* Outcome;  // FirstLine, TimestampFormat, IntervalValue
    };
    const Case cases[] = {
        {"good", "[CsvImport]\nFirstLine=7\nTimestampFormat=\"hh\"\nIntervalValue=hex:0000000000000040\n",
         "7 hh 2.0"},
        {"wrong kinds", "[CsvImport]\nFirstLine=\"7\"\nTimestampFormat=5\nIntervalValue=2\n", "1  1.0"},
        {"cut values", "[CsvImport]\nFirstLine=7x\nTimestampFormat=\"hh\nIntervalValue=hex:00004\n",
         "1  1.0"},
        {"out of range", "[CsvImport]\nFirstLine=2000\nIntervalValue=hex:000000000000f87f\n", "999  1.0"},
        {"half written", "[CsvImport]\nTimestampFormat=\"hh\"\nFirstLi", "1 hh 1.0"},
        {"no profile at all", std::string("\0\xFF[[[\n=\n\"", 9), "1  1.0"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.What);
        const ProgramRun run;
        run.Write("my.ini", c.Bytes);
        run.Write("a.csv", "a;b\n");
        const ProgramResult result =
            run({"analyze", "--json", "--profile", "my.ini", "--set", "AutoFormat=0", "a.csv"});
        const Json document = Json::parse(result.Out, nullptr, false);
        ASSERT_FALSE(document.is_discarded()) << result.Err;
        const Json& s = document["settings"];
        EXPECT_EQ(s["FirstLine"].dump() + " " + s["TimestampFormat"].get<std::string>() + " " +
                      s["IntervalValue"].dump(),
                  c.Outcome);
        EXPECT_EQ(run.Folder.Read("my.ini"), c.Bytes);
    }
}

TEST(WrongUsage, GetsOneLineAndStatusTwo) {
    struct Case {
        std::vector<std::string> Arguments;
        const char* Complaint;  // how it begins
    };
    const Case cases[] = {
        {{}, "A subcommand is required; see --help"},
        {{"import"}, "FILE is required; see --help"},
        {{"--frobnicate", "a.csv"},
         "The following argument was not expected: --frobnicate; allowed are --help, --profile, --set, "
         "--json, "
         "--language, --samples, --messages, --store, --base-time"},
        {{"analyze", "--samples", "3", "a.csv"}, "The following argument"},
        {{"--samples", "-1", "a.csv"}, "--samples: '-1' is neither a number of samples nor all"},
        {{"--messages", "-1", "a.csv"}, "--messages: '-1' is neither a number of messages nor all"},
        {{"--messages", "", "a.csv"}, "--messages: '' is neither a number of messages nor all"},
        {{"--messages", "ALL", "a.csv"}, "--messages: 'ALL' is neither a number of messages nor all"},
        {{"--store", "disk", "a.csv"},
         "--store: 'disk' is not allowed; allowed are none, memory and FILE.h5"},
        {{"--base-time", "now", "a.csv"}, "--base-time: 'now' is no 64-bit number of nanoseconds"},
        {{"--language", "xx", "a.csv"}, "--language: there are no texts for 'xx'; allowed are de, en"},
        {{"--set", "FirstLine", "a.csv"}, "--set: 'FirstLine' is not of the form KEY=VALUE"},
        {{"--set", "Firstline=1", "a.csv"},
         "--set: there is no setting 'Firstline'; allowed are AutoFormat, "},
        {{"--set", "FirstLine=4294967296", "a.csv"},
         "--set: '4294967296' is no value of FirstLine; allowed is a 32-bit"},
        {{"--set", "IntervalValue=1,5", "a.csv"},
         "--set: '1,5' is no value of IntervalValue; allowed is a decimal"},
        {{"--set", "StartDate=hex:0", "a.csv"},
         "--set: 'hex:0' is no value of StartDate; allowed is seconds"},
    };
    const ProgramRun run;
    run.Write("a.csv", "n\n1\n");
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Complaint);
        const ProgramResult result = run(c.Arguments);
        EXPECT_EQ(result.Status, 2);
        EXPECT_EQ(result.Out, "");
        EXPECT_EQ(result.Err.find(std::string("kelvarin-import: ") + c.Complaint), 0u) << result.Err;
        EXPECT_EQ(result.Err.find('\n'), result.Err.size() - 1) << result.Err;
    }
}

TEST(BadCommandLine, ADialogWithoutDisplayNeedsAScript) {
    const ProgramRun run;
    run.Write("data.csv", "t;v\n0;1\n");
    const ProgramResult result = run({"dialog", "data.csv"});
    EXPECT_EQ(result.Status, 2) << result.Out;
    EXPECT_NE(result.Err.find("--script"), std::string::npos) << result.Err;
}

}  // namespace
