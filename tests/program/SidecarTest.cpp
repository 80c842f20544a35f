// The sidecar from the command line: written, checked, honoured.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program/ProgramRun.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* Data = "t;v\n01.02.2024 10:00:00;1,5\n01.02.2024 10:00:01;2\n";

TEST(Sidecar, WrittenOnceGivesEveryLaterRunItsSettings) {
    const ProgramRun run;
    run.Write("a.csv", Data);
    const ProgramResult written = run({"sidecar", "--set", "TimestampFormat=TT.MM.JJJJ hh:mm:ss", "a.csv"});
    EXPECT_EQ(written.Status, 0) << written.Err;
    EXPECT_EQ(written.Out, "a.csv.info\n");
    const Json document = Json::parse(run({"--json", "a.csv"}).Out);
    EXPECT_EQ(document["signals"][0]["count"], 2);
    EXPECT_EQ(document["messages"].dump(), "[]");
    EXPECT_EQ(run({"sidecar", "--check", "a.csv.info"}).Status, 0);
    EXPECT_EQ(run({"sidecar", "missing.csv"}).Err,
              "kelvarin-import: missing.csv: No such file or directory\n");
}

TEST(Sidecar, WithErrorsIsReportedAndNotUsed) {
    const ProgramRun run;
    run.Write("50%s%d.csv", Data);
    run.Write("50%s%d.csv.info",
              "<CSV-INFO format-rev=\"2\">\n  <START-LINE>one</START-LINE>\n</CSV-INFO>\n");
    const std::string warning = "Die Sidecar-Datei '50%s%d.csv.info' enthält ungültige Angaben.";
    const Json analyzed = Json::parse(run({"analyze", "--no-guess", "--json", "50%s%d.csv"}).Out);
    EXPECT_EQ(analyzed["sidecarWarning"], warning);
    EXPECT_EQ(analyzed["settings"]["AutoFormat"], 1);
    const Json imported = Json::parse(
        run({"--no-guess", "--json", "--set", "TimestampFormat=TT.MM.JJJJ hh:mm:ss", "50%s%d.csv"}).Out);
    EXPECT_EQ(imported["messages"].dump(),
              Json::array({{{"failure", false}, {"column", -2}, {"text", warning}}}).dump());
    EXPECT_EQ(imported["signals"][0]["count"], 2);

    const ProgramResult checked = run({"sidecar", "--check", "--json", "50%s%d.csv.info"});
    EXPECT_EQ(checked.Status, 1);
    EXPECT_EQ(checked.Err,
              "kelvarin-import: 50%s%d.csv.info: line 2, column 3: the content of START-LINE is no whole "
              "number of 32 "
              "bits\n");
    const Json check = Json::parse(checked.Out);
    EXPECT_EQ(check["errors"], 4) << "the number and three missing elements";
    EXPECT_EQ(check["fields"]["SEPARATOR"], ",");
}

TEST(Sidecar, IsCopiedToFilesThatItFits) {
    const ProgramRun run;
    run.Write("a.csv", Data);
    run.Write("b.csv", Data);
    run.Write("has.csv", Data);
    run.Write("has.csv.info", "old");
    run.Write("name.csv", "t;w\n01.02.2024 10:00:00;1,5\n");
    run.Write("time.csv", "t;v\n2024-02-01;1,5\n");
    run.Write("wide.csv", "t;v;w\n01.02.2024 10:00:00;1,5;1\n");
    ASSERT_EQ(run({"sidecar", "--set", "TimestampFormat=TT.MM.JJJJ hh:mm:ss", "a.csv"}).Status, 0);
    const ProgramResult applied = run({"sidecar", "apply", "a.csv.info", "*.csv"});
    EXPECT_EQ(applied.Status, 1);
    EXPECT_EQ(applied.Out, "b.csv.info\n");
    EXPECT_EQ(
        applied.Err,
        "kelvarin-import: has.csv: has.csv.info exists already; --force replaces it\n"
        "kelvarin-import: name.csv: its column 2 is 'w' instead of 'v'\n"
        "kelvarin-import: time.csv: the format 'TT.MM.JJJJ hh:mm:ss' does not read its first time "
        "'2024-02-01'\n"
        "kelvarin-import: wide.csv: it has 3 columns instead of 2\n"
        "kelvarin-import: 5 files: 1 with the sidecar, 4 failed: has.csv, name.csv, time.csv, wide.csv\n");
    EXPECT_EQ(run.Folder.Read("b.csv.info"), run.Folder.Read("a.csv.info"));
    EXPECT_EQ(run({"sidecar", "apply", "--force", "a.csv.info", "has.csv"}).Status, 0);
    EXPECT_EQ(run.Folder.Read("has.csv.info"), run.Folder.Read("a.csv.info"));
}

TEST(Sidecar, TellsWhereTwoDiffer) {
    const ProgramRun run;
    run.Write("a.csv", Data);
    run.Write("b.csv", Data);
    run({"sidecar", "a.csv"});
    run({"sidecar", "--set", "TimeColumn=2", "b.csv"});
    const ProgramResult differ = run({"sidecar", "diff", "a.csv.info", "b.csv.info"});
    EXPECT_EQ(differ.Status, 3);
    EXPECT_EQ(differ.Out, "TIME-COLUMN  \"0\"  ->  \"1\"\n");
    const ProgramResult equal = run({"sidecar", "diff", "--json", "a.csv.info", "a.csv.info"});
    EXPECT_EQ(equal.Status, 0);
    EXPECT_EQ(Json::parse(equal.Out)["equal"], true);
    EXPECT_EQ(run({"sidecar", "diff", "a.csv.info", "missing.info"}).Status, 1);
    EXPECT_EQ(run({"sidecar"}).Status, 2);
}

// The lines that an import reads, and every sample.
std::string Samples(const ProgramRun& run, const std::string& options) {
    const ProgramResult result = run.Command("import --no-guess --json --samples all a.csv" + options);
    const Json document = Json::parse(result.Out, nullptr, false);
    return document["lines"].dump() + " " + document["signals"].dump();
}

TEST(Sidecar, ReadsTheLinesThatAnImportReadsNow) {
    struct Case {
        const char* What;
        const char* Bytes;
        std::string Options;
    };
    const std::string byHand = " --set AutoFormat=0 --set ImportHeader=0 --set Separator=";
    const Case cases[] = {
        {"no header", "1;10\n2;20\n3;30\n", ""},
        {"no header, some lines down", "a\nb\n1;10\n2;20\n3;30\n", ""},
        {"a header", "t;v\n1;10\n2;20\n", ""},
        {"a header, some lines down", "a\n\nt;v\n1;10\n2;20\n", ""},
        {"no header, by hand", "0;5\n1;10\n2;20\n3;30\n", byHand + "0 --set FirstLine=2"},
        {"no header, first line by hand", "1;10\n2;20\n", byHand + "0 --set FirstLine=-7"},
        {"a separator that XML escapes", "1<10\n2<20\n", byHand + "4 --set OtherSeparator=<"},
        {"a tab as another separator", "1\t10\n2\t20\n", byHand + "4 --set OtherSeparator=\t"},
        {"two characters, one of which counts", "1a10\n2a20\n", byHand + "4 --set OtherSeparator=ab"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.What);
        const ProgramRun run;
        run.Write("a.csv", c.Bytes);
        const std::string options = c.Options + " --set DateSetting=2 --set TimestampFormat=[s]";
        const std::string before = Samples(run, options);
        EXPECT_NE(before.find(R"("count":)"), std::string::npos) << before;
        for (const std::string command : {"sidecar a.csv", "sidecar --force a.csv"}) {
            EXPECT_EQ(run.Command(command + options).Err, "");
            EXPECT_EQ(Samples(run, ""), before) << command;
        }
    }
}

TEST(Sidecar, StaysAsItIsWithoutForce) {
    const ProgramRun run;
    run.Write("a.csv", Data);
    run.Write("a.csv.info", "mine");
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"sidecar", "a.csv"}, {"sidecar", "--guess-time", "a.csv"}}) {
        const ProgramResult kept = run(command);
        EXPECT_EQ(kept.Status, 1);
        EXPECT_EQ(kept.Err, "kelvarin-import: a.csv: a.csv.info exists already; --force replaces it\n");
        EXPECT_EQ(run.Folder.Read("a.csv.info"), "mine");
    }
    EXPECT_EQ(run({"sidecar", "--force", "a.csv"}).Status, 0);
    EXPECT_EQ(run({"sidecar", "--check", "a.csv.info"}).Status, 0);
    EXPECT_EQ(run.Folder.Names(), "a.csv a.csv.info");
}

TEST(Sidecar, IsNotWrittenWithWhatItCantHold) {
    const std::string other = "no sidecar can say this separator: it would be read as another";
    const std::pair<std::string, std::string> cases[] = {
        {"OtherSeparator=\x1F", "no XML can hold the value of SEPARATOR"},
        {"OtherSeparator=\xEF\xBF\xBE", "no XML can hold the value of SEPARATOR"},
        {"TimestampFormat=TT\x01", "no XML can hold the value of TIMESTAMP-FORMAT"},
        {"OtherSeparator=-->", other},
        {"OtherSeparator=", other},
    };
    for (const auto& [setting, reason] : cases) {
        SCOPED_TRACE(setting);
        const ProgramRun run;
        run.Write("a.csv", Data);
        const std::string separator = setting[0] == 'O' ? "4" : "0";
        const ProgramResult refused = run.Command(
            "sidecar a.csv --set AutoFormat=0 --set Separator=" + separator + " --set " + setting);
        EXPECT_EQ(refused.Status, 1);
        EXPECT_EQ(refused.Out, "");
        EXPECT_EQ(refused.Err, "kelvarin-import: a.csv: " + reason + "\n");
        EXPECT_EQ(run.Folder.Names(), "a.csv");
    }
}

}  // namespace
