// The times of short files, as devices print them.
#include "host/plan/TimeSearch.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <span>
#include <string>

#include "host/plan/Durations.h"
#include "host/plan/PlanKit.h"
#include "host/plan/TimesInWords.h"

namespace {

using namespace kelvarin::plan;

struct TimesCase {
    const char* Text;
    const char* Times;  // in words
    const char* First;
    const char* Last;
};

// "2024-01-31 10:00:00.5" or, of elapsed time, "36000.5".
std::string MomentOf(const TimeRecipe& recipe, std::int64_t time) {
    char text[60];
    const std::int64_t days = time / DayLength;
    const std::int64_t clock = time % DayLength;
    if (!recipe.IsAbsolute) {
        std::snprintf(text, sizeof text, "%.9g", static_cast<double>(time) / 1e9);
        return text;
    }
    int year = 1970 + static_cast<int>(days / 366);
    while (DaysSince1970(year + 1, 1, 1) <= days) ++year;
    int month = 1;
    while (month < 12 && DaysSince1970(year, month + 1, 1) <= days) ++month;
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%.6g", year, month,
                  static_cast<int>(days - DaysSince1970(year, month, 1) + 1), static_cast<int>(clock / Hour),
                  static_cast<int>(clock / Minute % 60), static_cast<double>(clock % Minute) / 1e9);
    return text;
}

void CheckTimes(std::span<const TimesCase> cases) {
    for (const TimesCase& c : cases) {
        SCOPED_TRACE(c.Text);
        const std::optional<ReadingPlan> plan = FindPlan(SampleOf(c.Text));
        ASSERT_TRUE(plan && plan->Times);
        EXPECT_EQ(TimesInWords(*plan), c.Times);
        EXPECT_EQ(MomentOf(plan->Times->Recipe, plan->Times->Trial.First), c.First);
        EXPECT_EQ(MomentOf(plan->Times->Recipe, plan->Times->Trial.Last), c.Last);
    }
}

TEST(PlanTimes, AreDatesAndClocksInOneColumnOrTwo) {
    const TimesCase cases[] = {
        {"t;v\n2024-01-31 10:00:00;1\n2024-01-31 10:00:01;2\n2024-01-31 10:00:02.5;3\n",
         "date and time in column 1 (\"t\")", "2024-01-31 10:00:0", "2024-01-31 10:00:2.5"},
        {"v;w;When\n1;5;2024-01-31T10:00:00Z\n2;6;2024-01-31T10:00:01Z\n3;7;2024-01-31T10:00:02Z\n",
         "date and time in column 3 (\"When\")", "2024-01-31 10:00:0", "2024-01-31 10:00:2"},
        {"Datum;Zeit;v\n31.01.2024;10:00;1\n31.01.2024;10:01;2\n31.01.2024;10:02;3\n",
         "date and time in column 1 (\"Datum\"), column 2 (\"Zeit\"), day before month", "2024-01-31 10:00:0",
         "2024-01-31 10:02:0"},
        {"Time;Date;v\n10:00;01/31/2024;1\n10:01;01/31/2024;2\n10:02;01/31/2024;3\n",
         "date and time in column 2 (\"Date\"), column 1 (\"Time\"), month before day", "2024-01-31 10:00:0",
         "2024-01-31 10:02:0"},
        {"Day;v\n2024-01-30;1\n2024-01-31;2\n2024-02-01;3\n", "date in column 1 (\"Day\")",
         "2024-01-30 00:00:0", "2024-02-01 00:00:0"},
        {"Zeit;v\n28 april 2023 13:00;1\n28 april 2023 13:25;2\n28 april 2023 13:50;2\n",
         "date and time in column 1 (\"Zeit\")", "2023-04-28 13:00:0", "2023-04-28 13:50:0"},
        // Midnight with the day that it ends, and with the one that it begins.
        {"t;v\n2024-05-01 23:30;1\n2024-05-01 23:45;2\n2024-05-01 00:00;3\n2024-05-02 00:15;4\n"
         "2024-05-02 00:30;5\n",
         "date and time in column 1 (\"t\")", "2024-05-01 23:30:0", "2024-05-02 00:30:0"},
        {"t;v\n2024-05-01 23:15;1\n2024-05-01 23:30;2\n2024-05-01 23:45;3\n2024-05-01 00:00;4\n",
         "date and time in column 1 (\"t\")", "2024-05-01 23:15:0", "2024-05-02 00:00:0"},
        {"t;v\n2024-05-01 23:30;1\n2024-05-01 23:45;2\n2024-05-02 00:00;3\n",
         "date and time in column 1 (\"t\")", "2024-05-01 23:30:0", "2024-05-02 00:00:0"},
        // The year is above.
        {"# log of 2023\ndate;v\nApr 30 23:59:00;1\nMay 1 00:00:00;2\nMay 1 00:01:00;3\n",
         "date and time in column 1 (\"date\")", "2023-04-30 23:59:0", "2023-05-01 00:01:0"},
        // A number beside a date is an hour only if it goes far into the day.
        {"Datum;n\n2024-01-30;1\n2024-01-30;2\n2024-01-31;3\n", "date in column 1 (\"Datum\")",
         "2024-01-30 00:00:0", "2024-01-31 00:00:0"},
        // Dots within the clock.
        {"Datum;Tid;pH\n28 april 2023;13.00.00;6,79\n28 april 2023;13.25.00;6,96\n28 april "
         "2023;13.50.00;7,07\n",
         "date and time in column 1 (\"Datum\"), column 2 (\"Tid\")", "2023-04-28 13:00:0",
         "2023-04-28 13:50:0"},
        // The order whose year is one of these.
        {"Date;Time;v\n23-05-14;10:00;1\n23-05-14;10:01;2\n23-05-14;10:02;3\n",
         "date and time in column 1 (\"Date\"), column 2 (\"Time\"), year before month and day",
         "2023-05-14 10:00:0", "2023-05-14 10:02:0"},
        // Digits without marks.
        {"DATE,TIME,v\n230905,235207,1\n230905,235208,2\n230905,235209,3\n",
         "date and time in column 1 (\"DATE\"), column 2 (\"TIME\"), year before month and day",
         "2023-09-05 23:52:7", "2023-09-05 23:52:9"},
    };
    CheckTimes(cases);
}

TEST(PlanTimes, HaveTheOrderOfDayAndMonthThatTheRowsShow) {
    const TimesCase cases[] = {
        // A day beyond 12.
        {"t;v\n12/01/2024 23:59;1\n13/01/2024 00:00;2\n13/01/2024 00:01;3\n",
         "date and time in column 1 (\"t\"), day before month", "2024-01-12 23:59:0", "2024-01-13 00:01:0"},
        // The name.
        {"t (MM/DD/YYYY);v\n01/02/2024 10:00;1\n01/02/2024 10:01;2\n01/02/2024 10:02;3\n",
         "date and time in column 1 (\"t (MM/DD/YYYY)\"), month before day", "2024-01-02 10:00:0",
         "2024-01-02 10:02:0"},
        // Days that follow each other.
        {"t;v\n03/01/2024;1\n03/02/2024;2\n03/03/2024;3\n03/04/2024;3\n",
         "date in column 1 (\"t\"), month before day", "2024-03-01 00:00:0", "2024-03-04 00:00:0"},
        // Twelve hours.
        {"t;v\n01/02/2024 10:00:00 AM;1\n01/02/2024 10:01:00 AM;2\n01/02/2024 10:02:00 AM;3\n",
         "date and time in column 1 (\"t\"), month before day", "2024-01-02 10:00:0", "2024-01-02 10:02:0"},
    };
    CheckTimes(cases);
}

TEST(PlanTimes, AreInParts) {
    const TimesCase cases[] = {
        {"Year,Month,Day,Hour,Minute,v\n2024,1,31,10,0,7\n2024,1,31,10,1,7\n2024,1,31,10,2,8\n",
         "date and time in parts: column 1 (\"Year\"), column 2 (\"Month\"), column 3 (\"Day\"), column 4 "
         "(\"Hour\"), "
         "column 5 (\"Minute\")",
         "2024-01-31 10:00:0", "2024-01-31 10:02:0"},
        {"STN,YYYYMMDD,HH,v\n260,20240131,22,7\n260,20240131,23,7\n260,20240131,24,8\n",
         "date and time in parts: column 2 (\"YYYYMMDD\"), column 3 (\"HH\")", "2024-01-31 22:00:0",
         "2024-02-01 00:00:0"},
        // By their values alone.
        {" 2016  3  1  0  0   91.28\n 2016  3  1  0  1   89.44\n 2016  3  1  0  2   83.25\n",
         "date and time in parts: column 1, column 2, column 3, column 4, column 5", "2016-03-01 00:00:0",
         "2016-03-01 00:02:0"},
        // Without a month, days are those of the year.
        {"Array,Year,Day,Hour_Minute,v\n60,2023,40,2300,7\n60,2023,40,2400,7\n60,2023,41,100,8\n",
         "date and time in parts: column 2 (\"Year\"), column 3 (\"Day\"), column 4 (\"Hour_Minute\")",
         "2023-02-09 23:00:0", "2023-02-10 01:00:0"},
        {"week;tow(s);v\n2299;302400.0;1\n2299;302401.0;2\n2299;302402.0;3\n",
         "date and time in parts: column 1 (\"week\"), column 2 (\"tow(s)\")", "2024-01-31 12:00:0",
         "2024-01-31 12:00:2"},
    };
    CheckTimes(cases);
}

TEST(PlanTimes, AreMonthsAndYears) {
    const TimesCase cases[] = {
        {"month,v\n2023-11,2.4\n2023-12,2.5\n2024-01,2.4\n2024-02,2.2\n", "date in column 1 (\"month\")",
         "2023-11-01 00:00:0", "2024-02-01 00:00:0"},
        {"month;v\nNov-23;2.4\nDec-23;2.5\nJan-24;2.4\nFeb-24;2.2\n", "date in column 1 (\"month\")",
         "2023-11-01 00:00:0", "2024-02-01 00:00:0"},
        {"yyyy;mm;v\n2023;11;2.4\n2023;12;2.5\n2024;1;2.4\n2024;2;2.2\n",
         "date and time in parts: column 1 (\"yyyy\"), column 2 (\"mm\")", "2023-11-01 00:00:0",
         "2024-02-01 00:00:0"},
        {"Year;v\n1990;2.4\n1991;2.5\n1992;2.4\n1993;2.2\n1994;2.2\n",
         "date and time in parts: column 1 (\"Year\")", "1990-01-01 00:00:0", "1994-01-01 00:00:0"},
        {"week;v\n2020-W52;1.5\n2020-W53;2.5\n2021-W01;2.5\n", "date in column 1 (\"week\")",
         "2020-12-21 00:00:0", "2021-01-04 00:00:0"},
    };
    CheckTimes(cases);
}

TEST(PlanTimes, AreDatesInPartsThatNothingNames) {
    const TimesCase cases[] = {
        {"2491;2023;01;30;1.5\n2491;2023;01;31;1.5\n2491;2023;02;01;1.4\n2491;2023;02;02;1.5\n",
         "date and time in parts: column 2, column 3, column 4", "2023-01-30 00:00:0", "2023-02-02 00:00:0"},
        {"Rok;Mies;Dz;Godz;v\n2023;1;31;22:00;5\n2023;1;31;23:00;5\n2023;2;1;00:00;5\n2023;2;1;01:00;5\n",
         "date and time in parts: column 1 (\"Rok\"), column 2 (\"Mies\"), column 3 (\"Dz\"), column 4 "
         "(\"Godz\")",
         "2023-01-31 22:00:0", "2023-02-01 01:00:0"},
    };
    CheckTimes(cases);
}

TEST(PlanTimes, AreCompletedByOtherRowsAndColumns) {
    const TimesCase cases[] = {
        // A date that only the first row of a day has.
        {"Datum;Zeit;v;w\n07.03.2024;22:00;1;2\n;23:00;1;2\n08.03.2024;00:00;1;2\n;01:00;1;2\n",
         "date and time in column 1 (\"Datum\"), column 2 (\"Zeit\"), day before month", "2024-03-07 22:00:0",
         "2024-03-08 01:00:0"},
        // A line with the date above the rows of a day.
        {"Time;v;w\n2024-03-07\n22:00;1;2\n23:00;1;2\n2024-03-08\n00:00;1;2\n01:00;1;2\n",
         "time of day in column 1 (\"Time\"), below dates in lines of their own", "2024-03-07 22:00:0",
         "2024-03-08 01:00:0"},
        // AM and PM in a cell of their own.
        {"09/14/2022 11:00:00 AM 9.1 9.5\n09/14/2022 12:00:00 PM 9.2 9.5\n09/14/2022 1:00:00 PM 9.3 9.6\n",
         "date and time in column 1, column 2, column 3, month before day", "2022-09-14 11:00:0",
         "2022-09-14 13:00:0"},
        // Twelve hours above the table.
        {"Acquired: 3/7/2024 10:20:33 AM\n\nTime,v\n03/07/2024 10:20:33,1\n03/07/2024 10:20:43,2\n"
         "03/07/2024 10:20:53,3\n",
         "date and time in column 1 (\"Time\"), month before day", "2024-03-07 10:20:33",
         "2024-03-07 10:20:53"},
        // Dates without a year, over New Year.
        {"t;v\n12/31 22:00;1\n12/31 23:00;2\n12/31 24:00;2\n01/01 01:00;3\n",
         "date and time without a year in column 1 (\"t\"), month before day", "31528800", "31539600"},
    };
    CheckTimes(cases);
}

TEST(PlanTimes, AreIntervalsBesideWhatWasMeasured) {
    const TimesCase cases[] = {
        {"Sample interval: 15 min\n\nT;F\n20.1;5.5\n20.3;5.4\n20.2;5.7\n20.4;5.1\n",
         "no column holds times: a row every 00:15:00", "0", "2700"},
        {"Sample rate: 2000 Hz\n\n1.5\n1.6\n1.7\n1.8\n1.9\n", "no column holds times: a row every 500 µs",
         "0", "0.002"},
    };
    CheckTimes(cases);
}

TEST(PlanTimes, AreClocksWithoutColons) {
    std::string text = "sats time speed\n";
    for (int i = 0; i < 90; ++i) {
        char row[40];
        std::snprintf(row, sizeof row, "009 10%02d%02d.50 %d.5\n", 30 + i / 60, i % 60, 50 + i % 7);
        text += row;
    }
    const TimesCase cases[] = {
        {text.c_str(), "time of day without a date in column 2 (\"time\")", "37800.5", "37889.5"},
    };
    CheckTimes(cases);
}

TEST(PlanTimes, AreNumbersThatCount) {
    const TimesCase cases[] = {
        {"t [s];v\n0;1\n0.5;2\n1;3\n", "elapsed seconds in column 1 (\"t [s]\")", "0", "1"},
        {"Time;v\nms;V\n0;1\n10;2\n20;3\n", "elapsed milliseconds in column 1 (\"Time\")", "0", "0.02"},
        {"v;t_ms\n5;0\n6;10\n5;20\n", "elapsed milliseconds in column 2 (\"t_ms\")", "0", "0.02"},
        {"time/s;I/mA\n0;1\n1,5;2\n3;3\n", "elapsed seconds in column 1 (\"time/s\")", "0", "3"},
        {"ts;v\n1706695200;1\n1706695201;2\n1706695202;3\n", "seconds since 1970 in column 1 (\"ts\")",
         "2024-01-31 10:00:0", "2024-01-31 10:00:2"},
        {"ts;v\n1706695200055;1\n1706695200155;2\n1706695200255;3\n",
         "milliseconds since 1970 in column 1 (\"ts\")", "2024-01-31 10:00:0.055", "2024-01-31 10:00:0.255"},
        {"Zeit;v\n45322,5;1\n45322,625;2\n45322,75;3\n", "days since 30 December 1899 in column 1 (\"Zeit\")",
         "2024-01-31 12:00:0", "2024-01-31 18:00:0"},
        {"JD;v\n2460341.0;1\n2460341.25;2\n2460341.5;3\n", "Julian days in column 1 (\"JD\")",
         "2024-01-31 12:00:0", "2024-02-01 00:00:0"},
        {"MJD;v\n60340.5;1\n60340.75;2\n60341.0;3\n", "modified Julian days in column 1 (\"MJD\")",
         "2024-01-31 12:00:0", "2024-02-01 00:00:0"},
        {"Year: 2022\nDECDOY,v,w\n1.5,1,3\n1.75,2,3\n2.0,3,4\n", "days of the year in column 1 (\"DECDOY\")",
         "2022-01-01 12:00:0", "2022-01-02 00:00:0"},
    };
    CheckTimes(cases);
}

TEST(PlanTimes, AreNumbersThatRiseWhereNothingIsNamed) {
    const TimesCase cases[] = {
        {"A,1,,-0.5,7\nB,2,,-0.4,8\n,,,-0.3,9\n,,,-0.2,8\n,,,-0.1,7\n,,,0.0,7\n,,,0.1,8\n,,,0.2,7\n,,,0.3,9\n"
         ",,,0.4,7\n,,,0.5,7\n,,,0.6,7\n",
         "elapsed seconds in column 4", "-0.5", "0.6"},
        {";   |     Time Offset (ms)\n;-- -- ---- - -- -- --\n"
         "1) 0.3 Rx 7 5E 34 B8 0A FE F6 8C A1\n"
         "2) 5.8 Rx 7 5E 34 B8 0A FE F6 8C A2\n"
         "3) 8.4 Rx 7 5E 34 B8 0A FE F6 8C A3\n"
         "4) 12.7 Rx 7 5E 34 B8 0A FE F6 8C A4\n"
         "5) 23.2 Rx 7 5E 34 B8 0A FE F6 8C A5\n"
         "6) 27.3 Rx 7 5E 34 B8 0A FE F6 8C A6\n"
         "7) 29.4 Rx 7 5E 34 B8 0A FE F6 8C A7\n"
         "8) 36.0 Rx 7 5E 34 B8 0A FE F6 8C A8\n"
         "9) 37.1 Rx 7 5E 34 B8 0A FE F6 8C A9\n"
         "10) 38.0 Rx 7 5E 34 B8 0A FE F6 8C AA\n"
         "11) 39.5 Rx 7 5E 34 B8 0A FE F6 8C AB\n",
         "elapsed milliseconds in column 2", "0.0003", "0.0395"},
        // What has a name is measured.
        {"n;U\n5;0.1\n4;0.2\n5;0.3\n5;0.4\n5;0.5\n5;0.6\n5;0.7\n5;0.8\n5;0.9\n5;1.0\n5;1.1\n5;1.2\n",
         "no column holds times: a row every 1 s", "0", "11"},
    };
    CheckTimes(cases);
}

TEST(PlanTimes, AreClocksAndSpansWithoutADate) {
    const TimesCase cases[] = {
        {"Uhrzeit;v\n23:59:58;1\n23:59:59;2\n00:00:00;3\n",
         "time of day without a date in column 1 (\"Uhrzeit\"), running over midnight", "86398", "86400"},
        {"Elapsed;v\n23:59:59;1\n24:00:00;1\n24:00:01;2\n", "elapsed time in column 1 (\"Elapsed\")", "86399",
         "86401"},
        {"Time (mm:ss);v\n00:00;1\n00:05;2\n01:10;2\n", "elapsed time in column 1 (\"Time (mm:ss)\")", "0",
         "70"},
        {"Time (h:mm:ss);v\n0:00:00;1\n0:05:00;2\n0:10:00;2\n",
         "time of day without a date in column 1 (\"Time (h:mm:ss)\")", "0", "600"},
        // Hundredths in the third place.
        {"Time;v\n00:59:75;1\n01:00:25;2\n01:00:75;2\n", "elapsed time in column 1 (\"Time\")", "59.75",
         "60.75"},
        {"Time;v\n0d 00:00:01.5;1\n0d 00:00:02.5;2\n3d 00:00:03.5;2\n", "elapsed time in column 1 (\"Time\")",
         "1.5", "259203.5"},
        {"Time;v\n15:42:3:7;1\n15:42:3:46;2\n15:42:3:109;2\n",
         "time of day without a date in column 1 (\"Time\"), milliseconds without leading zeros", "56523.007",
         "56523.109"},
    };
    CheckTimes(cases);
}

TEST(PlanTimes, AreIntervalsWhereNoColumnHoldsAny) {
    const TimesCase cases[] = {
        {"Interval: 10 s\nA;B;C\n5;1;7\n4;9;7\n5;1;8\n", "no column holds times: a row every 10 s", "0",
         "20"},
        {"Start: 31.01.2024 10:00\nAbtastrate: 2 kHz\nA;B;C\n5;1;7\n4;9;7\n5;1;8\n",
         "no column holds times: a row every 500 µs, from the start named above on", "2024-01-31 10:00:0",
         "2024-01-31 10:00:0.001"},
        {"A;B;C\n5;1;7\n4;9;7\n5;1;8\n", "no column holds times: a row every 1 s", "0", "2"},
    };
    CheckTimes(cases);
}

}  // namespace
