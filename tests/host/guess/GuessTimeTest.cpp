// The guess of the times of whole tables, read by the built module.
#include <gtest/gtest.h>

#include "host/guess/TimeGuess.h"
#include "kit/HostModule.h"
#include "kit/Workdir.h"
#include "platform/framework/Text.h"

namespace {

using kelvarin::Certainty;
using kelvarin::guess::GuessLayer;
using kelvarin::guess::TimeGuess;
using Settings = kelvarin::SettingList;

Settings Dates(int dateColumn, int timeColumn, const char* format) {
    return {{"DateSetting", "0"},
            {"DateColumn", std::to_string(dateColumn)},
            {"TimeSetting", "0"},
            {"TimeColumn", std::to_string(timeColumn)},
            {"TimestampFormat", format}};
}

// Relative times.
Settings Elapsed(int column, const char* format) {
    return {{"DateSetting", "2"},
            {"TimeSetting", "0"},
            {"TimeColumn", std::to_string(column)},
            {"TimestampFormat", format}};
}

Settings Interval(const char* value, const char* unit) {
    return {{"DateSetting", "2"}, {"TimeSetting", "1"}, {"IntervalValue", value}, {"IntervalUnit", unit}};
}

TimeGuess Guess(const std::string& table) {
    const Workdir folder;
    return kelvarin::guess::GuessTime(HostModule(), folder.Write("data.csv", table));
}

struct TableCase {
    const char* Table;
    Settings Expected;
    Certainty Sureness;
};

TEST(GuessTime, FindsColumnsAndFormat) {
    const TableCase cases[] = {
        // Date and time in one column, in two on either side, or a date alone.
        {"t;v\n31.01.2024 10:00:00;1\n31.01.2024 10:00:01;2\n31.01.2024 10:00:02;3\n31.01.2024 10:00:03;4\n",
         Dates(1, 1, "TT.MM.JJJJ hh:mm:ss,000"), Certainty::Certain},
        {"v;t\n1;2024-01-31 10:00\n2;2024-01-31 10:01\n3;2024-01-31 10:02\n4;2024-01-31 10:03\n",
         Dates(2, 2, "JJJJ-MM-TT hh:mm"), Certainty::Certain},
        {"d;c;v\n2024-01-31;10:00;1\n2024-01-31;10:01;2\n2024-01-31;10:02;3\n2024-01-31;10:03;4\n",
         Dates(1, 2, "JJJJ-MM-TT;hh:mm"), Certainty::Certain},
        {"c;d;v\n10:00;2024-01-31;1\n10:01;2024-01-31;2\n10:02;2024-01-31;3\n10:03;2024-01-31;4\n",
         Dates(2, 1, "hh:mm;JJJJ-MM-TT"), Certainty::Certain},
        {"d;v\n2024-01-30;1\n2024-01-31;2\n2024-02-01;3\n2024-02-02;4\n", Dates(1, 1, "JJJJ-MM-TT"),
         Certainty::Certain},
        {"d;v\n20240130;1\n20240131;2\n20240201;3\n20240202;4\n", Dates(1, 1, "JJJJMMTT"),
         Certainty::Certain},
        // The time two columns away.
        {"d;n;c;v\n2024-01-31;a;10:00;1\n2024-01-31;b;10:01;2\n2024-01-31;c;10:02;3\n2024-01-31;d;10:03;4\n",
         Dates(1, 3, "JJJJ-MM-TT;hh:mm"), Certainty::Certain},
        // Times of day, hours beyond 24, minutes and seconds.
        {"c;v\n10:00:00;1\n10:00:01;2\n10:00:02;3\n10:00:03;4\n", Elapsed(1, "hh:mm:ss,000"),
         Certainty::Certain},
        {"c;v\n99:59:58;1\n99:59:59;2\n100:00:00;3\n100:00:01;4\n", Elapsed(1, "hh:mm:ss,000"),
         Certainty::Certain},
        {"c;v\n00:01.5;1\n00:02.5;2\n00:03.5;3\n00:04.5;4\n", Elapsed(1, "mm:ss.000"), Certainty::Certain},
        // Numbers with a unit in the name, in a line of units, or none.
        {"t [ms];v\n0;1\n10;2\n20;3\n30;4\n", Elapsed(1, "[ms],000"), Certainty::Certain},
        {"t;v\nms;V\n0;1\n10;2\n20;3\n30;4\n", Elapsed(1, "[ms],000"), Certainty::Certain},
        {"time;v\n0.5;1\n1.0;2\n1.5;3\n2.0;4\n", Elapsed(1, "[s].000"), Certainty::Likely},
        {"t [min];v\n0;1\n10;2\n20;3\n30;4\n", Elapsed(1, "mm"), Certainty::Certain},
        // Nothing that could be a time.
        {"name;v\na;3\nb;2\nc;1\nd;0\n", Interval("1", "2"), Certainty::Uncertain},
        {"t;v\n3/21/2022 4:56 PM;1\n3/21/2022 4:57 PM;2\n3/21/2022 4:58 PM;3\n", Interval("1", "2"),
         Certainty::Uncertain},
    };
    for (const TableCase& c : cases) {
        SCOPED_TRACE(c.Table);
        const TimeGuess guess = Guess(c.Table);
        EXPECT_EQ(guess.Failure, "");
        EXPECT_EQ(guess.Settings, c.Expected);
        EXPECT_EQ(guess.Sureness, c.Sureness);
    }
}

TEST(GuessTime, DecidesBetweenDayAndMonth) {
    const TableCase cases[] = {
        // By a number above 12, wherever it is.
        {"t,v\n01/02/2024,1\n01/03/2024,2\n01/04/2024,3\n01/13/2024,4\n", Dates(1, 1, "MM/TT/JJJJ"),
         Certainty::Certain},
        {"t,v\n01/02/2024,1\n02/02/2024,2\n03/02/2024,3\n13/02/2024,4\n", Dates(1, 1, "TT/MM/JJJJ"),
         Certainty::Certain},
        // By the label above, whatever is usual.
        {"DD/MM/YYYY,v\n01/02/2024,1\n02/02/2024,2\n03/02/2024,3\n04/02/2024,4\n", Dates(1, 1, "TT/MM/JJJJ"),
         Certainty::Certain},
        // By the order that rises: the other falls at the turn of a month.
        {"t,v\n30/01/2024 10:00,1\n01/02/2024 10:00,2\n01/03/2024 10:00,3\n02/03/2024 10:00,4\n",
         Dates(1, 1, "TT/MM/JJJJ hh:mm"), Certainty::Certain},
        // By even steps, which are only likely.
        {"t,v\n09/01/2024 23:50,1\n10/01/2024 00:00,2\n10/01/2024 00:10,3\n10/01/2024 00:20,4\n",
         Dates(1, 1, "TT/MM/JJJJ hh:mm"), Certainty::Likely},
        // By nothing: a slash is American, a hyphen is not, a point never.
        {"t,v\n01/02/2024,1\n02/03/2024,2\n03/04/2024,3\n04/05/2024,4\n", Dates(1, 1, "MM/TT/JJJJ"),
         Certainty::Uncertain},
        {"t,v\n01-02-2024,1\n02-03-2024,2\n03-04-2024,3\n04-05-2024,4\n", Dates(1, 1, "TT-MM-JJJJ"),
         Certainty::Uncertain},
        {"t;v\n01.02.2024;1\n02.03.2024;2\n03.04.2024;3\n04.05.2024;4\n", Dates(1, 1, "TT.MM.JJJJ"),
         Certainty::Certain},
    };
    for (const TableCase& c : cases) {
        SCOPED_TRACE(c.Table);
        const TimeGuess guess = Guess(c.Table);
        EXPECT_EQ(guess.Settings, c.Expected);
        EXPECT_EQ(guess.Sureness, c.Sureness);
    }
}

// Each row is settled by one of the weights.
TEST(GuessTime, PrefersOneKindOfTimeToAnother) {
    const TableCase cases[] = {
        // A full date before a date alone to its left, and before elapsed seconds.
        {"day;t;v\n2024-01-01;2024-01-01 10:00;1\n2024-01-02;2024-01-02 10:00;2\n"
         "2024-01-03;2024-01-03 10:00;3\n2024-01-04;2024-01-04 10:00;4\n",
         Dates(2, 2, "JJJJ-MM-TT hh:mm"), Certainty::Certain},
        {"t [s];t;v\n0;31.01.2024 10:00;1\n60;31.01.2024 10:01;2\n120;31.01.2024 10:02;3\n"
         "180;31.01.2024 10:03;4\n",
         Dates(2, 2, "TT.MM.JJJJ hh:mm"), Certainty::Certain},
        // A date in two ways loses to a time of day with fractions, and wins over one without.
        {"elapsed,real,v\n0:00:00.1,01/06/2024 10:00:00,1\n0:00:01.2,01/06/2024 10:00:01,2\n"
         "0:00:02.3,01/06/2024 10:00:02,3\n0:00:03.4,01/06/2024 10:00:03,4\n",
         Elapsed(1, "hh:mm:ss.000"), Certainty::Certain},
        {"elapsed,real,v\n0:00:00,01/06/2024 10:00:00,1\n0:00:01,01/06/2024 10:00:01,2\n"
         "0:00:02,01/06/2024 10:00:02,3\n0:00:03,01/06/2024 10:00:03,4\n",
         Dates(2, 2, "MM/TT/JJJJ hh:mm:ss"), Certainty::Uncertain},
        // A column that rises in every row before a better kind that repeats.
        {"d;t [s];v\n2024-01-31;0;1\n2024-01-31;1;2\n2024-01-31;2;3\n2024-02-01;3;4\n", Elapsed(2, "[s],000"),
         Certainty::Certain},
        // A named unit before none, the left one of two that are as good.
        {"time;delay [s];v\n0;0;1\n1;1;2\n2;2;3\n3;3;4\n", Elapsed(1, "[s],000"), Certainty::Likely},
        {"t [s];time [ms];v\n0;0;1\n1;1000;2\n2;2000;3\n3;3000;4\n", Elapsed(1, "[s],000"),
         Certainty::Certain},
        {"run s;time s;v\n0;0;1\n1;1;2\n2;2;3\n3;3;4\n", Elapsed(2, "[s],000"), Certainty::Certain},
    };
    for (const TableCase& c : cases) {
        SCOPED_TRACE(c.Table);
        const TimeGuess guess = Guess(c.Table);
        EXPECT_EQ(guess.Settings, c.Expected);
        EXPECT_EQ(guess.Sureness, c.Sureness);
    }
}

struct ObjectionCase {
    const char* Table;
    Certainty Sureness;
    std::vector<std::string> Objections;
};

TEST(GuessTime, SaysWhatSpeaksAgainstIt) {
    const ObjectionCase cases[] = {
        {"t;v\n2024-01-30;1\n2024-01-31;2\n2024-02-01;3\n", Certainty::Likely, {"only 3 rows to judge by"}},
        {"t;v\n2024-01-30;1\n2024-01-31;2\n2024-02-01;3\nsum;6\nmean;2\n",
         Certainty::Likely,
         {"the format does not fit lines 5-6"}},
        {"t;v\n2024-01-30;1\n2024-01-31;2\n2024-01-31;3\n2024-02-01;4\n",
         Certainty::Likely,
         {"times repeat: 1 of the 4 rows looked at are lost"}},
        {"t;v\n2024-01-30;1\n2024-01-31;2\n2024-01-15;3\n2024-02-01;4\n",
         Certainty::Likely,
         {"times fall: 1 of the 4 rows looked at are lost"}},
        {"t;v\n2024-02-02;1\n2024-02-01;2\n2024-01-31;3\n2024-01-30;4\n",
         Certainty::Uncertain,
         {"the newest row stands first: only the first row is taken, unless the file is turned around"}},
        {"t;v\n2024-01-30 10:00Z;1\n2024-01-31 10:00Z;2\n2024-02-01 10:00Z;3\n2024-02-02 10:00Z;4\n",
         Certainty::Certain,
         {"the zone Z is not applied: the times count as local ones of this computer"}},
        {"t;v\n1980-01-30;1\n1980-01-31;2\n1980-02-01;3\n1980-02-02;4\n",
         Certainty::Certain,
         {"there are times before 1990, which the host can't process"}},
        {"n;t;v\nx;0,5;1\nx;0,75;2\nx;1,25;3\nx;2,25;4\n",
         Certainty::Likely,
         {"no unit is named; s makes usual steps"}},
        {"run s;v\n0;1\n1;2\n2;3\n3;4\n", Certainty::Likely, {"the column's name does not speak of time"}},
        {"time;v\n100000;1\n100001;2\n100002;3\n100003;4\n",
         Certainty::Likely,
         {"plain numbers may mean something else"}},
        {"name;v\na;3\nb;2\nc;1\nd;0\n",
         Certainty::Uncertain,
         {"no column holds times that a format can read; the interval is a mere example"}},
    };
    for (const ObjectionCase& c : cases) {
        SCOPED_TRACE(c.Table);
        const TimeGuess guess = Guess(c.Table);
        EXPECT_EQ(guess.Sureness, c.Sureness);
        EXPECT_EQ(guess.Objections, c.Objections);
    }
}

TEST(GuessTime, CountsRowsAndNamesWhatIsNearlyAsGood) {
    const TimeGuess guess = Guess(
        "a;b;v\n2024-01-30 10:00;2024-02-01 10:00;1\n2024-01-31 10:00;2024-02-02 10:00;2\n"
        "note;note;\n2024-01-31 10:00;2024-02-03 10:00;3\n");
    EXPECT_EQ(guess.Basis, "date and time in column 2");
    EXPECT_EQ(guess.Rows, 4u);
    EXPECT_EQ(guess.Read, 3u);
    EXPECT_EQ(guess.Rising, 3u);
    EXPECT_EQ(guess.OtherBasis, "");
    const TimeGuess even =
        Guess("a;b;v\n2024-01-30 10:00;2024-02-01 10:00;1\n2024-01-31 10:00;2024-02-02 10:00;2\n");
    EXPECT_EQ(even.Basis, "date and time in column 1");
    EXPECT_EQ(even.OtherBasis, "date and time in column 2");
    EXPECT_EQ(even.OtherSettings, Dates(2, 2, "JJJJ-MM-TT hh:mm"));
}

// In German T is the letter of the day.
TEST(GuessTime, ProposesAnIntervalWhereALetterIsAField) {
    const TimeGuess guess =
        Guess("t;v\n2024-02-01T10:00:00;1\n2024-02-01T10:00:10;2\n2024-02-01T10:00:20;3\n");
    EXPECT_TRUE(guess.IsFixedInterval);
    EXPECT_EQ(guess.Basis, "a fixed interval of 10 s from the time of the first row, as column 1 tells");
    EXPECT_EQ(
        guess.Objections,
        (std::vector<std::string>{"no format can read column 1: its letter T is a field of the format"}));
    EXPECT_EQ(guess.OtherWay.Text, "in English the format holds it");
    EXPECT_EQ(guess.OtherWay.Action, kelvarin::RemedyAction::SwitchToEnglish);
    const TimeGuess uneven =
        Guess("t;v\n2024-02-01T10:00:00;1\n2024-02-01T11:00:00;2\n2024-02-01T13:00:00;3\n");
    EXPECT_EQ(uneven.Sureness, Certainty::Uncertain);
    EXPECT_EQ(uneven.Objections.back(),
              "the rows do not follow each other evenly, so that an interval is wrong for some");
}

TEST(GuessTime, FailsWithoutATable) {
    EXPECT_EQ(Guess("").Failure, "there is no table");
    EXPECT_NE(kelvarin::guess::GuessTime(HostModule(), Workdir().Path("absent.csv")).Failure, "");
}

constexpr const char* DayTable = "d;v\n2024-01-30;1\n2024-01-31;2\n2024-02-01;3\n2024-02-02;4\n";

std::string FormatInForce(const Workdir& folder) {
    const auto filter = HostModule().MakeFilter(folder.Path("data.csv"));
    return Utf16ToUtf8(kelvarin::ReadingOf(*filter).TimestampFormat);
}

TEST(GuessLayer, PutsTheGuessInForceWhileItLives) {
    const Workdir folder;
    const std::u16string path = folder.Write("data.csv", DayTable);
    {
        const GuessLayer layer(HostModule(), path, {.GuessTime = true}, {});
        EXPECT_EQ(FormatInForce(folder), "JJJJ-MM-TT");
        EXPECT_EQ(layer.Guess()->Objections, std::vector<std::string>{});
    }
    EXPECT_EQ(FormatInForce(folder), "");
    const GuessLayer idle(HostModule(), path, {.GuessTime = false, .Save = true}, {});
    EXPECT_EQ(idle.Guess(), nullptr);
    EXPECT_EQ(FormatInForce(folder), "");
    EXPECT_EQ(folder.Names(), "data.csv");
}

TEST(GuessLayer, LeavesWhatTheUserChose) {
    const Workdir folder;
    const std::u16string path = folder.Write("data.csv", DayTable);
    kelvarin::ParsedSetting chosen;
    ASSERT_EQ(kelvarin::ParseSetting("TimestampFormat", "JJJJ-TT-MM", chosen), "");
    kelvarin::SettingsLayer users;
    users.Set(chosen);
    const GuessLayer layer(HostModule(), path, {.GuessTime = true}, {chosen});
    EXPECT_EQ(FormatInForce(folder), "JJJJ-TT-MM");
    EXPECT_EQ(layer.Guess()->Objections, std::vector<std::string>{"TimestampFormat stays as it was set"});
}

TEST(GuessLayer, SavesASidecarOnceAndLeavesOneThatIsThere) {
    const Workdir folder;
    const std::u16string path = folder.Write("data.csv", DayTable);
    {
        const GuessLayer layer(HostModule(), path, {.GuessTime = true, .Save = true}, {});
        EXPECT_EQ(layer.Guess()->SaveFailure, "");
        EXPECT_EQ(layer.Guess()->Saved, Utf16ToUtf8(path) + ".info");
    }
    EXPECT_EQ(folder.Names(), "data.csv data.csv.info");
    EXPECT_EQ(FormatInForce(folder), "JJJJ-MM-TT") << "the sidecar's";
    const std::string sidecar = folder.Read("data.csv.info");
    const GuessLayer again(HostModule(), path, {.GuessTime = true, .Save = true}, {});
    EXPECT_EQ(again.Guess()->Saved, "");
    EXPECT_EQ(again.Guess()->SaveFailure, "data.csv.info exists already and stays as it is");
    EXPECT_EQ(again.Guess()->Objections,
              std::vector<std::string>{"it is not used: data.csv.info is in force"});
    EXPECT_EQ(folder.Read("data.csv.info"), sidecar);
}

struct AdviceCase {
    const char* Table;
    const char16_t* FormatInForce;
    const char* Text;
    Settings Expected;
};

TEST(AdviseTimestamp, SaysWhyNoRowHasATimeAndWhatToSet) {
    const AdviceCase cases[] = {
        {DayTable, u"",
         "no row has a timestamp, since no timestamp format is set; date in column 1 (certain)",
         Dates(1, 1, "JJJJ-MM-TT")},
        {DayTable, u"TT.MM.JJJJ", "no row fits the timestamp format 'TT.MM.JJJJ'; date in column 1 (certain)",
         Dates(1, 1, "JJJJ-MM-TT")},
        {"name;v\na;3\nb;2\n", u"",
         "no row has a timestamp, since no timestamp format is set and no format fits; a fixed interval of 1 "
         "s",
         Interval("1", "2")},
        {"", u"x", "no row fits the timestamp format 'x'", {}},
    };
    for (const AdviceCase& c : cases) {
        SCOPED_TRACE(c.Text);
        const Workdir folder;
        kelvarin::Reading reading;
        reading.TimestampFormat = c.FormatInForce;
        const kelvarin::Remedy remedy =
            kelvarin::guess::AdviseTimestamp(HostModule(), folder.Write("data.csv", c.Table), reading);
        EXPECT_EQ(remedy.Text, c.Text);
        EXPECT_EQ(remedy.Settings, c.Expected);
    }
}

}  // namespace
