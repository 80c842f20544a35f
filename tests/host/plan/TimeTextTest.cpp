// Texts of times in the ways that devices write them.
#include "host/plan/TimeText.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "platform/framework/Text.h"

namespace {

using namespace kelvarin::plan;

constexpr TimeStyle Day{DateOrder::DayFirst, false, false};
constexpr TimeStyle Month{DateOrder::MonthFirst, false, false};
constexpr TimeStyle Year{DateOrder::YearFirst, false, false};
constexpr TimeStyle Minutes{DateOrder::DayFirst, true, false};
constexpr TimeStyle Counted{DateOrder::DayFirst, false, true};

// "2024-01-31 10:00:00.5 +60", "10:00:00", "2024-01-31", or "none".
std::string TimeInWords(const std::string& text, const TimeStyle& style) {
    const std::optional<ParsedTime> time = ParseTime(Utf8ToUtf16(text), style);
    if (!time) return "none";
    char shown[80];
    std::string all;
    if (time->HasDate) {
        std::snprintf(shown, sizeof shown, "%04d-%02d-%02d", time->Year, time->Month, time->Day);
        all += shown;
    }
    if (time->HasClock) {
        const std::int64_t seconds = time->Clock / 1'000'000'000;
        std::snprintf(shown, sizeof shown, "%s%02d:%02d:%02d", all.empty() ? "" : " ",
                      static_cast<int>(seconds / 3600), static_cast<int>(seconds / 60 % 60),
                      static_cast<int>(seconds % 60));
        all += shown;
        if (const std::int64_t rest = time->Clock % 1'000'000'000; rest != 0) {
            std::snprintf(shown, sizeof shown, ".%09d", static_cast<int>(rest));
            all += shown;
            all.erase(all.find_last_not_of('0') + 1);
        }
    }
    if (time->ZoneMinutes) all += (*time->ZoneMinutes < 0 ? " " : " +") + std::to_string(*time->ZoneMinutes);
    return all;
}

struct TextCase {
    const char* Text;
    TimeStyle Style;
    const char* Time;
};

TEST(TimeText, IsReadInEveryUsualWay) {
    const TextCase cases[] = {
        {"31.01.2024 10:20:30", Day, "2024-01-31 10:20:30"},
        {"31.1.24 9:05", Day, "2024-01-31 09:05:00"},
        {"1/31/2024 9:05:07", Month, "2024-01-31 09:05:07"},
        {"01/02/2024", Day, "2024-02-01"},
        {"01/02/2024", Month, "2024-01-02"},
        {"24/01/31", Year, "2024-01-31"},
        {"24-01-31 10:00", Year, "2024-01-31 10:00:00"},
        {"2024-01-31T10:20:30Z", Day, "2024-01-31 10:20:30 +0"},
        {"2024-01-31T10:20:30.123456789+01:00", Day, "2024-01-31 10:20:30.123456789 +60"},
        {"2024-01-31 10:20:30-0530", Day, "2024-01-31 10:20:30 -330"},
        {"2024-01-31T10:20:30,5+02", Day, "2024-01-31 10:20:30.5 +120"},
        {"20240131T102030+01", Day, "2024-01-31 10:20:30 +60"},
        {"20240131T102030.25", Day, "2024-01-31 10:20:30.25"},
        {"20240131102030", Day, "2024-01-31 10:20:30"},
        {"202401311020", Day, "2024-01-31 10:20:00"},
        {"20240131102030123", Day, "2024-01-31 10:20:30.123"},
        {"20240131", Day, "2024-01-31"},
        {"31012024", Day, "2024-01-31"},
        {"20240131:1020", Day, "2024-01-31 10:20:00"},
        {"20240131-102030", Day, "2024-01-31 10:20:30"},
        {"20240131_102030", Day, "2024-01-31 10:20:30"},
        {"013124 102030", Month, "2024-01-31 10:20:30"},
        {"240131 102030.5", Year, "2024-01-31 10:20:30.5"},
        {"2019-12-03-09-01-24", Day, "2019-12-03 09:01:24"},
        {"2019:12:03 09:01:24", Day, "2019-12-03 09:01:24"},
        {"2019/12/03 09.01.24", Day, "2019-12-03 09:01:24"},
        {"2019/12/03,09:01:24.5", Day, "2019-12-03 09:01:24.5"},
        {"2019/12/03-09:01:24:125", Day, "2019-12-03 09:01:24.125"},
        {"12-Jan-2024 10:00:00", Day, "2024-01-12 10:00:00"},
        {"Jan 12, 2024 10:00:00 PM", Day, "2024-01-12 22:00:00"},
        {"28 april 2023 13.00.05", Day, "2023-04-28 13:00:05"},
        {"28. april 2023 13.25", Day, "2023-04-28 13:25:00"},
        {"12. Januar 2024", Day, "2024-01-12"},
        {"12. März 2024 8:00", Day, "2024-03-12 08:00:00"},
        {"Mon Jan 12 10:00:00 2024", Day, "2024-01-12 10:00:00"},
        {"Fri, 12 Jan 2024 10:00:00 GMT", Day, "2024-01-12 10:00:00 +0"},
        {"12 août 2024 10:00", Day, "2024-08-12 10:00:00"},
        {"12-gru-2024", Day, "2024-12-12"},
        {"2024-Feb-03 04:05:06.7", Day, "2024-02-03 04:05:06.7"},
        {"5/11/2021 3:40:24 PM", Month, "2021-05-11 15:40:24"},
        {"5/11/2021 12:00:00 AM", Month, "2021-05-11 00:00:00"},
        {"11.05.2021 12:00 p.m.", Day, "2021-05-11 12:00:00"},
        {"31.12.2024 24:00", Day, "2024-12-31 24:00:00"},
        {"10:20:30", Day, "10:20:30"},
        {"9:05", Day, "09:05:00"},
        {"144:02:18", Day, "144:02:18"},
        {"10:20:30.5", Day, "10:20:30.5"},
        {"10:20:30,0005", Day, "10:20:30.0005"},
        {"10:20:30:125", Day, "10:20:30.125"},
        {"15:42:10:7", Counted, "15:42:10.007"},
        {"15:42:10.7", Counted, "15:42:10.007"},
        {"12:30", Minutes, "00:12:30"},
        {"12:30.5", Minutes, "00:12:30.5"},
        {"75:30", Minutes, "01:15:30"},
        {"3d 18:47:23", Day, "90:47:23"},
        {"1.15:45:00", Day, "39:45:00"},
        {"1.15:45:00.25", Day, "39:45:00.25"},
        {"1 15:45:00", Day, "39:45:00"},
        {"0d 00:00:01.50", Day, "00:00:01.5"},
        {"2 days, 03:04:05", Day, "51:04:05"},
        {"1h 2m 3s", Day, "01:02:03"},
        {"2.5 s", Day, "00:00:02.5"},
        {"(2024-01-31 10:00:00)", Day, "2024-01-31 10:00:00"},
        {"=\"31.01.2024\"", Day, "2024-01-31"},
        {"  31.01.2024   10:00 Uhr ", Day, "2024-01-31 10:00:00"},
        // From and to: the row belongs to the first.
        {"2024-01-31 10:00:00 to 2024-01-31 11:00:00", Day, "2024-01-31 10:00:00"},
        {"2024-01-31T10:00:00/2024-01-31T11:00:00", Day, "2024-01-31 10:00:00"},
        {"2024-01-31 10:00:00 CET", Day, "2024-01-31 10:00:00 +60"},
        {"2024-01-31 10:00:00 UTC+2", Day, "2024-01-31 10:00:00 +120"},
        // Months, quarters, weeks and days of the year.
        {"2024-03", Day, "2024-03-01"},
        {"03/2024", Day, "2024-03-01"},
        {"1992M01", Day, "1992-01-01"},
        {"2024-Q3", Day, "2024-07-01"},
        {"Jan-24", Day, "2024-01-01"},
        {"March 2024", Day, "2024-03-01"},
        {"2021-W01", Day, "2021-01-04"},
        {"2020-W53-5", Day, "2021-01-01"},
        {"2024-067", Day, "2024-03-07"},
        {"2024-067 10:20:33", Day, "2024-03-07 10:20:33"},
        {"2024-067T10:20:33.5", Day, "2024-03-07 10:20:33.5"},
        {"2024:366:23:59:59", Day, "2024-12-31 23:59:59"},
        // A date between colons, as a clock.
        {"01:08:2023", Day, "2023-08-01"},
        {"01:08:2023 06:02:11", Day, "2023-08-01 06:02:11"},
        // Words between date and clock, or for the half of the day.
        {"27-03-2024 kl. 10.20", Day, "2024-03-27 10:20:00"},
        {"25.03.2024 г. 00:00:00", Day, "2024-03-25 00:00:00"},
        {"25.03.2024 ã. 01:00", Day, "2024-03-25 01:00:00"},
        {"2024-03-07 오후 01:20:33", Day, "2024-03-07 13:20:33"},
        {"2024/3/7 上午 12:20:33", Day, "2024-03-07 00:20:33"},
        // The year is known from elsewhere.
        {"03/07 22:20", {DateOrder::MonthFirst, false, false, 2024}, "2024-03-07 22:20:00"},
        {"07.03. 22:20", {DateOrder::DayFirst, false, false, 2024}, "2024-03-07 22:20:00"},
        {"01/01  24:00:00", {DateOrder::MonthFirst, false, false, 2023}, "2023-01-01 24:00:00"},
    };
    for (const TextCase& c : cases) EXPECT_EQ(TimeInWords(c.Text, c.Style), c.Time) << c.Text;
}

TEST(TimeText, IsNothingElse) {
    constexpr const char* texts[] = {"",
                                     "abc",
                                     "12",
                                     "1.5",
                                     "-3,25",
                                     "1e5",
                                     "192.168.0.1",
                                     "32.01.2024",
                                     "30.02.2024",
                                     "29.02.2023",
                                     "01.13.2024",
                                     "10:60:00",
                                     "2024-01-31 25:00",
                                     "10:20:30 V",
                                     "May",
                                     "T",
                                     "12:30 on 5",
                                     "1.528,53",
                                     "0x1F",
                                     "+49 228 123456",
                                     "13:00:00 99999",
                                     "v1.2.3",
                                     "12345",
                                     "1 234 567",
                                     "25.03.2024 abc 01:00",
                                     "2024-13",
                                     "2023-366",
                                     "2024-W54",
                                     "2024-Q5",
                                     "1800-12",
                                     "03/07 22:20"};
    for (const char* text : texts) EXPECT_EQ(TimeInWords(text, Day), "none") << text;
    EXPECT_EQ(TimeInWords("31/01/2024", Month), "none");
}

TEST(TimeText, CountsDaysSince1970) {
    struct Row {
        int Year, Month, Day;
        std::int64_t Days;
    };
    for (const Row& row :
         {Row{1970, 1, 1, 0}, Row{1970, 12, 31, 364}, Row{1972, 3, 1, 790}, Row{2000, 2, 29, 11016},
          Row{2024, 1, 31, 19753}, Row{1969, 12, 31, -1}, Row{1900, 3, 1, -25508}}) {
        EXPECT_EQ(DaysSince1970(row.Year, row.Month, row.Day), row.Days) << row.Year << " " << row.Month;
    }
}

}  // namespace
