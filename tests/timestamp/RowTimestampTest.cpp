#include "timestamp/RowTimestamp.h"

#include <gtest/gtest.h>

#include <ctime>

#include "kit/FakeHost.h"
#include "kit/LocalMoment.h"
#include "kit/TestProfile.h"
#include "platform/framework/Text.h"

namespace {

// The times of rows with these texts, less `origin`: "7" for an accepted one, "x7" for a refused one, "x"
// for one without a time; "!" behind an absolute time before 1990.
std::string Rows(const CCsvImportSettings& settings, const std::vector<std::u16string>& texts, FakeHost& host,
                 std::int64_t origin = 0) {
    std::string outcome;
    RunTimes times;
    std::int64_t last = 0;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const RowTimestamp row =
            MakeRowTimestamp(settings, static_cast<std::int64_t>(i), texts[i].c_str(), host, times);
        if (i > 0) outcome += ' ';
        if (!row.Accepted) outcome += 'x';
        if (row.Time != NoTimestamp) outcome += std::to_string(row.Time - origin);
        if (row.Before1990) outcome += '!';
        EXPECT_EQ(times.LastTime, row.Accepted ? row.Time : last);
        last = times.LastTime;
    }
    return outcome;
}

std::string Rows(const SettingList& settings, const std::vector<std::u16string>& texts,
                 std::int64_t origin = 0) {
    FakeHost host;
    return Rows(MakeSettings(settings), texts, host, origin);
}

struct Case {
    SettingList Settings;
    std::vector<std::u16string> Texts;
    const char* Outcome;
};

void CheckAll(const SettingList& common, const std::vector<Case>& cases, std::int64_t origin = 0) {
    for (const Case& c : cases) {
        const SettingList settings = Joined(common, c.Settings);
        std::string trace;
        for (const std::string& setting : settings) trace += setting + "; ";
        SCOPED_TRACE(trace);
        EXPECT_EQ(Rows(settings, c.Texts, origin), c.Outcome);
    }
}

TEST(RowTimestamp, ComesFromTheIndexAtAnInterval) {
    const std::vector<std::u16string> four = {u"", u"", u"", u""};
    CheckAll({"DateSetting=2", "TimeSetting=1"},
             {
                 {{}, four, "1 1000000001 2000000001 3000000001"},
                 {{"IntervalUnit=0"}, {u"", u""}, "1 3600000000001"},
                 {{"IntervalUnit=1"}, {u"", u""}, "1 60000000001"},
                 {{"IntervalUnit=3"}, {u"", u""}, "1 1000001"},
                 {{"IntervalUnit=4", "IntervalValue=2.5"}, four, "1 2501 5001 7501"},
                 // The step is cut once, not the product.
                 {{"IntervalUnit=5", "IntervalValue=1.5"}, four, "1 2 3 4"},
                 {{"IntervalUnit=5", "IntervalValue=0.1"}, four, "1 x1 x1 x1"},
                 {{"IntervalValue=0"}, four, "1 x1 x1 x1"},
                 // Back in time; a product of -1 is no time at all.
                 {{"IntervalUnit=5", "IntervalValue=-1"}, {u"", u""}, "1 x"},
                 {{"IntervalUnit=5", "IntervalValue=-3"}, {u"", u""}, "1 x-2"},
                 {{"IntervalUnit=5", "IntervalValue=-1", "Adjust=1", "AdjustMode=1",
                   "AdjustTime=2020-02-01 00:00:01"},
                  {u"", u""},
                  "1000000001 x"},
                 {{"Adjust=1", "AdjustMode=0", "AdjustTime=2020-02-01 08:00:00"},
                  {u"", u""},
                  "28800000000001 28801000000001"},
             });
}

TEST(RowTimestamp, TakesAnIntervalUnitBeyondTheTableForTheNearest) {
    CCsvImportSettings settings = MakeSettings({"DateSetting=2", "TimeSetting=1"});
    FakeHost host;
    settings.IntervalUnit = -7;
    EXPECT_EQ(Rows(settings, {u"", u""}, host), "1 3600000000001");
    settings.IntervalUnit = 99;
    EXPECT_EQ(Rows(settings, {u"", u""}, host), "1 2");
}

TEST(RowTimestamp, RisesStrictlyWithoutADate) {
    CheckAll(
        {"DateSetting=2", "TimeSetting=0", "TimestampFormat=[ns]"},
        {
            {{}, {u"1", u"2", u"4"}, "2 3 5"},
            {{}, {u"3", u"3", u"1", u"4"}, "4 x4 x2 5"},
            {{}, {u"x", u"", u"2"}, "x x 3"},
            {{"TimestampFormat="}, {u"1"}, "x"},
            // The first row must be above 0.
            {{}, {u"-2", u"5"}, "x 6"},
            {{}, {u"-3", u"5"}, "x-2 6"},
            // A negative time that the correction lifts.
            {{"Adjust=1", "AdjustMode=1", "AdjustTime=2020-02-01 00:00:01"}, {u"-5"}, "999999996"},
            // What the correction brings to -1 is no time, whatever the base would make of it.
            {{"Adjust=1", "AdjustMode=2", "AdjustTime=2020-02-01 00:00:01"}, {u"999999999"}, "x"},
            {{"Adjust=1", "AdjustMode=0", "AdjustTime=2020-02-01 00:00:01"},
             {u"500", u"501"},
             "1000000001 1000000002"},
            // A first row without time counts as -1 for the rest of the run.
            {{"Adjust=1", "AdjustMode=0", "AdjustTime=2020-02-01 00:00:01"}, {u"x", u"500"}, "x 1000000502"},
        });
}

TEST(RowTimestamp, RollsOverMidnightUnderAFixedDate) {
    CheckAll(
        {"DateSetting=1", "TimeSetting=0", "StartDate=2020-02-01 15:00:00", "TimestampFormat=[h]:mm:ss"},
        {
            {{}, {u"23:59:59", u"00:00:01"}, "86399000000000 86401000000000"},
            {{}, {u"12:00:00", u"11:00:00"}, "43200000000000 126000000000000"},
            {{}, {u"10:00:00", u"10:00:00", u"09:00:00"}, "36000000000000 x36000000000000 118800000000000"},
            {{}, {u"23:00:00", u"01:00:00", u"00:30:00"}, "82800000000000 90000000000000 174600000000000"},
            // Several days at once, as few as it takes.
            {{}, {u"100:00:00", u"01:00:00"}, "360000000000000 435600000000000"},
            // Exactly on the last time is not later.
            {{}, {u"25:00:00", u"01:00:00", u"02:00:00"}, "90000000000000 x90000000000000 93600000000000"},
            {{"Adjust=1", "AdjustMode=1", "AdjustTime=2020-02-01 00:30:00"},
             {u"23:45:00", u"00:15:00"},
             "87300000000000 89100000000000"},
        },
        LocalTime64(2020, 2, 1));
}

TEST(RowTimestamp, KeepsADateFromTheFile) {
    CheckAll({"DateSetting=0", "TimeSetting=0", "TimestampFormat=TT.MM.JJJJ hh:mm"},
             {
                 {{}, {u"01.02.2020 12:00", u"01.02.2020 13:00"}, "43200000000000 46800000000000"},
                 {{}, {u"01.02.2020 12:00", u"01.02.2020 12:00"}, "43200000000000 x43200000000000"},
                 {{}, {u"01.02.2020 12:00", u"01.02.2020 11:00"}, "43200000000000 x39600000000000"},
                 {{"Adjust=1", "AdjustMode=0", "AdjustTime=2021-01-01 08:00:00"},
                  {u"01.02.2020 12:00", u"01.02.2020 13:00"},
                  "28800000000000 32400000000000"},
                 {{"Adjust=1", "AdjustMode=2", "AdjustTime=2021-01-01 00:30:00"},
                  {u"01.02.2020 12:00"},
                  "41400000000000"},
             },
             LocalTime64(2020, 2, 1));
}

TEST(RowTimestamp, MarksAbsoluteTimesBefore1990) {
    // Seconds from the local midnight of the start date up to the limit, which is the same in every zone.
    const std::int64_t midnight = LocalSeconds(1980, 5, 5);
    const auto text = [&](std::int64_t seconds) { return Utf8ToUtf16(std::to_string(seconds - midnight)); };
    const SettingList settings = {"DateSetting=1", "TimeSetting=0", "TimestampFormat=[s]",
                                  "StartDate=1980-05-05 12:00:00"};
    EXPECT_EQ(Rows(settings, {text(631'148'399), text(631'148'400), text(631'148'401)}),
              "631148399000000000! 631148400000000000 631148401000000000");
    // An interval without any date, and a relative time, which has no such limit.
    EXPECT_EQ(Rows({"DateSetting=0", "TimeSetting=1"}, {u"", u"", u""}), "x0! 1000000000! 2000000000!");
    EXPECT_EQ(Rows({"DateSetting=2", "TimeSetting=0", "TimestampFormat=[s]"}, {u"1", u"0"}), "1000000001 x1");
}

TEST(RowTimestamp, ReadsSecondsSince1970UnderTheStartDateOfThatYear) {
    // The start date is a local day, the last of 1969 west of Greenwich.
    const std::time_t epoch = 0;
    const std::tm local = *std::localtime(&epoch);
    const std::int64_t midnight = LocalTime64(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
    EXPECT_EQ(Rows({"DateSetting=1", "TimeSetting=0", "StartDate=0", "TimestampFormat= [s],000"},
                   {u"1580558400", u"1580558401,5"}, midnight),
              "1580558400000000000 1580558401500000000");
}

TEST(RowTimestamp, AddsTheHostsBaseToATimeWithoutDate) {
    struct BaseCase {
        bool FixedA, FixedB;
        std::int64_t BaseTime;
        const char* Outcome;
        const char* Queries;
    };
    constexpr BaseCase Cases[] = {
        {true, true, 5, "315529200000000000 315529200000000001", "AA"},
        {false, true, 5, "315529200000000000 315529200000000001", "ABAB"},
        {false, false, 5, "5 6", "ABTABT"},
        // Both ends of the range of accepted times.
        {false, false, 0, "x0 1", "ABTABT"},
        {false, false, -1, "x x0", "ABTABT"},
        {false, false, 4'611'686'018'427'387'902, "4611686018427387902 4611686018427387903", "ABTABT"},
        {false, false, 4'611'686'018'427'387'903, "4611686018427387903 x4611686018427387904", "ABTABT"},
        {false, false, INT64_MAX, "x9223372036854775807 x-9223372036854775808", "ABTABT"},
    };
    for (const BaseCase& c : Cases) {
        SCOPED_TRACE(c.Outcome);
        FakeHost host;
        host.FixedBaseA = c.FixedA;
        host.FixedBaseB = c.FixedB;
        host.BaseTime = c.BaseTime;
        EXPECT_EQ(Rows(MakeSettings({"DateSetting=2", "TimeSetting=1", "IntervalUnit=5"}), {u"", u""}, host),
                  c.Outcome);
        EXPECT_EQ(host.BaseQueries, c.Queries);
    }
}

TEST(RowTimestamp, AsksNoBaseForAnAbsoluteTime) {
    FakeHost host;
    Rows(MakeSettings({"DateSetting=1", "TimeSetting=1"}), {u"", u""}, host);
    EXPECT_EQ(host.BaseQueries, "");
}

}  // namespace
