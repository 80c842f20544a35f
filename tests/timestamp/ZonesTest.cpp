// Local time in the zones of the world, where clocks are set forward and back.
#include <gtest/gtest.h>

#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <vector>

#include "contract/TimeStamp.h"
#include "kit/LocalMoment.h"
#include "kit/OwnZone.h"
#include "kit/TestProfile.h"
#include "platform/framework/Text.h"
#include "settings/CsvInfoFile.h"
#include "timestamp/TimestampFormat.h"

namespace {

constexpr std::int64_t Second = 1'000'000'000;
constexpr std::int64_t DaySeconds = 86'400;

// The time of a row with this text, "YYYY-MM-DD hh:mm:ss", in seconds since 1970.
std::int64_t RowTime(const std::string& text) {
    return ParseTimestamp(u"JJJJ-MM-TT hh:mm:ss", Utf8ToUtf16(text).c_str(), true) / Second;
}

std::int64_t Midnight(const std::string& date) {
    return RowTime(date + " 00:00:00");
}

// The file names of the system's zones, relative to its database, each zone once. Those that count leap
// seconds are left out: no system has them by default.
std::vector<std::string> AllZones() {
    const std::filesystem::path database = "/usr/share/zoneinfo";
    std::vector<std::string> names;
    std::set<std::string> known;
    std::error_code none;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(database, none)) {
        const std::string name = entry.path().lexically_relative(database).string();
        if (!entry.is_regular_file() || name.starts_with("right/")) continue;
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string rules(std::istreambuf_iterator<char>(file), {});
        if (rules.starts_with("TZif") && known.insert(rules).second) names.push_back(name);
    }
    return names;
}

// What clocks show at a moment, as seconds that would have passed since 1970 if the zone were UTC.
std::int64_t ClockAt(std::time_t moment) {
    std::tm shown{};
    localtime_r(&moment, &shown);
    return timegm(&shown);
}

// The first moment at which clocks show the midnight `clock` (as ClockAt) or, where they skip it, a later
// time.
std::int64_t FirstMomentOf(std::int64_t clock) {
    std::int64_t early = 0;
    std::int64_t late = clock - 15 * 3600;  // before it in every zone
    while (ClockAt(late) < clock) {
        early = late;
        late += clock - ClockAt(late);
    }
    // Clocks that were set forward on the way are past it already.
    while (late - early > 1) {
        const std::int64_t between = (early + late) / 2;
        (ClockAt(between) < clock ? early : late) = between;
    }
    return late;
}

std::string DateText(std::int64_t clock) {
    const std::time_t moment = clock;
    std::tm date{};
    gmtime_r(&moment, &date);
    char text[16];
    return {text, std::strftime(text, sizeof text, "%Y-%m-%d", &date)};
}

// The midnights (as ClockAt) of the dates in a year on which clocks change, and of the dates around them.
std::set<std::int64_t> MidnightsAroundChanges(int year) {
    std::set<std::int64_t> midnights;
    const std::int64_t begin = (year - 1970) * 365 * DaySeconds + (year - 1969) / 4 * DaySeconds;
    std::int64_t offset = ClockAt(begin) - begin;
    for (std::int64_t moment = begin; moment < begin + 366 * DaySeconds; moment += DaySeconds) {
        const std::int64_t clock = ClockAt(moment);
        if (clock - moment != offset) {
            const std::int64_t date = clock / DaySeconds * DaySeconds;
            midnights.insert({date - 2 * DaySeconds, date - DaySeconds, date, date + DaySeconds});
        }
        offset = clock - moment;
    }
    return midnights;
}

// Fails unless a new start time moves the rows of a date to where the file would have them with that time.
void CheckNewStartTimes(CCsvImportSettings& settings, const std::string& date, std::int64_t nextMidnight) {
    for (const char* const start : {"12:00:00", "00:30:00", "23:59:59"}) {
        const std::int64_t expected = RowTime(date + " " + start);
        // The time of day as a sidecar brings it, and as the picker does that shows the date itself.
        for (const std::string& day : {std::string("2001-01-10"), date}) {
            CTimeStamp adjust;
            ASSERT_TRUE(adjust.fromString(Utf8ToUtf16(day + " " + start), u"YYYY-MM-DD HH:mm:ss", 0));
            if (!adjust.ToText().ends_with(Utf8ToUtf16(start))) continue;  // clocks skip it on that day
            settings.AdjustTime = adjust.GetCTime().Seconds;
            for (const char* const row : {"00:00:00", "00:30:00", "03:15:00", "12:00:00", "23:30:00"}) {
                const std::int64_t time = RowTime(date + " " + row);
                // Beyond the end of a short day begins the next date, and the time of day counts from there.
                if (time >= nextMidnight) continue;
                ASSERT_EQ(time + settings.GetTimeCorrection(time * Second) / Second, expected)
                    << date << " " << row << " with the new start time " << start << " of " << day;
            }
        }
    }
}

TEST(Zones, MidnightAndNewStartTimeAreExactWhereverClocksChange) {
    const std::vector<std::string> zones = AllZones();
    if (zones.empty()) GTEST_SKIP() << "this system has no database of zones";
    auto settings = MakeSettings({"DateSetting=0", "Adjust=1", "AdjustMode=0"});
    int dates = 0;
    for (const std::string& zone : zones) {
        SCOPED_TRACE(zone);
        const OwnZone own(":" + zone);
        for (const int year : {1994, 2006, 2011, 2020, 2024}) {
            for (const std::int64_t clock : MidnightsAroundChanges(year)) {
                const std::string date = DateText(clock);
                const std::int64_t midnight = Midnight(date);
                ASSERT_EQ(midnight, FirstMomentOf(clock)) << date;
                CheckNewStartTimes(settings, date, Midnight(DateText(clock + DaySeconds)));
                if (testing::Test::HasFatalFailure()) return;
                ++dates;
            }
        }
    }
    EXPECT_GT(dates, 1000) << "the zones have no changes";
}

TEST(Zones, MidnightThatOccursTwiceIsTheFirstAfterAnyOtherDate) {
    const struct {
        const char* Zone;
        const char* Date;
        std::int64_t First;
    } cases[] = {
        {"<-01>1<+00>,M3.5.0/0,M10.5.0/1", "2020-10-25", 1603584000},      // Azores
        {"CST5CDT,M3.2.0/0,M11.1.0/1", "2020-11-01", 1604203200},          // Havana
        {"NST3:30NDT,M4.1.0/0:01,M10.5.0/0:01", "2006-10-29", 1162089000}  // St John's
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Zone);
        const OwnZone own(c.Zone);
        EXPECT_EQ(Midnight(c.Date), c.First) << "alone";
        for (const char* const other : {"2020-01-05", "2020-07-05", "2020-03-29", "1999-12-31"}) {
            Midnight(other);
            EXPECT_EQ(Midnight(c.Date), c.First) << "after " << other;
            EXPECT_EQ(CTimeStamp(c.First * Second + Second / 2).DateToTIME(), c.First * Second);
        }
    }
}

TEST(Zones, UnixStartDateIsTheSameMomentInAll) {
    for (const char* const zone :
         {"UTC0", "JST-9", "EST5EDT,M3.2.0,M11.1.0", "<+0545>-5:45", "<-11>11", "<+14>-14"}) {
        SCOPED_TRACE(zone);
        const OwnZone own(zone);
        auto settings = MakeSettings({"DateSetting=1", "StartDate=0", "TimeSetting=0"});
        EXPECT_EQ(settings.GetTimeCorrection(0), 0);
        // The sidecar has the date alone.
        CCsvInfoFile sidecar(u"data.csv");
        sidecar.TakeFromSettings(settings);
        settings.StartDate = 5;
        sidecar.ApplyToSettings(settings);
        EXPECT_EQ(settings.StartDate, 0) << Utf16ToUtf8(sidecar.StartDateText);
        // Every other start date is a local midnight.
        settings.StartDate = LocalSeconds(1980, 5, 5, 14);
        EXPECT_EQ(settings.GetTimeCorrection(0), LocalTime64(1980, 5, 5));
    }
}

TEST(Zones, TimeOfDayIsWhatClocksShowOrWhatHasPassedSinceMidnight) {
    const OwnZone own("CET-1CEST,M3.5.0,M10.5.0/3");
    const struct {
        int Month, Day, Hour;
        std::int64_t Shown, Passed;  // hours
    } cases[] = {
        {2, 1, 12, 12, 12}, {3, 29, 1, 1, 1}, {3, 29, 12, 12, 11}, {10, 25, 2, 2, 2}, {10, 25, 12, 12, 13}};
    for (const auto& c : cases) {
        const CTimeStamp stamp(2020, c.Month, c.Day, c.Hour, 0, 0, 7);
        EXPECT_EQ(stamp.DaytimeToTIME(true), c.Shown * 3600 * Second + 7) << c.Month << "-" << c.Day;
        EXPECT_EQ(stamp.DaytimeToTIME(false), c.Passed * 3600 * Second + 7) << c.Month << "-" << c.Day;
    }
}

}  // namespace
