// What is assumed of short files, how sure, and what speaks against it.
#include "host/plan/Sureness.h"

#include <gtest/gtest.h>

#include <string>

#include "host/plan/PlanKit.h"

namespace {

using namespace kelvarin::plan;
using kelvarin::Certainty;

struct SurenessCase {
    const char* Text;
    Certainty Sureness;
    const char* Objections;  // of table, times and rows, with "; " between
};

TEST(PlanSureness, FallsWithWhatSpeaksAgainstThePlan) {
    const SurenessCase cases[] = {
        {"t;v\n2024-01-30 10:00;1\n2024-01-30 10:01;2\n2024-01-30 10:02;3\n2024-01-30 10:03;4\n",
         Certainty::Certain, ""},
        {"t;v\n31.01.2024 10:00;1\n31.01.2024 10:01;2\n31.01.2024 10:02;3\n31.01.2024 10:03;4\n",
         Certainty::Certain, ""},
        {"t [s];v\n0;1\n1;2\n2;3\n3;4\n", Certainty::Certain, ""},
        {"t [s];v\n0;1\n1;2\n2;3\n", Certainty::Likely, "only 3 rows to judge by"},
        {"2024-01-30 10:00;1\n2024-01-30 10:01;2\n2024-01-30 10:02;3\n2024-01-30 10:03;4\n",
         Certainty::Likely, "no line names the columns"},
        {"Âðåìÿ;Òåìïåðàòóðà\n2024-01-30 10:00;1\n2024-01-30 10:01;2\n2024-01-30 10:02;3\n2024-01-30 "
         "10:03;4\n",
         Certainty::Likely, "the names are in an encoding that is not read here"},
        {"Größe;Höhe über NN\n2024-01-30 10:00;1\n2024-01-30 10:01;2\n2024-01-30 10:02;3\n"
         "2024-01-30 10:03;4\n",
         Certainty::Certain, ""},
        // Day and month.
        {"t;v\n01/02/2024 10:00;1\n01/02/2024 10:01;2\n01/02/2024 10:02;3\n01/02/2024 10:03;4\n",
         Certainty::Uncertain, "day and month could be swapped: no row tells which comes first"},
        {"t;v\n01.02.2024 10:00;1\n01.02.2024 10:01;2\n01.02.2024 10:02;3\n01.02.2024 10:03;4\n",
         Certainty::Likely,
         "no row tells whether day or month comes first: it is the usual order of such dates"},
        {"t;v\n03/01/2024;1\n03/02/2024;2\n03/03/2024;3\n03/04/2024;3\n", Certainty::Likely,
         "that the month comes before the day follows from the distances of the rows alone"},
        // Numbers.
        {"Time;v\n0.5;1\n1.5;2\n2.5;3\n3.5;4\n", Certainty::Uncertain, "the unit is not named"},
        {"run s;v\n0;1\n1;2\n2;3\n3;4\n", Certainty::Likely, "plain numbers may mean something else"},
        // Clocks.
        {"Time;v\n00:00;1\n00:05;2\n00:10;2\n00:15;2\n", Certainty::Likely,
         "hours and minutes could be minutes and seconds"},
        {"Time (mm:ss);v\n00:00;1\n00:05;2\n00:10;2\n00:15;2\n", Certainty::Certain, ""},
        // No times.
        {"A;B;C\n5;1;7\n4;9;7\n5;1;8\n4;1;8\n", Certainty::Uncertain,
         "nothing names the interval: it is an example"},
        {"Interval: 10 s\nA;B;C\n5;1;7\n4;9;7\n5;1;8\n4;1;8\n", Certainty::Likely,
         "the interval is taken from the lines above the table"},
        // Rows that get no time of their own.
        {"t;v\n2024-01-30 10:00;1\n2024-01-30 10:01;2\n2024-01-30 10:01;3\n2024-01-30 10:02;4\n",
         Certainty::Likely, "times repeat: 1"},
        {"t;v\n2024-01-30;1\n2024-01-30;2\n2024-01-30;3\n2024-01-31;4\n", Certainty::Uncertain,
         "times repeat: 2"},
        {"t;v\n2024-01-30 10:03;1\n2024-01-30 10:02;2\n2024-01-30 10:01;3\n2024-01-30 10:00;4\n",
         Certainty::Likely, "the newest row is the first"},
        {"t;e;v\n2024-01-30 10:00;2024-01-30 10:01;1\n2024-01-30 10:01;2024-01-30 10:02;1\n"
         "2024-01-30 10:02;2024-01-30 10:03;1\n2024-01-30 10:03;2024-01-30 10:04;1\n",
         Certainty::Likely, "column 2 (\"e\") holds times as well"},
    };
    for (const SurenessCase& c : cases) {
        SCOPED_TRACE(c.Text);
        const std::optional<ReadingPlan> plan = FindPlan(SampleOf(c.Text));
        ASSERT_TRUE(plan);
        const std::vector<Assumption> all = Assumptions(*plan);
        EXPECT_EQ(kelvarin::CertaintyInWords(SurenessOf(all)), kelvarin::CertaintyInWords(c.Sureness));
        std::string objections;
        for (const Assumption& one : all) {
            for (const std::string& objection : one.Objections)
                objections += (objections.empty() ? "" : "; ") + objection;
        }
        EXPECT_EQ(objections, c.Objections);
    }
}

TEST(PlanSureness, EachAssumptionIsALine) {
    const std::optional<ReadingPlan> plan = FindPlan(SampleOf(
        "Logger;7\n\nZeit;p;n;s\nms;bar;;\n0;1,5;0;run\n10;1,6;5;stop\n20;1,7;1;run\n30;1,7;1;run\n"));
    ASSERT_TRUE(plan);
    std::string lines;
    for (const Assumption& one : Assumptions(*plan)) lines += one.Kind + ": " + one.Text + "\n";
    EXPECT_EQ(lines,
              "table: 4 columns from line 5 on, separated by semicolons; names in line 3; units in line 4\n"
              "times: elapsed milliseconds in column 1 (\"Zeit\")\n"
              "rows: 4 of the 4 rows looked at have a time\n"
              "units: 2 columns with units, from line 4\n"
              "types: decimal numbers: 1, whole numbers: 1, texts: 1\n");
}

}  // namespace
