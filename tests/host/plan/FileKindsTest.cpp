#include "host/plan/FileKinds.h"

#include <gtest/gtest.h>

#include "host/plan/Sureness.h"
#include "kit/Workdir.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

using namespace kelvarin::plan;

namespace {
// A file a text, called a.csv, b.csv and so on.
class FolderOfFiles {
  public:
    explicit FolderOfFiles(const std::vector<std::string>& texts) {
        for (const std::string& text : texts) Paths.push_back(Write(text));
        Kinds = FindKinds(Paths);
    }

    // The plan of a new file.
    std::optional<ReadingPlan> PlanFor(const std::string& text) { return PlanAt(Write(text)); }

    std::optional<ReadingPlan> PlanAt(const std::u16string& path) {
        Unlike.clear();
        return FindPlan(path, Kinds, Unlike);
    }

    Workdir Home;
    std::vector<std::u16string> Paths;
    FileKinds Kinds;
    std::vector<std::string> Unlike;

  private:
    std::u16string Write(const std::string& text) {
        return Home.Write(std::string(1, static_cast<char>('a' + Count++)) + ".csv", text);
    }

    int Count = 0;
};

// "t text, n whole numbers".
std::string TypesText(const ReadingPlan& plan) {
    std::string text;
    for (const PlannedColumn& column : plan.Columns) {
        if (column.IsTime) continue;
        text += (text.empty() ? "" : ", ") + Utf16ToUtf8(column.Name) + " " + TypesInWords(column.Type);
    }
    return text;
}

std::string TimesText(const ReadingPlan& plan) {
    for (const Assumption& one : Assumptions(plan)) {
        if (one.Kind == "times")
            return one.Text + (one.Objections.empty() ? "" : ", but " + one.Objections[0]);
    }
    return {};
}

std::string JoinedTexts(const std::vector<std::string>& texts) {
    std::string joined;
    for (const std::string& text : texts) joined += (joined.empty() ? "" : "; ") + text;
    return joined;
}

std::string RowsOfDay(const std::string& day, std::initializer_list<const char*> cells) {
    std::string text;
    int minute = 0;
    for (const char* const cell : cells)
        text += day + " 10:0" + std::to_string(minute++) + ":00;" + cell + "\n";
    return text;
}

const std::string Header = "When;x\n";
}  // namespace

TEST(FileKinds, TypesHoldTheCellsOfAllFiles) {
    const struct {
        const char* Cells[2];
        const char* Type;
    } cases[] = {
        {{"0", "1"}, "x truth values"},      {{"0", "7"}, "x whole numbers"},
        {{"1", "1.5"}, "x decimal numbers"}, {{"1", "broken"}, "x texts"},
        {{"", "7"}, "x whole numbers"},      {{"n/a", "7"}, "x whole numbers"},
        {{"true", "7"}, "x texts"},          {{"1.5", "1,250.5"}, "x decimal numbers"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.Cells[0]) + " | " + c.Cells[1]);
        const auto fileOf = [](const char* cell) {
            return Header + RowsOfDay("2024-05-13", {cell, cell, cell, cell, cell});
        };
        FolderOfFiles folder({fileOf(c.Cells[0]), fileOf(c.Cells[1])});
        ASSERT_EQ(folder.Kinds.All.size(), 1u);
        for (const std::u16string& path : folder.Paths) {
            const auto plan = folder.PlanAt(path);
            ASSERT_TRUE(plan);
            EXPECT_EQ(TypesText(*plan), c.Type);
            EXPECT_EQ(plan->Kin->Files, 2u);
        }
    }
}

TEST(FileKinds, OneFileProvesTheOrderOfDayAndMonthForAll) {
    const std::string open = Header + RowsOfDay("04/05/2024", {"1.5", "2.5", "3.5", "4.5"});
    const struct {
        const char* Day;
        const char* Times;
    } cases[] = {
        {"05/13/2024", "date and time in column 1 (\"When\"), month before day"},
        {"13/05/2024", "date and time in column 1 (\"When\"), day before month"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Day);
        FolderOfFiles folder({open, Header + RowsOfDay(c.Day, {"1.5", "2.5", "3.5"})});
        ASSERT_EQ(folder.Kinds.All.size(), 1u);
        const auto plan = folder.PlanAt(folder.Paths[0]);
        EXPECT_EQ(TimesText(*plan), c.Times);
        EXPECT_EQ(Utf16ToUtf8(plan->Kin->OrderFile), "b.csv");
        EXPECT_EQ(folder.PlanAt(folder.Paths[1])->Kin->OrderFile, u"");
    }
}

// Whichever of the two makes of the open file what it is, is not known.
TEST(FileKinds, OpposedProofsLeaveTheOrderOpen) {
    FolderOfFiles folder({Header + RowsOfDay("05/13/2024", {"1", "2", "3", "4"}),
                          Header + RowsOfDay("13/05/2024", {"1", "2", "3", "4"}),
                          Header + RowsOfDay("04/05/2024", {"1", "2"})});
    EXPECT_EQ(folder.Kinds.All.size(), 2u);
    EXPECT_NE(TimesText(*folder.PlanAt(folder.Paths[2])).find("could be swapped"), std::string::npos);
    EXPECT_EQ(TimesText(*folder.PlanAt(folder.Paths[0])),
              "date and time in column 1 (\"When\"), month before day");
}

TEST(FileKinds, DifferencesAreNamed) {
    const std::string rows = RowsOfDay("2024-05-13", {"1.5;1", "2.5;2", "3.5;3", "4.5;5"});
    FolderOfFiles folder({"When;Druck [bar];n\n" + rows + rows});
    folder.Kinds.PlanFile = u"day.plan";
    const struct {
        std::string Text;
        const char* Unlike;
    } cases[] = {
        // Of the kind: another preamble, fewer rows, a header alone.
        {"Logger 4\nSerial 12\n\nWhen;Druck [bar];n\n" + rows, ""},
        {"When;Druck [bar];n\n2024-06-01 00:00:00;1.5;1\n", ""},
        {"When;Druck [bar];n\n", ""},
        // Not of it.
        {"When;Druck [mbar];n\n" + rows, "column 2 is \"Druck [mbar]\", not \"Druck [bar]\""},
        {"When;n;Druck [bar]\n" + rows,
         "column 2 is \"n\", not \"Druck [bar]\"; column 3 is \"Druck [bar]\", not \"n\""},
        {"When;Druck [bar]\n" + RowsOfDay("2024-05-13", {"1.5", "2.5", "3.5"}),
         "it has 2 columns, not 3; it has no column \"n\""},
        {rows, "no line names its columns"},
        {"When,Druck [bar],n\n2024-05-13 10:00:00,1.5,1\n2024-05-13 10:00:01,2.5,2\n",
         "it is separated by commas, not separated by semicolons"},
        {"When;Druck [bar];n\n" + RowsOfDay("2024-05-13", {"1,5;1", "2,25;2", "3,5;3"}),
         "its decimal mark is a comma"},
        {"nothing here\n", "no table was found in it"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Text);
        const auto plan = folder.PlanFor(c.Text);
        EXPECT_EQ(JoinedTexts(folder.Unlike), c.Unlike);
        EXPECT_EQ(plan.has_value(), *c.Unlike == '\0');
    }
}

TEST(FileKinds, FilesOfOtherKindsAreReadAsTheyAre) {
    const std::string rows = RowsOfDay("2024-05-13", {"1.5", "2.5", "3.5"});
    FolderOfFiles folder({Header + rows, Header + rows, "When;y\n" + rows});
    EXPECT_EQ(folder.Kinds.All.size(), 2u);
    const auto plan = folder.PlanAt(folder.Paths[2]);
    ASSERT_TRUE(plan);
    EXPECT_EQ(TypesText(*plan), "y decimal numbers");
    EXPECT_EQ(JoinedTexts(plan->Kin->Differences), "column 2 is \"y\", not \"x\"");
}
