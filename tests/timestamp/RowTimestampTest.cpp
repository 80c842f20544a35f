#include "timestamp/RowTimestamp.h"

#include "kit/CheckRows.h"
#include "kit/FakeHost.h"
#include "kit/LocalMoment.h"
#include "kit/TestProfile.h"

namespace {

constexpr std::int64_t Second = 1'000'000'000, Hour = 3600 * Second;

// The times of rows with texts parted by semicolons, less `origin`: "x" before a refused one and for a row
// without a time; "!" behind an absolute time before 1990.
void Check(const SettingList& settings, std::string_view rows, std::int64_t origin = 0,
           FakeHost&& host = {}) {
    CheckRows(rows, [&](std::u16string texts) {
        std::string outcome;
        RunTimes times;
        std::int64_t i = 0, last = 0;
        for (texts += u';'; !texts.empty(); texts.erase(0, texts.find(u';') + 1)) {
            const std::u16string text =
                texts.substr(0, texts.find(u';')) + std::u16string(ValuePadding, u'\0');
            const auto row = MakeRowTimestamp(MakeSettings(settings), i++, text.c_str(), host, times);
            outcome += std::string(i > 1 ? " " : "") + (row.Accepted ? "" : "x");
            if (row.Time != NoTimestamp) outcome += std::to_string(row.Time - origin);
            if (row.Before1990) outcome += '!';
            if (row.Accepted) last = row.Time;
            EXPECT_EQ(times.LastTime, last);
        }
        return outcome;
    });
}

TEST(RowTimestamp, ComesFromTheIndexAtAnInterval) {
    const SettingList common = {"DateSetting=2", "TimeSetting=1"}, ns = Joined(common, {"IntervalUnit=5"});
    Check(common, ";;->1 1000000001 2000000001");
    Check(Joined(common, {"IntervalUnit=0"}), ";->1 3600000000001");
    Check(Joined(common, {"IntervalUnit=1"}), ";->1 60000000001");
    Check(Joined(common, {"IntervalUnit=3"}), ";->1 1000001");
    Check(Joined(common, {"IntervalUnit=4", "IntervalValue=2.5"}), ";;;->1 2501 5001 7501");
    Check(Joined(common, {"Adjust=1", "AdjustMode=0", "AdjustTime=2020-02-01 08:00:00"}), "->28800000000001");
    // The step is cut once, not the product; a product of -1 is no time at all.
    Check(Joined(ns, {"IntervalValue=1.5"}), ";;;->1 2 3 4");
    Check(Joined(ns, {"IntervalValue=0.1"}), ";;->1 x1 x1");
    Check(Joined(ns, {"IntervalValue=-1"}), ";;->1 x x");
}

TEST(RowTimestamp, RisesStrictlyWithoutADate) {
    SettingList settings = {"DateSetting=2", "TimeSetting=0", "AdjustTime=2020-02-01 00:00:01"};
    Check(settings, "1->x");
    settings.emplace_back("TimestampFormat=[ns]");
    // The first row must be above 0.
    Check(settings, "1;2;4->2 3 5|3;3;1;4->4 x4 x2 5|x;;2->x x 3|-2;5->x 6|-3;5->x-2 6");
    // What the correction brings to -1 is no time; a first row without time counts as -1.
    Check(Joined(settings, {"Adjust=1", "AdjustMode=1"}), "-5->999999996");
    Check(Joined(settings, {"Adjust=1", "AdjustMode=2"}), "999999999->x");
    Check(Joined(settings, {"Adjust=1", "AdjustMode=0"}),
          "500;501->1000000001 1000000002|x;500->x 1000000502");
}

TEST(RowTimestamp, RollsOverMidnightUnderAFixedDateOnly) {
    const std::int64_t date = LocalTime64(2020, 2, 1);
    SettingList settings = {"DateSetting=1", "TimeSetting=0", "StartDate=2020-02-01 15:00:00",
                            "TimestampFormat=[s]", "AdjustTime=2020-02-01 00:30:00"};
    // As few days as it takes; exactly on the last time is not later.
    Check(settings,
          "84600;3600->84600000000000 90000000000000|10;10;9->10000000000 x10000000000 86409000000000|"
          "360000;3600->360000000000000 435600000000000|86410;10;11->86410000000000 x86410000000000 "
          "86411000000000",
          date);
    Check(Joined(settings, {"Adjust=1", "AdjustMode=1"}), "85500;900->87300000000000 89100000000000", date);
    settings = {"DateSetting=0", "TimeSetting=0", "TimestampFormat=TT.MM.JJJJ hh",
                "AdjustTime=2021-01-01 08:00:00"};
    Check(settings, "1.2.20 12;1.2.20 12;1.2.20 11->43200000000000 x43200000000000 x39600000000000", date);
    Check(Joined(settings, {"Adjust=1", "AdjustMode=0"}),
          "1.2.20 12;1.2.20 13->28800000000000 32400000000000", date);
}

TEST(RowTimestamp, MarksAbsoluteTimesBefore1990) {
    // Seconds from the local midnight of the start date up to the limit, which is the same in every zone.
    const std::int64_t limit = 631'148'400 - LocalSeconds(1980, 5, 5);
    Check(
        {"DateSetting=1", "TimeSetting=0", "TimestampFormat=[s]", "StartDate=1980-05-05 12:00:00"},
        std::to_string(limit - 1) + ';' + std::to_string(limit) + "->631148399000000000! 631148400000000000");
    Check({"DateSetting=0", "TimeSetting=1"}, ";;->x0! 1000000000! 2000000000!");
}

TEST(RowTimestamp, AddsTheHostsBaseToATimeWithoutDate) {
    const auto check = [](bool fixedA, bool fixedB, std::int64_t base, std::string_view rows) {
        FakeHost host;
        host.FixedBaseA = fixedA;
        host.FixedBaseB = fixedB;
        host.BaseTime = base;
        Check({"DateSetting=2", "TimeSetting=1", "IntervalUnit=5"}, rows, 0, std::move(host));
    };
    check(true, false, 5, ";->315529200000000000 315529200000000001");
    check(false, true, 5, ";->315529200000000000 315529200000000001");
    check(false, false, 0, ";->x0 1");
    check(false, false, -1, ";->x x0");
    check(false, false, MaxTimestamp, ";->4611686018427387903 x4611686018427387904");
    check(false, false, INT64_MAX, ";->x9223372036854775807 x-9223372036854775808");
}

// The date setting, the mode (none if there is no adjustment) and the time of the first row in hours.
TEST(RowTimestamp, IsCorrectedByStartDateAndAdjustment) {
    const auto correction = [](int dateSetting, int mode, std::int64_t first) {
        auto s = MakeSettings({"StartDate=2020-02-01 18:30:00", "AdjustTime=2021-07-09 08:00:00"});
        s.DateSetting = dateSetting;
        s.Adjust = mode != -1;
        s.AdjustMode = mode;
        return s.GetTimeCorrection(first) / Hour;
    };
    const std::int64_t date = LocalTime64(2020, 2, 1) / Hour, noon = LocalTime64(2020, 3, 5, 12);
    EXPECT_EQ(correction(0, -1, noon) + correction(2, -1, 5 * Second), 0);
    EXPECT_EQ(correction(1, -1, 5 * Second), date);
    EXPECT_EQ(correction(0, 0, noon), -4);
    EXPECT_EQ(correction(1, 0, 12 * Hour), date - 4);
    EXPECT_EQ(correction(2, 0, 100 * Hour), -92);
    EXPECT_EQ(correction(0, 1, noon), 8);
    EXPECT_EQ(correction(0, 2, noon), -8);
    EXPECT_EQ(correction(1, 2, 0), date - 8);
    EXPECT_EQ(correction(2, 99, 7), 8);
}

}  // namespace
