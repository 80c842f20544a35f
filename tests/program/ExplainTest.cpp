// What explain says of files that surprise people, and the options that it prints.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program/ProgramRun.h"

namespace {

using Json = nlohmann::ordered_json;

TEST(Explain, TellsWhatWasTakenAndWhy) {
    const ProgramRun run;
    run.Write("a.csv", "bench 7\nt;n;v\n0;1e5;\n1;2e5;1,5\n2;3e5;x\n");
    const ProgramResult result = run({"explain", "--no-guess", "a.csv"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Out,
              "a.csv\n"
              "  taken     separated by semicolon; header in line 2, data from line 3\n"
              "  why       The semicolon is regular from the earliest line on: each line from 2 to 5 has 2 "
              "semicolons, "
              "while line 1 has 0.\n"
              "            Line 3 is the first with enough numbers for data (2 of 3 cells, 1 needed), so "
              "line 2 above it "
              "is the header: \"t;n;v\".\n"
              "  runner-up none, no other separator occurs in line 5, the last one looked at\n"
              "  analysed  3 rows, lines 3 to 5; there the file ends\n"
              "  columns\n"
              "    1  Datum / Uhrzeit  timestamp    gives the rows their time, by the settings\n"
              "    2  n                hexadecimal  \"1e5\" in line 3 is no integer\n"
              "    3  v                text         \"1,5\" in line 4 fits no other type, and 1 of 3 cells "
              "are empty\n"
              "  warning   In column 2 \"n\", \"1e5\" in line 3 is read as a hexadecimal number, since an "
              "exponent without "
              "a decimal mark is one as well.\n"
              "            Remedy: Choose the type of floats: --type 2=float\n"
              "  advice    3 columns from line 3 on, separated by semicolons; names in line 2 (likely)\n"
              "              but: only 3 rows to judge by\n"
              "            elapsed seconds in column 1 (\"t\") (a guess)\n"
              "              but: the unit is not named\n"
              "            as options: --set AutoFormat=0 --set Separator=0 --set MergeSeparators=0 --set "
              "FirstLine=2 --set ImportHeader=1 --set DateSetting=2 --set TimeSetting=0 --set TimeColumn=1 "
              "--set 'TimestampFormat=[s]'\n");
}

// What the settings or a sidecar name is told beside what the analysis would take.
TEST(Explain, KnowsWhoNamedTheFormat) {
    const ProgramRun run;
    run.Write("a.csv", "t;v\n0;1.5\n1;2.5\n");
    const Json set = Json::parse(
        run({"explain", "--no-guess", "--json", "--set", "AutoFormat=0", "--set", "FirstLine=2", "a.csv"})
            .Out);
    EXPECT_EQ(set["why"][0],
              "The settings say so; without them it would be: separated by semicolon; header in "
              "line 1, data from line 2.");
    EXPECT_TRUE(set["proposal"]["options"].get<std::string>().starts_with(
        "--set AutoFormat=0 --set Separator=0 --set MergeSeparators=0 --set FirstLine=1 --set "
        "ImportHeader=1"))
        << set;
    EXPECT_EQ(run({"explain", "absent.csv"}).Status, 1);
}

}  // namespace
