// Dropped rows by reason, as the observer of a run hears of them, and what is found of that.
#include "contract/FixedTimes.h"
#include "host/check/DroppedRows.h"

#include <gtest/gtest.h>

#include "host/check/CheckRun.h"
#include "host/check/Findings.h"
#include "platform/framework/Text.h"

namespace {

using namespace kelvarin;
using check::DropKind;

constexpr std::int64_t Second = 1'000'000'000;

// One call of the observer: a stored row without a reason, else a dropped one.
struct Row {
    std::optional<DropReason> Reason;
    std::int64_t Time = 0;
    std::u16string Cells;  // with semicolons between them; the first holds the time
};

Row Stored(std::int64_t time) {
    return {std::nullopt, time, {}};
}
Row Misfit(const std::u16string& cells) {
    return {DropReason::DoesNotFit, 0, cells};
}
Row Falling(std::int64_t time) {
    return {DropReason::Falls, time, u"f;1"};
}

// Feeds rows, from line 2 on, to the observer of a check.
class FakeRun {
  public:
    explicit FakeRun(Reading format = {}, check::WantedLines wanted = {}) : Observer(Result, wanted) {
        Result.Begun = true;
        Result.Columns.emplace_back().Column = 2;
        Result.Letters = u"JMThms";
        Result.Format = std::move(format);
        Result.Series = std::make_unique<check::TimeSeries>(Result.Format, Result.Letters);
    }

    void Take(const std::vector<Row>& rows, bool cameToEnd = true) {
        for (const Row& row : rows) TakeRow(row);
        Result.Dropped.Finish(cameToEnd);
    }
    void TakeRow(const Row& row) {
        const RowPlace place{++Line, Line};
        if (!row.Reason) return Observer.OnRowStored(place, row.Time);
        std::u16string text = row.Cells;
        std::vector<char16_t*> cells = {text.data()};
        for (char16_t& c : text) {
            if (c != u';') continue;
            c = u'\0';
            cells.push_back(&c + 1);
        }
        Observer.OnRowDropped({place, *row.Reason, cells.front(), row.Time, cells});
    }

    // "unreadable 3,4 falls 7": the kinds with their lines.
    std::string Kinds() const {
        std::string text;
        for (std::size_t i = 0; i < check::DropKindCount; ++i) {
            const auto kind = static_cast<DropKind>(i);
            std::string lines;
            for (const check::FilePlace& place : Result.Dropped.Of(kind).FirstFew)
                lines += (lines.empty() ? "" : ",") + std::to_string(place.Line);
            if (!lines.empty()) text += (text.empty() ? "" : " ") + std::string(NameOf(kind)) + " " + lines;
        }
        return text;
    }

    check::CheckResult Result;
    check::CheckObserver Observer;
    std::uint64_t Line = 1;
};

struct KindCase {
    const char* Name;
    std::vector<Row> Rows;
    bool CameToEnd;
    const char* Kinds;
};

TEST(DroppedRows, AreToldApartByReasonAndPlace) {
    const Row misfit = Misfit(u"x;1"), empty = Misfit(u"; \t;");
    const KindCase cases[] = {
        {"above, between and below",
         {misfit, misfit, Stored(1), misfit, Stored(2), misfit, Stored(3), misfit, misfit},
         true,
         "unreadableAtStart 2,3 unreadable 5,7 unreadableAtEnd 9,10"},
        {"no row was stored", {misfit, misfit}, true, "unreadable 2,3"},
        {"the run was ended before the last row", {Stored(1), misfit}, false, "unreadable 3"},
        {"only blank cells, wherever they are",
         {empty, Stored(1), empty, Stored(2), empty},
         true,
         "empty 2,4,6"},
        {"a row that repeats is not below the last one",
         {Stored(1), misfit, {DropReason::Repeats, 1, u"1;2"}, misfit, Stored(2)},
         true,
         "unreadable 3,5 repeats 4"},
        {"the other reasons",
         {{DropReason::OutOfRange, -5, u"a;1"},
          Stored(9),
          {DropReason::Repeats, 9, u"b;1"},
          Falling(3),
          {DropReason::NoStep, 9, u"c;1"}},
         true,
         "repeats 4 falls 5 outOfRange 2 noStep 6"},
    };
    for (const KindCase& c : cases) {
        SCOPED_TRACE(c.Name);
        FakeRun run;
        run.Take(c.Rows, c.CameToEnd);
        EXPECT_EQ(run.Kinds(), c.Kinds);
    }
}

TEST(DroppedRows, QuoteTheTimeInTheTableAndTheRowElsewhere) {
    struct Case {
        const char* Name;
        std::vector<Row> Rows;
        DropKind Kind;
        std::u16string Text;
    };
    const std::u16string longCell(300, u'x');
    const Case cases[] = {
        {"in the table", {Stored(1), Misfit(u" x ;1"), Stored(2)}, DropKind::Unreadable, u"x"},
        {"without a stored row", {Misfit(u"x;1")}, DropKind::Unreadable, u"x"},
        {"above", {Misfit(u"[s];[V]"), Stored(2)}, DropKind::UnreadableAtStart, u"[s];[V]"},
        {"below", {Stored(1), Misfit(u"End; of data;")}, DropKind::UnreadableAtEnd, u"End; of data;"},
        {"another reason", {Stored(1), Falling(0)}, DropKind::Falls, u"f;1"},
        {"a long row",
         {Stored(1), Misfit(u"a;" + longCell)},
         DropKind::UnreadableAtEnd,
         u"a;" + longCell.substr(0, 198)},
        {"a long time", {Misfit(longCell)}, DropKind::Unreadable, longCell.substr(0, 200)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        Reading format;
        format.Separator = SeparatorSemicolon;
        FakeRun run(format);
        run.Take(c.Rows);
        ASSERT_EQ(run.Result.Dropped.Of(c.Kind).Count, 1u) << run.Kinds();
        EXPECT_EQ(Utf16ToUtf8(run.Result.Dropped.Of(c.Kind).Last.Text), Utf16ToUtf8(c.Text));
    }
}

TEST(DroppedRows, KeepTheFirstFewPlacesAndTheLast) {
    FakeRun run;
    run.TakeRow(Stored(1));
    for (int i = 0; i < 1000; ++i)
        run.TakeRow(Misfit(u"x" + std::u16string(1, static_cast<char16_t>(u'a' + i % 26))));
    run.TakeRow(Stored(2));
    for (int i = 0; i < 500; ++i) run.TakeRow(Misfit(u"y"));
    run.Result.Dropped.Finish(true);
    const check::FilePlaces& between = run.Result.Dropped.Of(DropKind::Unreadable);
    EXPECT_EQ(between.Count, 1000u);
    EXPECT_EQ(check::LinesInWords(between), "lines 3, 4, 5, 6, 7 ... 1002");
    EXPECT_EQ(between.FirstFew.size(), 8u);
    EXPECT_EQ(run.Result.Dropped.Of(DropKind::UnreadableAtEnd).Count, 500u);
    ASSERT_EQ(run.Result.Dropped.UnreadableTexts().size(), 100u);
    EXPECT_EQ(run.Result.Dropped.UnreadableTexts().back(), u"xv");
}

TEST(DroppedRows, MeasureHowTimesFall) {
    struct Case {
        const char* Name;
        std::vector<Row> Rows;
        std::int64_t First, Deepest, Before;
        bool RunsBackwards;
    };
    const Case cases[] = {
        {"a clock set back", {Stored(100), Falling(90), Falling(95), Stored(101)}, 10, 10, 100, false},
        {"later ones fall deeper", {Stored(100), Falling(99), Stored(110), Falling(50)}, 1, 60, 100, true},
        {"backwards", {Stored(100), Falling(90), Falling(80), Falling(70)}, 10, 30, 100, true},
        {"one alone is no direction", {Stored(100), Falling(90)}, 10, 10, 100, false},
        {"two sources in turn",
         {Stored(100), Falling(10), Stored(110), Falling(20), Stored(120), Falling(30)},
         90,
         90,
         100,
         false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        FakeRun run;
        run.Take(c.Rows);
        const check::FallSummary& falls = run.Result.Dropped.Falls();
        EXPECT_EQ(falls.First, c.First);
        EXPECT_EQ(falls.Deepest, c.Deepest);
        EXPECT_EQ(falls.BeforeFirst, c.Before);
        EXPECT_EQ(falls.RunsBackwards(), c.RunsBackwards);
    }
}

TEST(CheckObserver, TellsBlankLinesInTheTableFromThoseBelowIt) {
    FakeRun run;
    const auto blank = [&] { run.Observer.OnBlankLine({++run.Line, 0}); };
    blank();
    run.TakeRow(Stored(1));
    blank();
    blank();
    run.TakeRow(Misfit(u"x;1"));
    blank();
    run.Result.Dropped.Finish(true);
    EXPECT_EQ(run.Result.BlankLines, 4u);
    EXPECT_EQ(check::LinesInWords(run.Result.Blank), "lines 2, 4, 5");
}

TEST(CheckObserver, CountsCellsByColumnAndNotesTheLinesThatAreWanted) {
    check::LineSet dropped, refused;
    FakeRun run({}, {&dropped, &refused});
    run.Result.Columns.emplace_back().Column = 5;
    const auto refuse = [&](int column) {
        run.Observer.OnCellRefused({{run.Line, run.Line}, column, 2, u"x"});
    };
    run.TakeRow(Stored(1));
    refuse(1);
    refuse(4);
    run.TakeRow(Stored(2));
    refuse(4);
    refuse(2);  // of no signal
    run.TakeRow(Falling(0));
    EXPECT_EQ(check::LinesInWords(run.Result.Columns[0].Refused), "line 2");
    EXPECT_EQ(check::LinesInWords(run.Result.Columns[1].Refused), "lines 2, 3");
    EXPECT_EQ(run.Result.RefusedCells(), 3u);
    EXPECT_EQ(dropped.Count(), 1u);
    EXPECT_TRUE(dropped.Has(4));
    EXPECT_EQ(refused.Count(), 2u);
}

struct FindingCase {
    const char* Name;
    std::vector<Row> Rows;
    const char* Kind;
    const char* Text;
    const char* Advice;
    const char* Settings = "";
    RemedyAction Action = RemedyAction::None;
};

std::string InWords(const SettingList& settings) {
    std::string words;
    for (const auto& [key, value] : settings) words += (words.empty() ? "" : " ") + key + "=" + value;
    return words;
}

Reading DayFormat() {
    Reading format;
    format.Separator = SeparatorSemicolon;
    format.HeaderLine = 1;
    format.FirstDataLine = 2;
    format.DateSetting = DateNone;
    format.TimestampFormat = u"[s]";
    return format;
}

TEST(Findings, SayWhatToDoAboutDroppedRows) {
    const std::int64_t start = RelativeTimeEpoch;
    std::vector<Row> shared;
    for (int second = 0; second < 6; ++second) {
        shared.push_back(Stored(start + second * Second));
        shared.push_back({DropReason::Repeats, start + second * Second, u"1;2"});
    }
    const FindingCase cases[] = {
        {"a misfit in the table",
         {Stored(start), Misfit(u"x;1"), Stored(start + 1)},
         "unreadable",
         "1 row dropped without a time that the format '[s]' reads: line 3, the first \"x\"",
         "to mend in a file of its own",
         "",
         RemedyAction::ExtractRows},
        {"units below the names",
         {Misfit(u"[s];[V]"), Stored(start), Stored(start + 1)},
         "unreadableAtStart",
         "1 row dropped above the first with a time: line 2, the first \"[s];[V]\"",
         "names and units among the rows make text of their columns; to begin the table below",
         "AutoFormat=0 Separator=0 MergeSeparators=0 FirstLine=2 ImportHeader=1"},
        {"a legend",
         {Stored(start), Misfit(u"End;1"), Misfit(u"Sum;1")},
         "unreadableAtEnd",
         "2 rows dropped below the last with a time: lines 3, 4, the first \"End;1\"",
         "a legend or sums are no loss; a row that was cut off is"},
        {"two rows a second", shared, "repeats",
         "6 rows dropped for repeating the time of the row before: lines 3, 5, 7, 9, 11, 13",
         "2 rows share each 1 s; perhaps at a fixed interval of 500 ms",
         "DateSetting=2 TimeSetting=1 IntervalValue=500 IntervalUnit=3"},
        {"backwards",
         {Stored(start + 90), Falling(start + 80), Falling(start + 70)},
         "falls",
         "2 rows dropped for being earlier than a row before, the first by 10 ns: lines 3, 4",
         "the file runs backwards; a clean copy has its rows in order",
         "",
         RemedyAction::CopyFile},
        {"out of range",
         {{DropReason::OutOfRange, -1, u"-5;1"}, Stored(start)},
         "outOfRange",
         "1 row dropped with a time outside the years that can be stored: line 2, the first \"-5;1\"",
         ""},
        {"no step",
         {Stored(start), {DropReason::NoStep, start, u"1;2"}},
         "noStep",
         "1 row dropped, since the fixed interval doesn't lead beyond the row before: line 3",
         "a longer one",
         "IntervalValue=1 IntervalUnit=2"},
        {"an empty row",
         {Stored(start), Misfit(u";"), Stored(start + 1)},
         "empty",
         "1 row dropped with separators and blanks only: line 3",
         "nothing is lost"},
    };
    for (const FindingCase& c : cases) {
        SCOPED_TRACE(c.Name);
        FakeRun run(DayFormat());
        run.Take(c.Rows);
        const std::vector<check::Finding> findings = check::Judge(run.Result);
        const auto found = std::find_if(findings.begin(), findings.end(), [&](const check::Finding& f) {
            return f.Kind == std::string(c.Kind);
        });
        ASSERT_NE(found, findings.end()) << run.Kinds();
        EXPECT_EQ(found->Text, c.Text);
        EXPECT_EQ(found->Advice.Text, c.Advice);
        EXPECT_EQ(InWords(found->Advice.Settings), c.Settings);
        EXPECT_EQ(found->Advice.Action, c.Action);
        EXPECT_EQ(found->IsFault, c.Kind != std::string("empty"));
    }
}

TEST(Findings, PutAnotherFormatFirst) {
    FakeRun run(DayFormat());
    run.Take({Misfit(u"x;1")});
    const auto advice = [&] { return check::Judge(run.Result).front().Advice; };
    run.Result.TimeAdvice = {"no row fits", {{"TimestampFormat", "[ms]"}}};
    EXPECT_EQ(advice().Text, "no row fits");
    run.Result.BetterFormat = u"[ns]";
    EXPECT_EQ(advice().Text, "another format reads them");
    EXPECT_EQ(advice().Settings, (SettingList{{"TimestampFormat", "[ns]"}}));
}

TEST(Findings, HaveTheFaultsFirst) {
    FakeRun run(DayFormat());
    run.Take({Stored(1), Misfit(u";"), Stored(2), Misfit(u"x;1"), Stored(3)});
    run.Result.Columns[0].Refused.Add({5, 5, u"NaN"});
    run.Result.Above = {1, 1};
    std::string kinds;
    for (const check::Finding& finding : check::Judge(run.Result))
        kinds += std::string(finding.IsFault ? " " : " -") + finding.Kind;
    EXPECT_EQ(kinds, " rowsAbove unreadable refusedCells -empty");
    EXPECT_FALSE(check::IsClean(run.Result, check::Judge(run.Result)));
}

TEST(Findings, TellMissingValuesFromOtherRefusedCells) {
    struct Case {
        std::vector<std::u16string> Cells;
        RemedyAction Action;
    };
    const Case cases[] = {
        {{u"NaN"}, RemedyAction::None},
        {{u" n/a ", u"--", u"?"}, RemedyAction::None},
        {{u"NaN", u"5 V"}, RemedyAction::ExtractRowsAndCells},
        {{u"x"}, RemedyAction::ExtractRowsAndCells},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(Utf16ToUtf8(c.Cells.front()));
        FakeRun run(DayFormat());
        run.Take({Stored(1), Stored(2)});
        for (const std::u16string& cell : c.Cells) run.Result.Columns[0].Refused.Add({2, 2, cell});
        const std::vector<check::Finding> findings = check::Judge(run.Result);
        ASSERT_EQ(findings.size(), 1u);
        EXPECT_EQ(findings.front().Kind, std::string("refusedCells"));
        EXPECT_EQ(findings.front().Advice.Action, c.Action);
    }
}

}  // namespace
