// Start, interval and year in the lines above a table.
#include "host/plan/Preamble.h"

#include <gtest/gtest.h>

#include <string>

#include "host/plan/Durations.h"
#include "host/plan/PlanKit.h"
#include "host/plan/TimeText.h"

namespace {

using namespace kelvarin::plan;

constexpr std::int64_t Unknown = -1;

std::int64_t At(int year, int month, int day, std::int64_t clock = 0) {
    return DaysSince1970(year, month, day) * DayLength + clock;
}

// What the lines above a table tell.
PreambleClues CluesIn(const std::string& lines) {
    const FileSample sample = SampleOf(lines + "\na;b;c\n1;2;3\n2;2;3\n3;2;3\n4;2;3\n");
    const std::optional<FoundTable> table = FindTable(sample);
    EXPECT_TRUE(table) << lines;
    return table ? ReadPreamble(sample, *table) : PreambleClues();
}

struct ClueCase {
    const char* Lines;  // above a table
    std::int64_t Start, Interval;
};

TEST(PlanPreamble, NamesStartAndInterval) {
    const ClueCase cases[] = {
        {"Logger 7\n", Unknown, Unknown},
        {"Start: 31.01.2024 10:00:00\n", At(2024, 1, 31, 10 * Hour), Unknown},
        {"Date;31.01.2024\n", At(2024, 1, 31), Unknown},
        {"Beginn;2024-01-31;10:00\n", At(2024, 1, 31, 10 * Hour), Unknown},
        {"Trigger time 12-Jan-2024 08:30:00.5\n", At(2024, 1, 12, 8 * Hour + 30 * Minute + Second / 2),
         Unknown},
        // Start counts more than any other date, wherever it is.
        {"Date: 30.01.2024\nStart: 31.01.2024 10:00\nExport: 05.02.2024\n", At(2024, 1, 31, 10 * Hour),
         Unknown},
        {"Stop: 31.01.2024 10:00\n", Unknown, Unknown},
        {"Last calibration 31.01.2024\n", Unknown, Unknown},
        {"Interval: 10 min\n", Unknown, 10 * Minute},
        {"Sampling interval [ms];250\n", Unknown, 250 * Millisecond},
        {"Interval(s),30\n", Unknown, 30 * Second},
        {"Abtastrate: 2 kHz\n", Unknown, Second / 2000},
        {"Sample rate;0,5;Hz\n", Unknown, 2 * Second},
        {"Sample Interval: 1.5 s\n", Unknown, 3 * Second / 2},
        {"dt=20 us\n", Unknown, 20'000},
        {"Sample interval: 00:15:00\n", Unknown, 15 * Minute},
        {"Interval   Days: 0 Hours: 00 Mins: 15 Secs: 30\n", Unknown, 15 * Minute + 30 * Second},
        {"dt = 0.004\n", Unknown, Second / 250},
        {"fs=2000\n", Unknown, Second / 2000},
        {"Sampling Frequency [Hz]: 2000\n", Unknown, Second / 2000},
        {"SampleRate, 1.2500E+06, 1.2500E+06\n", Unknown, 800},
        {"HResolution, 8.0000E-07\n", Unknown, 800},
        {"XIncrement,2.0E-06\n", Unknown, 2000},
        {"Sampling interval,1s\n", Unknown, Second},
        {"X,CH1,Start,Increment\nSequence,Volt,-6.0e-04,1.0e-06\n", Unknown, 1000},
        // What a small rate counts is open.
        {"Sample rate: 10\n", Unknown, Unknown},
        {"Baud rate: 9600 s\n", Unknown, Unknown},
        {"Length: 12 s\n", Unknown, Unknown},
    };
    for (const ClueCase& c : cases) {
        SCOPED_TRACE(c.Lines);
        const PreambleClues clues = CluesIn(c.Lines);
        EXPECT_EQ(clues.Start.value_or(Unknown), c.Start);
        EXPECT_EQ(clues.Interval.value_or(Unknown), c.Interval);
    }
}

TEST(PlanPreamble, NamesAYear) {
    struct YearCase {
        const char* Lines;
        int Year;  // 0: none
    };
    const YearCase cases[] = {
        {"Year: 2022\n", 2022}, {"# log of 2023\n", 2023}, {"Serial 20231\n", 0}, {"Nr. 1234\n", 0}, {"", 0},
        {"01.02.2024\n", 2024}};
    for (const YearCase& c : cases) EXPECT_EQ(CluesIn(c.Lines).Year.value_or(0), c.Year) << c.Lines;
}

TEST(PlanPreamble, DeclaresMissingValuesAndUnits) {
    struct DeclaredCase {
        const char* Lines;
        const char* Missing;
        std::int64_t TimeUnit;
    };
    const DeclaredCase cases[] = {
        {"Missing value: -9999\n", "-9999", Unknown},
        {"# no data = 999.9\n", "999.9", Unknown},
        {"Fehlwert;-99,9;\n", "-99,9", Unknown},
        {"Missing values: 12\n", "", Unknown},
        {"9999 values are missing\n", "", Unknown},
        {"Serial 9999\n", "", Unknown},
        {";   |   Time Offset (ms)\n", "", Millisecond},
        {"Zeit [min]\n", "", Minute},
        {"Time 5 (ms)\n", "", Unknown},
        {"Druck (ms)\n", "", Unknown},
    };
    for (const DeclaredCase& c : cases) {
        const PreambleClues clues = CluesIn(c.Lines);
        EXPECT_EQ(Utf16ToUtf8(clues.Missing), c.Missing) << c.Lines;
        EXPECT_EQ(clues.TimeUnit.value_or(Unknown), c.TimeUnit) << c.Lines;
    }
}

}  // namespace
