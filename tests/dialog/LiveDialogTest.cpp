// The dialog among other filters, and over files that don't stay.
#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <filesystem>
#include <functional>

#include "kit/TestProfile.h"
#include "kit/Workdir.h"
#include "languages/English.h"
#include "platform/framework/Controls.h"
#include "platform/framework/DialogDriver.h"
#include "platform/framework/PropertySheet.h"
#include "platform/framework/UserInput.h"
#include "plugin/CsvImportFilter.h"
#include "resources/ModuleResources.h"
#include "resources/ResourceIds.h"

namespace {

constexpr std::string_view Data = "t;v\n10:00:00;1\n10:00:01;2\n";
constexpr int Ok = 1;

// Does with the dialog what the test says, and remembers the messages.
class Visitor : public DialogDriver {
  public:
    explicit Visitor(std::function<void(CDialog& frame, CDialog& page)> visit) : Visit(std::move(visit)) {
        SetDialogDriver(this);
    }
    ~Visitor() override { SetDialogDriver(nullptr); }
    void RunModal(CDialog& dialog) override { Visit(dialog, dialog.Sheet->GetPage(0)); }
    int ShowMessage(const std::u16string& text, unsigned) override {
        Messages.push_back(text);
        return 1;
    }
    std::optional<std::u16string> ChooseFile(const FileQuestion& question) override {
        Questions.push_back(question);
        return NextFile;
    }

    std::vector<std::u16string> Messages;
    std::vector<FileQuestion> Questions;
    std::optional<std::u16string> NextFile;

  private:
    const std::function<void(CDialog&, CDialog&)> Visit;
};

TEST(LiveDialog, HandsItsChoicesToTheOtherFiltersAtOk) {
    const Workdir folder;
    TestProfile profile;
    CCsvImportFilter first(folder.Write("a.csv", Data).c_str());
    CCsvImportFilter second(folder.Write("b.csv", Data).c_str());
    const std::u16string description = second.GetSettings().Description;
    const auto choose = [](CDialog& page) {
        UserClick(page, CtrlNoDate);
        UserType(page, CtrlFormat, u"hh:mm:ss");
        UserClick(page, CtrlSaveSidecar);
    };
    {
        const Visitor visitor([&](CDialog& frame, CDialog& page) {
            choose(page);
            UserClick(frame, Ok);
        });
        EXPECT_EQ(first.ShowOptionDialog(), 1);
        EXPECT_EQ(second.GetSettings().SaveSidecarFile, 1) << "goes to all at every OK";
        EXPECT_EQ(second.GetSettings().DateSetting, 0) << "not asked to be the default";
        EXPECT_EQ(folder.Names(), "a.csv a.csv.info b.csv");
    }
    const Visitor visitor([&](CDialog& frame, CDialog& page) {
        choose(page);
        UserClick(page, CtrlUseAsDefault);
        UserClick(frame, Ok);
    });
    EXPECT_EQ(first.ShowOptionDialog(), 1);
    EXPECT_EQ(second.GetSettings().DateSetting, 2);
    EXPECT_EQ(second.GetSettings().TimestampFormat, u"hh:mm:ss");
    EXPECT_EQ(second.GetSettings().SaveSidecarFile, 0);
    EXPECT_EQ(second.GetSettings().Description, description);
    EXPECT_EQ(second.GetSettings().ColumnCount, 0) << "columns are each file's own";
    EXPECT_EQ(CCsvImportFilter(u"c.csv").GetSettings().TimestampFormat, u"hh:mm:ss")
        << "the profile has it too";
}

TEST(LiveDialog, StaysUsableWhenTheFileDoesNot) {
    const Workdir folder;
    const std::u16string path = folder.Write("a.csv", Data);
    CCsvImportFilter filter(path.c_str());
    const Visitor visitor([&](CDialog& frame, CDialog& page) {
        const CListCtrl preview(page.GetDlgItem(CtrlPreview).Handle);
        EXPECT_EQ(preview.GetItemCount(), 2);
        CStdioFileEx other;
        CFileException error(false);
        ASSERT_TRUE(other.Open(path.c_str(), CFile::modeRead | CFile::shareExclusive, &error));
        UserClick(page, CtrlNoDate);
        EXPECT_EQ(preview.GetItemCount(), 0) << "another program holds the file";
        other.Close();
        UserClick(page, CtrlDateFromColumn);
        EXPECT_EQ(preview.GetItemCount(), 2);
        std::filesystem::remove(folder.NativePath("a.csv"));
        UserClick(page, CtrlNoDate);
        EXPECT_EQ(preview.GetItemCount(), 0) << "the file is gone";
        UserType(page, CtrlFormat, u"hh:mm:ss");
        UserClick(frame, Ok);
    });
    EXPECT_EQ(filter.ShowOptionDialog(), 1);
    EXPECT_TRUE(visitor.Messages.empty());
    EXPECT_EQ(filter.GetSettings().TimestampFormat, u"hh:mm:ss");
    EXPECT_EQ(filter.ShowOptionDialog(), 0);
    EXPECT_EQ(visitor.Messages.size(), 1u) << "the file can't be read any more";
}

TEST(LiveDialog, LoadsASidecarThatTheUserChose) {
    const Workdir folder;
    folder.Write(
        "good.info",
        "<CSV-INFO "
        "format-rev='2'><START-LINE>1</START-LINE><SEPARATOR>|</SEPARATOR><DELIMITER-DECIMAL-POINT>.</"
        "DELIMITER-DECIMAL-POINT><DELIMITER-MIL>_</DELIMITER-MIL></CSV-INFO>");
    folder.Write("bad.info", "<CSV-INFO/");
    CCsvImportFilter filter(folder.Write("a.csv", Data).c_str());
    Visitor* driver = nullptr;
    Visitor visitor([&](CDialog&, CDialog& page) {
        for (const char* name : {"bad.info", "missing.info"}) {
            driver->NextFile = folder.Path(name);
            UserClick(page, CtrlLoadSettings);
            EXPECT_EQ(filter.GetSettings().Separator, 0) << name;
        }
        driver->NextFile = folder.Path("good.info");
        UserClick(page, CtrlLoadSettings);
        EXPECT_EQ(page.GetDlgItem(CtrlOtherSeparator).GetWindowText(), u"|");
        EXPECT_TRUE(page.IsDlgButtonChecked(CtrlOther));
        EXPECT_FALSE(page.IsDlgButtonChecked(CtrlAutoFormat));
        EXPECT_EQ(filter.GetSettings().FirstLine, 2);
    });
    driver = &visitor;
    EXPECT_EQ(filter.ShowOptionDialog(), 2);
    EXPECT_TRUE(visitor.Messages.empty());
    EXPECT_EQ(filter.GetSettings().FirstLine, 1);
}

TEST(LiveDialog, AsksForASidecarOverTheWholeDialog) {
    const Workdir folder;
    CCsvImportFilter filter(folder.Write("a.csv", Data).c_str());
    Visitor* driver = nullptr;
    Visitor visitor([&](CDialog& frame, CDialog& page) {
        for (const auto& name :
             {std::optional(folder.Path("other/b.info")), std::optional<std::u16string>()}) {
            driver->NextFile = name;
            UserClick(page, CtrlLoadSettings);
            ASSERT_FALSE(driver->Questions.empty());
            const FileQuestion& question = driver->Questions.back();
            EXPECT_EQ(question.Owner, &frame);
            EXPECT_EQ(question.Title, u"Öffnen");
            EXPECT_EQ(question.Filter, u"Sidecar-Datei (*.info)|*.info");
            EXPECT_EQ(question.DefaultExtension, u"*.info");
        }
        EXPECT_EQ(driver->Questions.back().Folder, folder.Path("other")) << "where the last one was chosen";
    });
    driver = &visitor;
    EXPECT_EQ(filter.ShowOptionDialog(), 2);
    EXPECT_EQ(visitor.Questions.size(), 2u);
}

TEST(LiveDialog, RefusesWhatNoUserCanDo) {
    const Workdir folder;
    CCsvImportFilter filter(folder.Write("a.csv", Data).c_str());
    const Visitor visitor([&](CDialog& frame, CDialog& page) {
        UserClick(page, CtrlFixedDate);
        EXPECT_FALSE(UserFocus(page, 9999) || UserClick(page, 9999) || UserClick(page, CtrlFormat));
        EXPECT_FALSE(UserType(page, CtrlNoDate, u"x") || UserSelect(page, CtrlNoDate, 0));
        EXPECT_FALSE(UserSelect(page, CtrlFormat, -1) || UserSelect(page, CtrlFormat, 999));
        EXPECT_FALSE(UserSetDate(page, CtrlStartDate, 2020, 2, 30) ||
                     UserSetDate(page, CtrlFormat, 2020, 2, 1));
        EXPECT_FALSE(UserSetDate(page, CtrlStartDate, 2020, INT_MAX, 1) ||
                     UserSetDate(page, CtrlStartDate, 2020, 1, INT_MIN));
        EXPECT_FALSE(UserSpin(page, CtrlFormat, 1) || UserSpin(page, 9999, 1) || UserShowPage(page, 0));
        EXPECT_FALSE(UserClickRow(page, CtrlFormat, 0, false) || UserClickRow(page, CtrlPreview, 99, false));
        EXPECT_FALSE(UserDragColumn(page, CtrlPreview, 99, 1) || UserDragColumn(page, 9999, 0, 1));
        UserClick(page, CtrlAdjust);
        for (const auto& [h, m, s] : {std::array{24, 0, 0},
                                      {0, 60, 0},
                                      {0, 0, 60},
                                      {-1, 0, 0},
                                      {0, -1, 0},
                                      {0, 0, -1},
                                      {INT_MAX, 0, 0}}) {
            EXPECT_FALSE(UserSetTime(page, CtrlAdjustTime, h, m, s));
        }
        EXPECT_FALSE(UserShowPage(frame, 9));
        EXPECT_EQ(page.GetDlgItem(CtrlPreview).GetClassName(), u"SysListView32");
        EXPECT_EQ(page.GetDlgItem(CtrlStartDate).GetClassName(), u"SysDateTimePick32");
        EXPECT_EQ(page.GetDlgItem(CtrlDateColumn).GetClassName(), u"Edit");
        EXPECT_EQ(page.GetDlgItem(CtrlDateColumnSpin).GetClassName(), u"msctls_updown32");
        EXPECT_EQ(page.GetDlgItem(CtrlIntervalUnit).GetClassName(), u"ComboBox");
        EXPECT_EQ(page.GetDlgItem(CtrlNoDate).GetClassName(), u"Button");
    });
    EXPECT_EQ(filter.ShowOptionDialog(), 2);
}

TEST(LiveDialog, HoldsColumnNumbersToTheTableAndShowsTheColumn) {
    const Workdir folder;
    std::string wide;
    for (int i = 0; i < 40; ++i) wide += "c;";
    CCsvImportFilter filter(folder.Write("a.csv", wide + "\n" + wide).c_str());
    const Visitor* driver = nullptr;
    const Visitor visitor([&](CDialog& frame, CDialog& page) {
        const CListCtrl preview(page.GetDlgItem(CtrlPreview).Handle);
        for (const auto& [id, other] :
             {std::pair{CtrlDateColumn, CtrlTimeColumn}, {CtrlTimeColumn, CtrlDateColumn}}) {
            UserType(page, id, u"40");
            EXPECT_GT(preview.GetScrollPos(), 0);
            UserType(page, id, u"1");
            EXPECT_EQ(preview.GetScrollPos(), 0);
            UserType(page, id, u"99");
            UserClick(frame, Ok);
            EXPECT_EQ(driver->Messages.size(), 1u) << "the table has fewer columns";
            // Enter leaves the focus where it is.
            UserType(page, id, u"0");
            frame.OnOK();
            EXPECT_EQ(driver->Messages.size(), 2u) << "columns count from 1";
            UserType(page, id, u"1");
            const_cast<Visitor*>(driver)->Messages.clear();
        }
    });
    driver = &visitor;
    EXPECT_EQ(filter.ShowOptionDialog(), 2);
}

TEST(LiveDialog, RefusesABadNumberOnceAndInTheUsersLanguage) {
    const struct {
        int Enabling;  // the control that has to be clicked before
        int Id;
        const char16_t* Text;
        const char16_t* Message;
    } cases[] = {{CtrlAutoFormat, CtrlFirstLine, u"", u"Enter a whole number between 1 and 999."},
                 {CtrlDateFromColumn, CtrlDateColumn, u"0", u"Enter a whole number between 1 and 999."},
                 {CtrlTimeFromColumn, CtrlTimeColumn, u"1000", u"Enter a whole number between 1 and 999."},
                 {CtrlFixedInterval, CtrlIntervalValue, u"0", u"Enter a number between 0.001 and 1000000."}};
    const std::pair<const char*, void (*)(CDialog&, CDialog&)> leavings[] = {
        {"Enter", [](CDialog& frame, CDialog&) { frame.OnOK(); }},
        {"OK", [](CDialog& frame, CDialog&) { UserClick(frame, Ok); }},
        {"Tab", [](CDialog&, CDialog& page) { UserFocus(page, CtrlPreview); }},
        {"a tab", [](CDialog& frame, CDialog&) { UserShowPage(frame, 1); }},
        {"Ctrl+Tab", [](CDialog& frame, CDialog&) { frame.Sheet->SetActivePage(1); }}};
    const Workdir folder;
    CCsvImportFilter filter(folder.Write("a.csv", Data).c_str());
    CsvImportModule().UseLanguage(&GetEnglishResources());
    for (const auto& c : cases) {
        for (const auto& [name, leave] : leavings) {
            SCOPED_TRACE(std::string(name) + " in " + std::to_string(c.Id));
            const Visitor visitor([&, leave = leave](CDialog& frame, CDialog& page) {
                UserClick(page, c.Enabling);
                ASSERT_TRUE(UserType(page, c.Id, c.Text));
                leave(frame, page);
                EXPECT_EQ(CWnd::GetFocus(), page.GetDlgItem(c.Id));
                EXPECT_EQ(frame.Sheet->GetActiveIndex(), 0);
            });
            EXPECT_EQ(filter.ShowOptionDialog(), 2);
            EXPECT_EQ(visitor.Messages, std::vector<std::u16string>{c.Message});
        }
    }
    CsvImportModule().UseLanguage(nullptr);
}

TEST(LiveDialog, LeavesNoKeysToAHiddenPage) {
    const Workdir folder;
    const TestProfile profile({"TimestampFormat=hh:mm:ss", "DateSetting=2"});
    CCsvImportFilter filter(folder.Write("a.csv", Data).c_str());
    const Visitor visitor([&](CDialog& frame, CDialog& page) {
        UserFocus(page, CtrlTimeColumn);
        ASSERT_TRUE(frame.Sheet->SetActivePage(1));
        EXPECT_EQ(CWnd::GetFocus(), frame.Sheet->GetPage(1).GetDlgItem(CtrlSignalList));
        ASSERT_TRUE(frame.Sheet->SetActivePage(0));
        EXPECT_EQ(CWnd::GetFocus(), page.GetDlgItem(CtrlAutoFormat));
        UserFocus(frame, Ok);
        ASSERT_TRUE(frame.Sheet->SetActivePage(1));
        EXPECT_EQ(CWnd::GetFocus(), frame.GetDlgItem(Ok)) << "a button of the frame keeps it";
    });
    EXPECT_EQ(filter.ShowOptionDialog(), 2);
}

TEST(LiveDialog, RefusesASignalWithoutAType) {
    const Workdir folder;
    const TestProfile profile({"AutoFormat=0"});
    CCsvImportFilter filter(folder.Write("a.csv", "a,b\n").c_str());  // names, and no cell to tell a type
    const Visitor visitor([&](CDialog& frame, CDialog& page) {
        UserType(page, CtrlFormat, u"[s]");
        EXPECT_TRUE(UserShowPage(frame, 1));
        EXPECT_TRUE(UserClickRow(frame.Sheet->GetPage(1), CtrlSignalList, 0, true));
        EXPECT_FALSE(UserShowPage(frame, 0));
    });
    EXPECT_EQ(filter.ShowOptionDialog(), 2);
    EXPECT_EQ(visitor.Messages.size(), 1u);
    EXPECT_EQ(CCsvImportFilter(u"/no/file").ShowOptionDialog(), 0);
    EXPECT_EQ(visitor.Messages.size(), 2u);
}

}  // namespace
