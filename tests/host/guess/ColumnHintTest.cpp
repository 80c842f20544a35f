// What the texts above a column say about times in it.
#include <gtest/gtest.h>

#include "host/guess/GuessParts.h"
#include "platform/framework/Text.h"

namespace {

using kelvarin::guess::ColumnHint;
using kelvarin::guess::DateOrder;

struct LabelCase {
    const char16_t* Label;
    bool IsTime;
    const char16_t* Unit;
    DateOrder Order = DateOrder::NoDate;
};

TEST(GuessColumnHint, ReadsTheNameOfAColumn) {
    const LabelCase cases[] = {
        {u"", false, u""},
        // Words for time, whole or as parts.
        {u"Timestamp", true, u""},
        {u"Messzeitpunkt", true, u""},
        {u"UTC", true, u""},
        {u"t", true, u""},
        {u"T", false, u""},  // a temperature
        {u"ts", true, u""},
        {u"volts", false, u""},
        {u"Monday", false, u""},
        {u"Uhrzeit", true, u""},
        // Units.
        {u"time [ms]", true, u"ms"},
        {u"t/s", true, u""},  // divided by a second
        {u"speed [m/s]", false, u""},
        {u"km/h", false, u""},
        {u"elapsed (Sekunden)", true, u"s"},
        {u"H", false, u""},  // a field strength
        {u"h", false, u"h"},
        {u"Laufzeit in MIN", true, u"min"},
        {u"t [µs]", true, u"µs"},
        {u"t [us]", true, u"µs"},
        {u"delay ns", false, u"ns"},
        {u"smin", false, u""},
        // Orders of day and month.
        {u"Date (MM/DD/YYYY)", true, u"", DateOrder::MonthFirst},
        {u"Datum TT.MM.JJJJ", true, u"", DateOrder::DayFirst},
        {u"DD-MM-YY hh:mm", false, u"", DateOrder::DayFirst},
        {u"MM DD", false, u""},
    };
    for (const LabelCase& c : cases) {
        SCOPED_TRACE(Utf16ToUtf8(c.Label));
        TableSample table;
        table.Names = {c.Label, u"v"};
        table.Above = {{1, {c.Label, u"v"}}};
        const ColumnHint hint = kelvarin::guess::HintOf(table, 0);
        EXPECT_EQ(hint.IsNamed, *c.Label != u'\0');
        EXPECT_EQ(hint.IsTime, c.IsTime);
        EXPECT_EQ(Utf16ToUtf8(hint.Unit), Utf16ToUtf8(c.Unit));
        EXPECT_EQ(hint.Order, c.Order);
    }
}

struct LinesCase {
    const char* Name;
    std::vector<std::vector<std::u16string>> Above;
    std::size_t Column;
    bool IsNamed;
    bool IsTime;
    const char16_t* Unit;
};

TEST(GuessColumnHint, ReadsAllLinesAboveTheData) {
    const LinesCase cases[] = {
        {"name and unit in two lines", {{u"time", u"v"}, {u"ms", u"V"}}, 0, true, true, u"ms"},
        {"the other column", {{u"time", u"v"}, {u"ms", u"V"}}, 1, true, false, u""},
        {"prose is no name", {{u"Time of the test: noon"}, {u"a", u"b"}}, 0, true, false, u""},
        {"a short line", {{u"time", u"v"}}, 2, false, false, u""},
        {"nothing above", {}, 0, false, false, u""},
    };
    for (const LinesCase& c : cases) {
        SCOPED_TRACE(c.Name);
        TableSample table;
        table.Names.resize(3);
        for (const std::vector<std::u16string>& cells : c.Above) table.Above.push_back({0, cells});
        const ColumnHint hint = kelvarin::guess::HintOf(table, c.Column);
        EXPECT_EQ(hint.IsNamed, c.IsNamed);
        EXPECT_EQ(hint.IsTime, c.IsTime);
        EXPECT_EQ(Utf16ToUtf8(hint.Unit), Utf16ToUtf8(c.Unit));
    }
}

}  // namespace
