// The check as scripts and people see it: its findings, its exit status, the file of rejected rows.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "program/ProgramRun.h"

namespace {

using Json = nlohmann::ordered_json;

const std::string Dated = " --set 'TimestampFormat=TT.MM.JJJJ hh:mm:ss' ";

ProgramResult Check(const ProgramRun& run, const std::string& arguments) {
    return run.Command("check --no-guess " + arguments);
}

std::string Rows(int count, int step, int perTime = 1) {
    std::string rows;
    for (int i = 0; i < count; ++i) {
        const int second = i / perTime * step;
        const auto two = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
        const std::string clock = two(second / 60 % 60) + ":" + two(second % 60);
        rows +=
            "13.02.2024 " + std::to_string(8 + second / 3600) + ":" + clock + ";" + std::to_string(i) + "\n";
    }
    return rows;
}

struct FindingCase {
    const char* Name;
    std::string File, Options;
    std::string Findings;  // kinds and, behind a colon, their lines; faults first, notes in brackets
    const char* Remedy;    // a part of one; empty: none is asked for
    int Status = 3;
};

// "repeats (dateOrder)" for a document of the check.
std::string Kinds(const Json& document) {
    std::string kinds;
    for (const Json& finding : document["findings"]) {
        const std::string kind = finding["kind"];
        kinds += (kinds.empty() ? "" : " ") + (finding["fault"] ? kind : "(" + kind + ")");
    }
    return kinds;
}

TEST(Check, FindsWhatAnImportLoses) {
    const std::string head = "Zeit;n\n";
    const FindingCase cases[] = {
        {"clean", head + Rows(20, 1), Dated, "(dateOrder)", "", 0},
        {"no format", head + Rows(3, 1), "", "unreadable", "TimestampFormat=TT.MM.JJJJ hh:mm:ss"},
        {"day and month exchanged", head + Rows(3, 1), "--set 'TimestampFormat=MM.TT.JJJJ hh:mm:ss'",
         "unreadable", "'TimestampFormat=TT.MM.JJJJ hh:mm:ss'"},
        {"other mark", head + "13.02.2024 8:00:00.5;1\n13.02.2024 8:00:01.5;2\n",
         "--set 'TimestampFormat=TT.MM.JJJJ hh:mm:ss,0'", "unreadable", "hh:mm:ss.0"},
        {"ten rows a second", head + Rows(100, 1, 10), Dated, "repeats (dateOrder)",
         "IntervalValue=100 --set IntervalUnit=3"},
        {"two sources", head + Rows(40, 600, 2), Dated, "repeats (dateOrder)", "split the file"},
        {"backwards", head + "15.02.2024 8:00:00;1\n14.02.2024 8:00:00;2\n13.02.2024 8:00:00;3\n", Dated,
         "falls (dateOrder)", "a clean copy has its rows in order: kelvarin-import prepare FILE"},
        {"summer time ends", head + "27.10.2024 2:59:00;1\n27.10.2024 2:00:00;2\n27.10.2024 3:00:00;3\n",
         Dated, "falls (dateOrder)", "summer time"},
        {"gap", head + Rows(20, 1) + "13.02.2024 8:01:00;1\n13.02.2024 8:01:01;1\n", Dated,
         "gaps (dateOrder)", ""},
        {"footer", head + Rows(5, 1) + "\nEnd;of data\n", Dated, "unreadableAtEnd (dateOrder) (blankLines)",
         "no loss"},
        {"empty rows", head + Rows(5, 1) + ";\n", Dated, "(empty) (dateOrder)", "", 0},
        {"refused cells", head + Rows(600, 1) + "13.02.2024 9:00:00;x\n", Dated,
         "refusedCells gaps (dateOrder)", "--reject-cells"},
        {"words for nothing", head + Rows(600, 1) + "13.02.2024 8:10:00;NaN\n", Dated,
         "refusedCells (dateOrder)", "\"NaN\""},
        {"interval of nothing", head + Rows(3, 1),
         "--set DateSetting=2 --set TimeSetting=1 --set IntervalValue=0", "noStep (interval)",
         "IntervalValue=1"},
        {"before 1990", head + "13.02.1985 8:00:00;1\n14.02.1985 8:00:00;1\n", Dated,
         "before1990 (dateOrder)", ""},
        {"clock set back", head + "12:00:00;1\n12:00:01;1\n11:00:00;1\n",
         "--set TimestampFormat=hh:mm:ss --set DateSetting=1 --set StartDate=1700000000", "doubtfulRollOvers",
         ""},
    };
    for (const FindingCase& c : cases) {
        SCOPED_TRACE(c.Name);
        const ProgramRun run;
        run.Write("data.csv", c.File);
        const ProgramResult result = Check(run, c.Options + " --json data.csv");
        EXPECT_EQ(result.Status, c.Status) << result.Out << result.Err;
        const Json document = Json::parse(result.Out);
        EXPECT_EQ(Kinds(document), c.Findings) << result.Out;
        std::string remedies;
        for (const Json& finding : document["findings"]) remedies += std::string(finding["remedy"]) + "\n";
        EXPECT_NE(remedies.find(c.Remedy), std::string::npos) << remedies;
    }
}

TEST(Check, NamesTheLinesOfTheFileAndThoseOfTheModule) {
    const ProgramRun run;
    run.Write("data.csv", "Zeit;n\n" + Rows(600, 1) + "\n\n13.02.2024 8:09:59;5\n13.02.2024 8:10:00;x\n");
    const Json document = Json::parse(Check(run, Dated + "--json data.csv").Out);
    EXPECT_EQ(document["blank"], 2);
    const Json& repeated = document["dropped"]["reasons"]["repeats"]["first"][0];
    EXPECT_EQ(repeated.dump(), R"({"line":604,"moduleLine":602,"text":"13.02.2024 8:09:59;5"})");
    const Json& refused = document["columns"][0]["refused"]["last"];
    EXPECT_EQ(refused.dump(), R"({"line":605,"moduleLine":603,"text":"x"})");
}

// Rows in disorder are read by a clean copy, whose rows have times: the check tells what is not there.
TEST(Check, FindsTheLinesThatACopyLeavesOut) {
    const ProgramRun run;
    run.Write("data.csv",
              "Zeit;n\n" + Rows(20, 1) + "kaputt;1\n13.02.2024 8:00:21;5\n13.02.2024 8:00:20;5\n");
    const ProgramResult result = run.Command("check --json data.csv");
    EXPECT_EQ(result.Status, 3);
    const Json document = Json::parse(result.Out);
    EXPECT_EQ(Kinds(document), "leftOut") << result.Out;
    const std::string text = document["findings"][0]["text"];
    EXPECT_NE(text.find("line 22"), std::string::npos) << text;
}

struct ReasonCase {
    const char* Name;
    std::string File, Options;
    std::string Reasons;  // each with the lines of its rows
};

TEST(Check, NamesTheReasonOfEveryDroppedRow) {
    const ReasonCase cases[] = {
        {"times that are read",
         "t;n\n"                    // 1
         "[ns];[V]\n"               // 2: units
         "4;1\n"                    // 3: stored
         "4;2\n"                    // 4: repeats
         "3;3\n"                    // 5: falls
         "\n"                       // 6: blank
         ";\n"                      // 7: empty
         "x;4\n"                    // 8: unreadable
         "6;5\n"                    // 9: stored
         "4611686018427387904;6\n"  // 10: beyond the greatest time
         "7;7\n"                    // 11: stored
         ";\n"                      // 12: empty
         "end;of data\n",           // 13: a legend
         "--set AutoFormat=0 --set Separator=0 --set DateSetting=2 --set TimestampFormat=[ns]",
         "empty 7 12, unreadableAtStart 2, unreadable 8, unreadableAtEnd 13, repeats 4, falls 5, outOfRange "
         "10"},
        {"dates",
         "t;n\n01.01.1970 00:00:00;1\n13.02.2024 8:00:00;2\n31.02.2024 8:00:00;3\n13.02.2024 9:00:00;4\n",
         Dated, "unreadable 4, outOfRange 2"},
        {"times that are counted", "n\n1\n2\n\n3\n",
         "--set AutoFormat=0 --set DateSetting=2 --set TimeSetting=1 --set IntervalValue=0", "noStep 3 5"},
        {"no format", "t;n\n1;1\n;\n2;1\n", "--set AutoFormat=0 --set Separator=0",
         "empty 3, unreadable 2 4"},
    };
    for (const ReasonCase& c : cases) {
        SCOPED_TRACE(c.Name);
        const ProgramRun run;
        run.Write("data.csv", c.File);
        const Json document = Json::parse(Check(run, c.Options + " --json data.csv").Out);
        std::string reasons;
        for (const auto& [reason, places] : document["dropped"]["reasons"].items()) {
            reasons += (reasons.empty() ? "" : ", ") + reason;
            for (const Json& place : places["first"]) reasons += " " + place["line"].dump();
        }
        EXPECT_EQ(reasons, c.Reasons);
    }
}

TEST(Check, FindsRowsAboveTheTable) {
    const ProgramRun run;
    run.Write("data.csv",
              "Head\nZeit,n\n13.02.2024 8:00:00,1\n13.02.2024 8:00:01,2\n13.02.2024 8:00:02,3\nEnd\n");
    const ProgramResult lost =
        Check(run, Dated + "--set AutoFormat=0 --set Separator=0 --set FirstLine=5 data.csv");
    EXPECT_EQ(lost.Status, 3);
    const std::string options =
        "--set AutoFormat=0 --set Separator=1 --set MergeSeparators=0 --set FirstLine=2 --set ImportHeader=1";
    EXPECT_NE(lost.Out.find("lines 3 to 5"), std::string::npos) << lost.Out;
    EXPECT_NE(lost.Out.find(options), std::string::npos) << lost.Out;
}

std::string Utf16(const std::string& ascii) {
    std::string bytes = "\xFE\xFF";
    for (const char c : ascii) bytes += {'\0', c};
    return bytes;
}

std::string Same(const std::string& text) {
    return text;
}

const std::string InLineTwo = Dated + "--set AutoFormat=0 --set Separator=0 --set FirstLine=2 ";

// The samples that an import stores.
Json ImportedSamples(const ProgramRun& run, const std::string& file) {
    const ProgramResult result = run.Command("import --no-guess --json --samples all" + InLineTwo + file);
    return Json::parse(result.Out)["signals"][0]["samples"];
}

// Also on the day on which the clock is put forward: so long after midnight as the dated rows are read.
TEST(Check, AdvisesAnIntervalFromTheTimeOfTheFirstRow) {
    for (const std::string date : {"13.02.2024", "31.03.2024"}) {
        SCOPED_TRACE(date);
        const ProgramRun run;
        std::string file = "Zeit;n\n";
        for (int i = 0; i < 100; ++i) file += date + " 12:00:0" + std::to_string(i / 10) + ";1\n";
        run.Write("data.csv", file);
        const Json checked = Json::parse(Check(run, Dated + "--json data.csv").Out);
        std::istringstream remedy(checked["findings"][0]["remedy"].get<std::string>());
        std::string options = "--no-guess --json --samples 1 data.csv";
        for (std::string word; remedy >> word;) {
            if (word.find('=') != std::string::npos) options += " --set " + word;
        }
        EXPECT_EQ(Json::parse(run.Command(options).Out)["signals"].back()["samples"][0][0],
                  checked["time"]["first"]);
    }
}

TEST(Rejects, AreMendedAndImportedAlone) {
    for (const auto encode : {Same, Utf16}) {
        const ProgramRun run;
        const std::string bad = "13.Q2.2024 9:00:01;2\r\n";
        const std::string refused = "13.02.2024 9:00:02;x\r\n";
        run.Write("data.csv",
                  encode("note\r\nZeit;n\r\n" + Rows(500, 1) + bad + refused + "13.02.2024 9:00:02;4"));
        const ProgramResult some = Check(run, InLineTwo + "--rejects rejects.csv data.csv");
        EXPECT_EQ(some.Status, 3) << some.Err;
        EXPECT_EQ(run.Folder.Read("rejects.csv"),
                  encode("note\r\nZeit;n\r\n" + bad + "13.02.2024 9:00:02;4"));
        Check(run, InLineTwo + "--rejects rejects.csv --reject-cells data.csv");
        const std::string rejects = run.Folder.Read("rejects.csv");
        EXPECT_EQ(rejects, encode("note\r\nZeit;n\r\n" + bad + refused + "13.02.2024 9:00:02;4"));

        std::string mended = rejects;
        mended[mended.find('Q')] = '0';
        mended[mended.find('x')] = '3';
        mended[mended.rfind('2')] = '3';
        run.Write("mended.csv", mended);
        EXPECT_EQ(ImportedSamples(run, "mended.csv").dump(),
                  "[[1707811201000000000,2],[1707811202000000000,3],[1707811203000000000,4]]");
    }
}

TEST(Rejects, AreRefusedWhereTheyWouldDoHarm) {
    const ProgramRun run;
    const std::string file = "Zeit;n\n" + Rows(2, 1);
    run.Write("a.csv", file);
    run.Write("b.csv", file);
    EXPECT_EQ(Check(run, Dated + "--rejects r.csv a.csv b.csv").Status, 2);
    EXPECT_EQ(Check(run, Dated + "--rejects a.csv a.csv").Status, 2);
    EXPECT_EQ(run.Folder.Read("a.csv"), file);
    EXPECT_EQ(Check(run, Dated + "--rejects no/r.csv a.csv").Status, 1);
    EXPECT_EQ(Check(run, Dated + "a.csv missing.csv").Status, 1);
}

}  // namespace
