// What the names of columns say of times.
#include "host/plan/TimeNames.h"

#include <gtest/gtest.h>

#include <string>

#include "host/plan/Durations.h"
#include "platform/framework/Text.h"

namespace {

using namespace kelvarin::plan;

Label Named(const char* name, const char* unit = "") {
    const std::u16string wide = Utf8ToUtf16(name);
    return {wide, Utf8ToUtf16(unit), {wide}};
}

TEST(PlanTimeNames, AreWordsForTimes) {
    for (const char* name :
         {"Time", "TIMESTAMP", "Uhrzeit", "t", "t [s]", "Date", "Datum/Uhrzeit", "TestTime", "elapsed_s",
          "Prüfzeit", "Horodatage heure", "Fecha", "Giorno", "DPT Time", "utc", "Czas", "Tijdstip", "#time"})
        EXPECT_TRUE(IsNamedTime(Named(name))) << name;
    for (const char* name : {"", "T", "T [°C]", "Druck", "Spannung", "Temperature", "v/s", "Status", "Name"})
        EXPECT_FALSE(IsNamedTime(Named(name))) << name;
}

struct PartCase {
    const char* Name;
    std::optional<TimePart> Part;
};

TEST(PlanTimeNames, AreParts) {
    const PartCase cases[] = {
        {"Year", TimePart::Year},
        {"YYYY", TimePart::Year},
        {"Jahr", TimePart::Year},
        {"#YY", TimePart::Year},
        {"Month", TimePart::Month},
        {"MM", TimePart::Month},
        {"mm", TimePart::Minutes},
        {"Day", TimePart::Day},
        {"Tag", TimePart::Day},
        {"DOY", TimePart::DayOfYear},
        {"Day of Year", TimePart::DayOfYear},
        {"Hour", TimePart::Hours},
        {"hh", TimePart::Hours},
        {"Hour_Minute", TimePart::HoursMinutes},
        {"HHMM", TimePart::HoursMinutes},
        {"Stunde", TimePart::Hours},
        {"Minute (UTC)", TimePart::Minutes},
        {"Sekunde", TimePart::Seconds},
        {"tow(s)", TimePart::Seconds},
        {"week", TimePart::Week},
        {"Millisecond", TimePart::Milliseconds},
        {"Time", std::nullopt},
        {"", std::nullopt},
        {"Mean temperature of the day", std::nullopt},
    };
    for (const PartCase& c : cases) EXPECT_EQ(PartOfName(Named(c.Name)), c.Part) << c.Name;
}

struct UnitNameCase {
    const char* Name;
    const char* Unit;
    std::int64_t Length;
};

TEST(PlanTimeNames, NameUnitsOfTime) {
    const UnitNameCase cases[] = {
        {"Time [s]", "", Second},
        {"Time", "ms", Millisecond},
        {"t_ms", "", Millisecond},
        {"Zeit in s", "", Second},
        {"Zeit [m]", "m", Minute},
        {"elapsed_s", "", Second},
        {"Time (min)", "", Minute},
        {"Durata (h)", "", Hour},
        {"SampleTime[µs]", "", 1000},
        {"Time/min", "", Minute},
        {"time/s", "", Second},
        {"t/ms", "", Millisecond},
        // Parts of other units, quantities, dates.
        {"v [m/s]", "", 0},
        {"v/s", "", 0},
        {"v/s", "s", 0},
        {"Level [m]", "m", 0},
        {"altitude_m", "m", 0},
        {"Time", "", 0},
        {"S", "", 0},
        {"Day", "", 0},
        {"Druck", "bar", 0},
    };
    for (const UnitNameCase& c : cases) EXPECT_EQ(UnitNamed(Named(c.Name, c.Unit)), c.Length) << c.Name;
}

TEST(PlanTimeNames, SpellTheOrderOfADate) {
    struct OrderCase {
        const char* Name;
        std::optional<DateOrder> Order;
    };
    const OrderCase cases[] = {
        {"DATE (MM/DD/YYYY)", DateOrder::MonthFirst},
        {"MMDDYY HHMMSS", DateOrder::MonthFirst},
        {"TT.MM.JJJJ", DateOrder::DayFirst},
        {"dd/mm/yyyy hh:mm", DateOrder::DayFirst},
        {"YYYYMMDD", DateOrder::YearFirst},
        {"Date", std::nullopt},
        {"hh:mm:ss", std::nullopt},
    };
    for (const OrderCase& c : cases) EXPECT_EQ(OrderIn({Utf8ToUtf16(c.Name)}), c.Order) << c.Name;
}

}  // namespace
