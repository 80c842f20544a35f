#include <gtest/gtest.h>

#include <ctime>

#include "kit/LocalMoment.h"
#include "kit/TestProfile.h"

namespace {

constexpr std::int64_t Second = 1'000'000'000, Minute = 60 * Second, Hour = 60 * Minute;

TEST(TimeCorrection, AddsStartDateAndAdjustment) {
    const std::int64_t date = LocalTime64(2020, 2, 1);
    const std::int64_t noon = LocalTime64(2020, 3, 5, 12);
    struct Case {
        SettingList Settings;
        std::int64_t FirstRowTime;
        std::int64_t Correction;
    };
    const Case cases[] = {
        // Switched off.
        {{"DateSetting=0", "AdjustMode=1"}, noon, 0},
        {{"DateSetting=2", "AdjustMode=0"}, 5 * Second, 0},
        // The fixed start date counts all the same, and of it the date alone.
        {{"DateSetting=1"}, 5 * Second, date},
        {{"DateSetting=1", "StartDate=2020-02-01 00:00:00"}, 5 * Second, date},
        // A new start time.
        {{"DateSetting=0", "Adjust=1", "AdjustMode=0"}, noon, -4 * Hour},
        {{"DateSetting=0", "Adjust=1", "AdjustMode=0"}, noon - 8 * Hour, 4 * Hour},
        {{"DateSetting=2", "Adjust=1", "AdjustMode=0"}, 5 * Second, 8 * Hour - 5 * Second},
        {{"DateSetting=2", "Adjust=1", "AdjustMode=0"}, 100 * Hour, -92 * Hour},
        {{"DateSetting=2", "Adjust=1", "AdjustMode=0"}, -1, 8 * Hour + 1},
        {{"DateSetting=1", "Adjust=1", "AdjustMode=0"}, 12 * Hour, date - 4 * Hour},
        // Offsets.
        {{"DateSetting=0", "Adjust=1", "AdjustMode=1"}, noon, 8 * Hour},
        {{"DateSetting=0", "Adjust=1", "AdjustMode=2"}, noon, -8 * Hour},
        {{"DateSetting=1", "Adjust=1", "AdjustMode=1"}, 0, date + 8 * Hour},
        {{"DateSetting=1", "Adjust=1", "AdjustMode=2"}, 0, date - 8 * Hour},
        {{"DateSetting=2", "Adjust=1", "AdjustMode=2"}, 0, -8 * Hour},
    };
    for (const Case& c : cases) {
        const SettingList common = {"StartDate=2020-02-01 18:30:00", "AdjustTime=2021-07-09 08:00:00"};
        SCOPED_TRACE(c.Settings.front() + ' ' + c.Settings.back());
        EXPECT_EQ(MakeSettings(Joined(common, c.Settings)).GetTimeCorrection(c.FirstRowTime), c.Correction);
    }
}

TEST(TimeCorrection, TakesAnyOtherModeForAPositiveOffset) {
    CCsvImportSettings settings =
        MakeSettings({"DateSetting=2", "Adjust=1", "AdjustTime=2020-02-01 00:30:00"});
    for (const int mode : {-1, 3, 99}) {
        settings.AdjustMode = mode;
        EXPECT_EQ(settings.GetTimeCorrection(7), 30 * Minute) << mode;
    }
}

TEST(TimeCorrection, ReckonsFromAFirstRowWithoutTime) {
    // Its mark is read as a moment, the last nanosecond before 1970.
    const std::time_t lastSecond = -1;
    const std::tm local = *std::localtime(&lastSecond);
    const std::int64_t daytime =
        local.tm_hour * Hour + local.tm_min * Minute + local.tm_sec * Second + (Second - 1);
    const CCsvImportSettings settings =
        MakeSettings({"DateSetting=0", "Adjust=1", "AdjustMode=0", "AdjustTime=2020-02-01 08:00:00"});
    EXPECT_EQ(settings.GetTimeCorrection(-1), 8 * Hour - daytime);
}

}  // namespace
