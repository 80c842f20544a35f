// The settings dialog as a user meets it, by scripts.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "kit/DialogScenarios.h"
#include "program/ProgramRun.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* German =
    "Kopf\nDatum;Uhrzeit;n;v;x\n01.02.2024;10:00:00;5;1,5;a\n01.02.2024;10:00:01;6;2,5;b\n";

// Runs the script and compares each "?" line with the dump made there; "?/result 1" asks for the end.
void Play(const DialogScenario& scenario) {
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
    for (const DialogScenario& scenario : DialogScenarios()) Play(scenario);
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
