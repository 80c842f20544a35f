// What the observer of a run hears of each line.
#include "contract/RunObserver.h"

#include <gtest/gtest.h>

#include "kit/ImportRun.h"
#include "kit/LocalMoment.h"

namespace {

// Writes down what it hears, a semicolon between the calls: the line of the file, that of the messages, and
// what happened.
class Listener : public IRunObserver {
  public:
    explicit Listener(std::int64_t origin) : Origin(origin) {}

    void OnRowStored(const RowPlace& place, std::int64_t time) override {
        Note(place, "stored " + std::to_string(time - Origin));
    }
    void OnRowDropped(const DroppedRow& row) override {
        constexpr const char* Reasons[] = {"does not fit", "repeats", "falls", "out of range", "no step"};
        std::string text = Reasons[static_cast<int>(row.Reason)];
        text += " '" + Utf16ToUtf8(row.TimeText) + "'";
        if (row.Time) text += " " + std::to_string(*row.Time - Origin);
        for (const char16_t* cell : row.Cells) text += "|" + Utf16ToUtf8(cell);
        Note(row.Place, text);
    }
    void OnCellRefused(const RefusedCell& cell) override {
        Note(cell.Place, "cell " + std::to_string(cell.Column) + " is no " + std::to_string(cell.Type) +
                             ": " + Utf16ToUtf8(cell.Text));
    }
    void OnTimeBefore1990(const RowPlace& place, std::int64_t time) override {
        Note(place, "before 1990 " + std::to_string(time - Origin));
    }
    void OnBlankLine(const RowPlace& place) override { Note(place, "blank"); }

    std::string Heard;

  private:
    void Note(const RowPlace& place, const std::string& text) {
        Heard += (Heard.empty() ? "" : "; ") + std::to_string(place.Line) + "/" +
                 std::to_string(place.MessageLine) + " " + text;
    }

    const std::int64_t Origin;
};

std::string HeardOf(const std::string& bytes, const SettingList& settings, std::int64_t origin = 0) {
    ImportRun run(bytes, settings);
    Listener listener(origin);
    run.Column(1).UserType = CsvTypeInteger;
    run.Filter->Find<IObservedRun>()->ObserveRun(&listener);
    run.Import();
    return listener.Heard;
}

struct RunCase {
    const char* Name;
    SettingList Settings;
    std::string File;
    const char* Heard;
};

const SettingList Nanoseconds = {"TimeSetting=0", "TimestampFormat=[ns]"};

TEST(RunObserver, HearsWhyRowsAreDropped) {
    const RunCase cases[] = {
        {"a text that the format does not read", Nanoseconds, "t;a\n4;5\nx;6\n;\n7\n",
         "2/2 stored 5; 3/3 does not fit 'x'|x|6; 4/4 does not fit ''||; 5/5 stored 8"},
        {"no such column", Joined(Nanoseconds, {"TimeColumn=3"}), "t;a\n4;5\n", "2/2 does not fit ''|4|5"},
        {"no format", {"TimeSetting=0"}, "t;a\n4;5\n", "2/2 does not fit '4'|4|5"},
        {"a time that repeats, one that falls", Nanoseconds, "t;a\n4;5\n4;6\n1;7\n4;8\n5;9\n",
         "2/2 stored 5; 3/3 repeats '4' 5|4|6; 4/4 falls '1' 2|1|7; 5/5 repeats '4' 5|4|8; 6/6 stored 6"},
        {"the correction is part of the time",
         Joined(Nanoseconds, {"Adjust=1", "AdjustMode=1", "AdjustTime=2020-02-01 00:00:01"}),
         "t;a\n4;5\n4;6\n", "2/2 stored 1000000005; 3/3 repeats '4' 1000000005|4|6"},
        {"beyond the greatest time", Nanoseconds, "t;a\n4;5\n5000000000000000000;6\n5;7\n",
         "2/2 stored 5; 3/3 out of range '5000000000000000000' 5000000000000000001|5000000000000000000|6; "
         "4/4 stored 6"},
        {"not beyond 1970 yet", Nanoseconds, "t;a\n-3;5\n-1;6\n0;7\n",
         "2/2 out of range '-3' -2|-3|5; 3/3 does not fit '-1'|-1|6; 4/4 stored 1"},
        {"an interval of 0", {"IntervalValue=0"}, "a\n4\n5\n", "2/2 stored 1; 3/3 no step '' 1|5"},
        {"an interval that goes back",
         {"IntervalValue=-2"},
         "a\n4\n5\n",
         "2/2 stored 1; 3/3 no step '' -1|5"},
        {"an interval from 1970 on",
         {"DateSetting=0", "DateColumn=9", "IntervalUnit=2"},
         "a\n4\n5\n",
         "2/2 before 1990 0; 2/2 out of range '' 0|4; 3/3 before 1990 1000000000; 3/3 stored 1000000000"},
        {"the first row", Joined(Nanoseconds, {"Adjust=1", "AdjustMode=0", "AdjustTime=2020-02-01 00:00:01"}),
         "t;a\nx;5\n4;6\n", "2/2 does not fit 'x'|x|5; 3/3 stored 1000000006"},
        {"without a header", Joined(Nanoseconds, {"ImportHeader=0"}), "4;5\n4;6\n",
         "1/1 stored 5; 2/2 repeats '4' 5|4|6"},
    };
    for (const RunCase& c : cases) {
        SCOPED_TRACE(c.Name);
        EXPECT_EQ(HeardOf(c.File, c.Settings), c.Heard);
    }
}

TEST(RunObserver, HearsCellsAndLines) {
    std::string utf16 = "\xFF\xFE";
    for (const char c : std::string("t;a\n4;5\n\nx;6\n")) utf16 += {c, '\0'};
    const RunCase cases[] = {
        {"blank lines, and separators that make a row", Nanoseconds, "t;a\n\n4;5\n \t\n\n;\n7;8\n\n",
         "2/2 blank; 3/2 stored 5; 4/3 blank; 5/3 blank; 6/3 does not fit ''||; 7/4 stored 8; 8/5 blank"},
        {"a refused cell after its row; an empty one is none", Nanoseconds, "t;a\n4;5\n\n5;x y\n6;\n7\n",
         "2/2 stored 5; 3/3 blank; 4/3 stored 6; 4/3 cell 1 is no 2: x y; 5/4 stored 7; 6/5 stored 8"},
        {"the cells of a dropped row are not judged", Nanoseconds, "t;a\n4;5\n4;x\n",
         "2/2 stored 5; 3/3 repeats '4' 5|4|x"},
        {"quotes are the parser's", Nanoseconds, "t;a\n\"x;\";\"5\"\n", "2/2 does not fit 'x;'|x;|5"},
        {"UTF-16", Nanoseconds, utf16, "2/2 stored 5; 3/3 blank; 4/3 does not fit 'x'|x|6"},
    };
    for (const RunCase& c : cases) {
        SCOPED_TRACE(c.Name);
        EXPECT_EQ(HeardOf(c.File, c.Settings), c.Heard);
    }
}

TEST(RunObserver, HearsAbsoluteTimes) {
    const std::int64_t first = LocalTime64(1985, 2, 1);
    const SettingList dated = {"DateSetting=0", "TimeSetting=0", "TimestampFormat=TT.MM.JJJJ"};
    EXPECT_EQ(HeardOf("t;a\n1.2.1985;5\n1.2.1985;6\n", dated, first),
              "2/2 before 1990 0; 2/2 stored 0; 3/3 before 1990 0; 3/3 repeats '1.2.1985' 0|1.2.1985|6");

    const SettingList joined = {"DateSetting=0", "DateColumn=3", "TimeSetting=0",
                                "TimestampFormat=hh; TT.MM.JJJJ"};
    const std::int64_t noon = LocalTime64(2020, 2, 1, 12);
    EXPECT_EQ(HeardOf("t;a;d\n12;5;1.2.2020\n12;6;x\n", joined, noon),
              "2/2 stored 0; 3/3 does not fit '12;x'|12|6|x");

    const SettingList fixed = {"DateSetting=1", "TimeSetting=0", "TimestampFormat=[s]",
                               "StartDate=2020-02-01 15:00:00"};
    EXPECT_EQ(HeardOf("t;a\n60;5\n60;6\n0;7\n0;8\n", fixed, LocalTime64(2020, 2, 1)),
              "2/2 stored 60000000000; 3/3 repeats '60' 60000000000|60|6; 4/4 stored 86400000000000; "
              "5/5 repeats '0' 86400000000000|0|8");
}

TEST(RunObserver, HearsNothingOnceItIsTakenAway) {
    ImportRun run("t;a\n4;5\n4;6\n", Nanoseconds);
    Listener listener(0);
    IObservedRun* const observed = run.Filter->Find<IObservedRun>();
    observed->ObserveRun(&listener);
    ASSERT_TRUE(run.Filter->BeginImport() && run.Next());
    observed->ObserveRun(nullptr);
    run.Next();
    run.Filter->EndImport();
    EXPECT_EQ(listener.Heard, "2/2 stored 5");
    EXPECT_EQ(run.Messages(), RowWithoutTime(3));
}

}  // namespace
