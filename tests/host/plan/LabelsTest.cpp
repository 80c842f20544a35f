// Names and units above a table.
#include "host/plan/Labels.h"

#include <gtest/gtest.h>

#include <string>

#include "host/plan/PlanKit.h"

namespace {

using namespace kelvarin::plan;

// "Zeit|Druck [bar]", and "names 1, units 2" with the lines that there are.
std::string LabelsInWords(const char* text) {
    const FileSample sample = SampleOf(text);
    const std::optional<FoundTable> table = FindTable(sample);
    if (!table) return "no table";
    const Labels labels = FindLabels(sample, *table);
    std::string words;
    for (const Label& label : labels.Columns) {
        if (&label != labels.Columns.data()) words += "|";
        words += Utf16ToUtf8(label.Name);
        if (!label.Unit.empty()) words += "{" + Utf16ToUtf8(label.Unit) + "}";
    }
    if (labels.NamesLine != 0) words += ", names " + std::to_string(labels.NamesLine);
    if (labels.UnitsLine != 0) words += ", units " + std::to_string(labels.UnitsLine);
    return words;
}

struct LabelCase {
    const char* Text;
    const char* Labels;
};

TEST(PlanLabels, AreNamesDirectlyAboveTheTable) {
    const LabelCase cases[] = {
        {"Zeit;Druck\n0;1\n1;2\n2;3\n", "Zeit|Druck, names 1"},
        {"Zeit;Druck [bar];Speed (km/h)\n0;1;2\n1;2;2\n2;3;2\n",
         "Zeit|Druck [bar]{bar}|Speed (km/h){km/h}, names 1"},
        {"Zeit;Druck\n\n0;1\n1;2\n2;3\n", "Zeit|Druck, names 1"},
        {"0;1\n1;2\n2;3\n", "|"},
        // The numbers of the rows have no name, unless one says that it counts.
        {"\"time\" \"T\" \"v\"\n\"1\" 10:00 8.6 0.3\n\"2\" 10:01 8.1 0.4\n\"3\" 10:02 7.6 0.4\n",
         "|time|T|v, names 1"},
        {"No;time;T\n1;10:00;8.6;x\n2;10:01;8.1;y\n3;10:02;7.6;z\n", "No|time|T|, names 1"},
        {"time;T;v\n1;10:00;8.6;\n2;10:01;8.1;\n3;10:02;7.6;\n", "time|T|v|, names 1"},
        // The mark of a comment is no name.
        {"# t p\n0.5 1\n1.5 2\n2.5 3\n", "t|p, names 1"},
        {"# columns: t p\n0.5 1\n1.5 2\n2.5 3\n", "t|p, names 1"},
        // Names that could be units, below another line.
        {"\"2023-05-14\",\"10:00:00\"\nT,V,A\n0,1.5,2\n1,1.6,2\n2,1.7,2\n", "T|V|A, names 2"},
        // Names of another table, above a gap.
        {"a;b\n1;2\n\nTime;A;B\n0;1;2\n1;2;2\n2;3;2\n3;3;2\n", "Time|A|B, names 4"},
        // Keys and values.
        {"Lower,325\nUpper,480\n,,\nnm,A,T\n0,2.3,0.4\n1,2.3,0.4\n2,2.3,0.4\n", "nm|A|T, names 4"},
        // Any script.
        {"Время,Темп,Влаж\n2024-03-07 10:00:00,1.5,40\n2024-03-07 10:01:00,1.6,41\n2024-03-07 "
         "10:02:00,1.7,42\n",
         "Время|Темп|Влаж, names 1"},
        {"时间,温度,湿度\n2024-03-07 10:00:00,1.5,40\n2024-03-07 10:01:00,1.6,41\n2024-03-07 "
         "10:02:00,1.7,42\n",
         "时间|温度|湿度, names 1"},
        {"시간,온도(℃),습도(%)\n2024-03-07 10:00:00,1.5,40\n2024-03-07 10:01:00,1.6,41\n2024-03-07 "
         "10:02:00,1.7,42\n",
         "시간|온도(℃){℃}|습도(%){%}, names 1"},
        // Trailing separators.
        {"Zeit;Druck;\n0;1;\n1;2;\n2;3;\n", "Zeit|Druck|, names 1"},
    };
    for (const LabelCase& c : cases) EXPECT_EQ(LabelsInWords(c.Text), c.Labels) << c.Text;
}

TEST(PlanLabels, ArePlacedByPosition) {
    const LabelCase cases[] = {
        {"TIME                 TEMP    MODE\n2024-067 10:20:33   289.75     3\n2024-067 10:21:33   289.96    "
         " 3\n"
         "2024-067 10:22:33   290.16     3\n",
         "TIME||TEMP|MODE, names 1"},
        {"  yyyy  mm   tmax    af    rain\n             degC  days     mm\n  1965   1    8.6     0    54.3\n"
         "  1965   2    9.2     1    53.2\n  1965   3   12.9     4    72.3\n",
         "yyyy|mm|tmax{degC}|af{days}|rain{mm}, names 1, units 2"},
        {"DATE       TIME       X      Y   |\n2023-04-24 00:00:00   1.5   2.5\n2023-04-24 00:01:00   1.5   "
         "2.5\n"
         "2023-04-24 00:02:00   1.5   2.5\n",
         "DATE|TIME|X|Y, names 1"},
    };
    for (const LabelCase& c : cases) EXPECT_EQ(LabelsInWords(c.Text), c.Labels) << c.Text;
}

TEST(PlanLabels, StandAboveRowsOfUnitsKindsAndNumbers) {
    const LabelCase cases[] = {
        {"Zeit;Druck;Strom\ns;bar;mA\n0;1;2\n1;2;2\n2;3;2\n",
         "Zeit{s}|Druck{bar}|Strom{mA}, names 1, units 2"},
        {"Zeit;Druck;Strom\n[s];[bar];[mA]\n0;1;2\n1;2;2\n2;3;2\n",
         "Zeit{s}|Druck{bar}|Strom{mA}, names 1, units 2"},
        {"Time;A;B;C\ns;V;V;\n;Avg;Avg;Smp\n0;1;2;3\n1;2;2;3\n2;3;2;3\n",
         "Time{s}|A{V}|B{V}|C, names 1, units 2"},
        {"Time;Speed;v\n;1/min;km/h\n0;800;2\n1;801;2\n2;802;2\n",
         "Time|Speed{1/min}|v{km/h}, names 1, units 2"},
        {"s;V;V\nTime;A;B\n0;1;2\n1;2;2\n2;3;2\n", "Time{s}|A{V}|B{V}, names 2, units 1"},
        // The names of the channels of an oscilloscope are numbers.
        {"x-axis,1,2\nsecond,Volt,Volt\n-1e-3,0.5,0.1\n0,0.6,0.2\n1e-3,0.7,0.3\n",
         "x-axis{second}|1{Volt}|2{Volt}, names 1, units 2"},
    };
    for (const LabelCase& c : cases) EXPECT_EQ(LabelsInWords(c.Text), c.Labels) << c.Text;
}

TEST(PlanLabels, HaveUnitsInCapitals) {
    const LabelCase cases[] = {
        {"Date,Supply,Return,Fan,Duct\n,DEG F,DEG F,PCT,IN "
         "WC\n01/23/2023,58,71,64,1.2\n01/24/2023,58,71,64,1."
         "2\n01/25/2023,58,71,66,1.2\n",
         "Date|Supply{DEG F}|Return{DEG F}|Fan{PCT}|Duct{IN WC}, names 1, units 2"},
        // Names, however short.
        {"HR;MIN;A\n0;1;2.5\n1;2;2.5\n2;3;2.5\n", "HR|MIN|A, names 1"},
    };
    for (const LabelCase& c : cases) EXPECT_EQ(LabelsInWords(c.Text), c.Labels) << c.Text;
}

TEST(PlanLabels, EndInUnitsWhereOthersDo) {
    const LabelCase cases[] = {
        {"t;Pressure bar;Oil °C\n0;6.2;41\n1;6.1;55\n2;6.1;61\n", "t|Pressure bar{bar}|Oil °C{°C}, names 1"},
        {"t;Spannung V;Strom A\n0;6.2;41\n1;6.1;55\n2;6.1;61\n", "t|Spannung V{V}|Strom A{A}, names 1"},
        {"t;Pressure bar;Oil\n0;6.2;41\n1;6.1;55\n2;6.1;61\n", "t|Pressure bar|Oil, names 1"},
        {"t;Phase A;Phase B;Oil °C\n0;6.2;4;5\n1;6.1;5;5\n2;6.1;6;5\n",
         "t|Phase A|Phase B|Oil °C{°C}, names 1"},
        {"t;Viable cells;Oil °C\n0;6.2;41\n1;6.1;55\n2;6.1;61\n", "t|Viable cells|Oil °C{°C}, names 1"},
    };
    for (const LabelCase& c : cases) EXPECT_EQ(LabelsInWords(c.Text), c.Labels) << c.Text;
}

TEST(PlanLabels, AreNotThePreamble) {
    const LabelCase cases[] = {
        {"Device;Logger 7\nSerial;4711\n\nZeit;Druck\n0;1\n1;2\n2;3\n3;4\n", "Zeit|Druck, names 4"},
        {"Today's weather;;;;\nt;a;b;c;d\n0;1;2;3;4\n1;1;2;3;4\n2;1;2;3;4\n", "t|a|b|c|d, names 2"},
        // Neither is a line that is drawn.
        {"t  p   n\n-- -- --\n0.5 1 7\n1.5 2 7\n2.5 3 7\n", "t|p|n, names 1"},
        // Words around a time, but not names that are times.
        {"Begin of block Thu 10:00:00 2023\n0.0012 1 38 Rx d 8 74\n0.0055 1 15 Rx d 8 04\n0.0124 2 28 Rx d 8 "
         "80\n",
         "||||||"},
        {"Datum;00:00;00:15;00:30\n01.01.2024;1,5;2;3\n02.01.2024;1,6;2;3\n03.01.2024;1,7;2;3\n",
         "Datum|00:00|00:15|00:30, names 1"},
        // Neither are sentences and settings nearer to the table than the names.
        {"t  p  n\n# this is for tests\n0.5 1 7\n1.5 2 7\n2.5 3 7\n", "t|p|n, names 1"},
        {"Time;Force [kN];Way [mm]\nStart: 10:20;Start: 10:20;Start: 10:20\nT0: "
         "10:20;Bridge;Wire\n0;1;2\n1;2;2\n"
         "2;3;2\n",
         "Time|Force [kN]{kN}|Way [mm]{mm}, names 1"},
        {"[Channel 2 data]\n0.5 1 7\n1.5 2 7\n2.5 3 7\n", "||"},
        {"Logger Data File:\n0.5 1 7\n1.5 2 7\n2.5 3 7\n", "||"},
        {"No,\"Temp (S/N: 7)\",\"RH (S/N: 8)\"\n0,1,2\n1,2,2\n2,3,2\n",
         "No|Temp (S/N: 7)|RH (S/N: 8), names 1"},
        {"Range =100.0 m\n0.5 1 7\n1.5 2 7\n2.5 3 7\n", "||"},
        // Numbers above numbers are no names.
        {"Ridge\n41.520  -103.411 1377 m version 1\n1 2 3 4 5 6 7 8 9\n2 2 3 4 5 6 7 8 9\n3 2 3 4 5 6 7 8 "
         "9\n",
         "||||||||"},
    };
    for (const LabelCase& c : cases) EXPECT_EQ(LabelsInWords(c.Text), c.Labels) << c.Text;
}

}  // namespace
