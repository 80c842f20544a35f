// The settings dialog as a user meets it: steps, and what must then be seen. A case is a script; every line
// that begins with "?" asks for the state at that moment: a path into the dump and the value that must stand
// there.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "program/ProgramRun.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* German =
    "Kopf\nDatum;Uhrzeit;n;v;x\n01.02.2024;10:00:00;5;1,5;a\n01.02.2024;10:00:01;6;2,5;b\n";
constexpr const char* Seconds = "t;v\n0,5;1\n1,5;2\n";

struct Scenario {
    const char* What;
    std::string File;
    std::vector<std::string> Options;
    std::string Script;
};

// Runs the script and compares each "?" line with the dump made there; "?/result 1" asks for the end.
void Play(const Scenario& scenario) {
    SCOPED_TRACE(scenario.What);
    const ProgramRun run;
    run.Write("data.csv", scenario.File);
    std::string steps;
    std::vector<std::pair<std::string, std::string>> expectations;
    std::istringstream lines(scenario.Script);
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line[0] != '?') {
            steps += line + "\n";
            continue;
        }
        const std::size_t blank = line.find(' ');
        expectations.emplace_back(line.substr(1, blank - 1), line.substr(blank + 1));
        if (line.compare(0, 8, "?/result") != 0) steps += "dump\n";
    }
    run.Write("script.txt", steps);
    std::vector<std::string> arguments = {"dialog", "--script", "script.txt"};
    arguments.insert(arguments.end(), scenario.Options.begin(), scenario.Options.end());
    arguments.push_back("data.csv");
    const ProgramResult result = run(arguments);
    EXPECT_EQ(result.Status, 0) << result.Err;
    std::istringstream documents(result.Out);
    Json document;
    for (const auto& [path, value] : expectations) {
        std::string text;
        ASSERT_TRUE(std::getline(documents, text)) << "no state for " << path;
        document = Json::parse(text);
        const Json::json_pointer pointer(path);
        EXPECT_EQ(document.contains(pointer) ? document[pointer].dump() : "absent", value) << path;
    }
}

TEST(Dialog, FollowsTheUser) {
    const Scenario scenarios[] = {
        {"the format is detected, shown and locked",
         German,
         {},
         "?/controls/1022/checked true\n?/controls/1005/checked true\n?/controls/1005/enabled false\n"
         "?/controls/1025/text \"2\"\n?/focus 1022\n?/preview/rows/1/2 \"6\"\n?/preview/columns/0/tinted "
         "true\n"
         "?/preview/columns/1/tinted false\n?/signals null\n?/controls/1052/text \"(Formatangabe passt "
         "nicht)\"\n"},
        {"another separator and back",
         German,
         {},
         "click 1022\n?/controls/1005/enabled true\nclick 1004\n?/preview/columns/1 absent\nclick 1005\n"
         "?/preview/columns/4/heading \"x\"\nclick 1022\n?/controls/1005/enabled false\n"},
        {"date and time columns give the first timestamp",
         German,
         {},
         "type 1015 2\nleave\n?/controls/1020/items/1 \"TT.MM.JJJJ; hh:mm:ss,000\"\nselect 1020 1\n"
         "?/controls/1052/text \"" +
             ShownTime(2024, 2, 1, 10, 0, 0) +
             ".000000000\"\n?/preview/columns/1/heading \"Uhrzeit\"\n"
             "?/settings/TimestampFormat \"TT.MM.JJJJ; hh:mm:ss,000\"\n"},
        {"the time column first puts the time first",
         German,
         {},
         "type 1014 2\nleave\n?/controls/1020/items/0 \"hhmmss; TT.MM.JJJJ\"\n"},
        {"a number is free while it is typed",
         German,
         {},
         "type 1014 1000\n?/messages []\n?/settings/DateColumn 1000\nleave\n"
         "?/messages/0 \"Geben Sie eine ganze Zahl zwischen 1 und 999 ein.\"\n?/focus 1014\n"},
        {"an emptied line number skips no line",
         German,
         {},
         "click 1022\ntype 1025 \n?/settings/FirstLine -1\n?/controls/1025/text "
         "\"\"\n?/preview/columns/0/heading \"Datum / Uhrzeit\"\nleave\n"
         "?/messages/0 \"Geben Sie eine ganze Zahl zwischen 1 und 999 ein.\"\n"},
        {"a fixed interval takes the date from no column",
         German,
         {},
         "click 1045\n?/controls/1059/checked true\n?/controls/1060/enabled false\n?/controls/1018/enabled "
         "true\n"
         "?/controls/1020/enabled false\ntype 1018 0\nleave\n"
         "?/messages/0 \"Geben Sie eine Zahl zwischen 0.001 und 1000000 ein.\"\n?/focus 1018\n"},
        {"elapsed time is shown as a span",
         Seconds,
         {},
         "click 1058\ntype 1020 [s],000\n?/controls/1052/text \"0:00:00.500000000\"\n?/controls/1014/enabled "
         "false\n"
         "click 1050\ntime 1031 01:00:00\nselect 1063 2\n?/controls/1052/text \"-0:59:59.500000000\"\n"},
        {"the Unix start date",
         Seconds,
         {},
         "click 1059\n?/controls/1064/enabled true\nclick 1064\n?/settings/StartDate "
         "0\n?/controls/1040/value \"1970-01-01 01:00:00\"\n"
         "type 1020 [s],000\n?/controls/1052/text \"" +
             ShownTime(1970, 1, 1, 1, 0, 0) +
             ".500000000\"\n"
             "date 1040 1960-05-05\n?/settings/StartDate 0\n?/controls/1040/value \"1970-01-01 01:00:00\"\n"},
        {"signals are named, typed and unticked",
         German,
         {},
         "page 1\n?/messages/0 \"Geben Sie eine gültige Formatangabe ein.\"\n?/page 0\ntype 1020 x\npage "
         "1\n?/page 1\n"
         "name 0 Zeit\ncheck 1\ndatatype 2 fließkommaz\n?/signals/0/name \"Zeit\"\n?/signals/1/checked "
         "false\n"
         "?/signals/2/type \"Fließkommazahl\"\nname 0  \n?/signals/0/name \"Uhrzeit\"\nclick "
         "1039\n?/signals/1/checked true\n"},
        {"no signal at all is refused at OK",
         German,
         {"--set", "TimestampFormat=x", "--set", "DateColumn=2"},
         "page 1\ncheck 0\ncheck 1\ncheck 2\nok\n?/messages/0 \"Mindestens ein Signal muss zum "
         "Import ausgewählt sein.\"\n"
         "?/page 1\ncheck 1\nok\n?/result 1\n"},
        {"a column beyond the file is refused",
         German,
         {"--set", "TimestampFormat=x"},
         "type 1015 9\nok\n?/messages/0 \"Geben Sie eine gültige Spaltennummer zwischen 1 und 5 "
         "ein.\"\n?/focus 1015\n"},
        {"an own separator must be there",
         German,
         {"--set", "TimestampFormat=x"},
         "click 1022\nclick 1010\nok\n?/messages/0 \"Legen Sie ein Trennzeichen fest.\"\ntype 1051 "
         ";;\n?/controls/1051/text \";\"\nok\n?/result 1\n"},
        {"a column keeps the width that the user gave it",
         German,
         {},
         "width 2 33\nclick 1022\n?/preview/columns/2/width 33\n"},
        {"a refused edit takes the focus back, and the step is lost",
         German,
         {},
         "type 1014 1000\npage 1\n?/page 0\n?/focus 1014\ntype 1014 2147483648\n?/settings/DateColumn "
         "2147483647\n"
         "type 1014 1\nclick 1050\n?/settings/Adjust 1\n"},
        {"an interval out of bounds is told, and again as its edit is disabled with the focus in it",
         German,
         {"--set", "IntervalValue=inf"},
         "?/messages [\"Geben Sie eine Zahl zwischen 0.001 und 1000000 ein.\",\"Geben Sie eine Zahl zwischen "
         "0.001 und 1000000 ein.\"]\n?/focus 1022\n"},
        {"Cancel takes everything back",
         German,
         {"--set", "StartDate=5", "--set", "AdjustTime=6"},
         "click 1022\nclick 1004\nclick 1045\nclick 1065\nclick 1009\nwidth 0 7\n?/settings/Separator "
         "1\ncancel\n?/result 2\n"},
    };
    for (const Scenario& scenario : scenarios) Play(scenario);
}

TEST(Dialog, StoresAtOkWhatTheUserAskedFor) {
    const ProgramRun run;
    run.Write("data.csv", German);
    run.Write("other.csv", German);
    run.Write("ok.txt",
              "type 1015 2\nleave\nselect 1020 1\nclick 1009\nclick 1065\npage 1\nname 0 Anzahl\nok\n");
    const ProgramResult done = run({"dialog", "--script", "ok.txt", "data.csv"});
    EXPECT_EQ(done.Status, 0) << done.Err;
    EXPECT_EQ(Json::parse(done.Out)["columns"][2]["UserName"], "Anzahl");
    EXPECT_NE(run.Folder.Read("data.csv.info").find("TT.MM.JJJJ; hh:mm:ss,000"), std::string::npos);
    // The sidecar serves this file, the profile every other one.
    EXPECT_EQ(Json::parse(run({"--json", "data.csv"}).Out)["signals"][0]["count"], 2);
    EXPECT_EQ(Json::parse(run({"--json", "other.csv"}).Out)["signals"][0]["count"], 2);
    const std::string profile = run.Folder.Read("config/Brenholt/kelvarin.ini");
    run.Write("cancel.txt", "click 1022\nclick 1065\ncancel\n");
    EXPECT_EQ(Json::parse(run({"dialog", "--script", "cancel.txt", "other.csv"}).Out)["result"], 2);
    EXPECT_EQ(run.Folder.Read("config/Brenholt/kelvarin.ini"), profile);
}

TEST(Dialog, RefusesStepsThatNobodyCouldDo) {
    const ProgramRun run;
    run.Write("data.csv", German);
    for (const char* step :
         {"click 1005", "click 9999", "type 1052 x", "select 1020 10", "page 2", "check 0", "dance"}) {
        run.Write("bad.txt", std::string("click 1065\n") + step + "\nok\n");
        const ProgramResult result = run({"dialog", "--script", "bad.txt", "data.csv"});
        EXPECT_EQ(result.Status, 2) << step;
        EXPECT_EQ(result.Err.find("kelvarin-import: line 2 of the script: "), 0u) << step << result.Err;
    }
    EXPECT_EQ(run.Folder.Read("config/Brenholt/kelvarin.ini"), "");
    EXPECT_EQ(run({"dialog", "--script", "bad.txt", "missing.csv"}).Status, 1);
}

}  // namespace
