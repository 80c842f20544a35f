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
    const Json analyzed = Json::parse(run({"analyze", "--json", "50%s%d.csv"}).Out);
    EXPECT_EQ(analyzed["sidecarWarning"], warning);
    EXPECT_EQ(analyzed["settings"]["AutoFormat"], 1);
    const Json imported =
        Json::parse(run({"--json", "--set", "TimestampFormat=TT.MM.JJJJ hh:mm:ss", "50%s%d.csv"}).Out);
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

}  // namespace
