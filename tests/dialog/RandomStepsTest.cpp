// Whatever a user does, Cancel takes it back, and nothing but OK stores anything.
#include <gtest/gtest.h>

#include <random>

#include "contract/ParamListCtrl.h"
#include "kit/Workdir.h"
#include "platform/framework/DialogDriver.h"
#include "platform/framework/PropertySheet.h"
#include "platform/framework/UserInput.h"
#include "plugin/CsvImportFilter.h"
#include "settings/SettingsTable.h"

namespace {

// Does random things to random controls, then cancels.
class RandomUser : public DialogDriver {
  public:
    RandomUser(unsigned seed, int steps) : Random(seed), Steps(steps) {}

    void RunModal(CDialog& dialog) override {
        for (int i = 0; i < Steps && !dialog.IsEnded(); ++i) DoSomething(dialog);
        UserClick(dialog, 2);
    }
    int ShowMessage(const std::u16string&, unsigned) override { return 1; }
    std::optional<std::u16string> ChooseFile(const FileQuestion&) override { return std::nullopt; }

  private:
    int Below(int bound) { return static_cast<int>(Random() % static_cast<unsigned>(bound)); }

    void DoSomething(CDialog& dialog) {
        constexpr const char16_t* Texts[] = {u"",  u"0",  u"1",       u"2", u"999", u"99999999999",
                                             u";", u"-5", u"[s],000", u"x"};
        CDialog& page = dialog.Sheet->GetPage(dialog.Sheet->GetActiveIndex());
        const std::vector<ControlView> controls = ViewControls(page);
        const int id = controls[static_cast<std::size_t>(Below(static_cast<int>(controls.size())))].Id;
        switch (Below(10)) {
            case 0:
                UserShowPage(dialog, Below(2));
                break;
            case 1:
                UserType(page, id, Texts[Below(10)]);
                break;
            case 2:
                UserSelect(page, id, Below(8));
                break;
            case 3:
                UserSetDate(page, id, 1900 + Below(300), 1 + Below(12), 1 + Below(28));
                break;
            case 4:
                UserSpin(page, id, Below(5) - 2);
                break;
            case 5:
                UserClickRow(page, id, Below(4), Below(2) == 0);
                break;
            case 6:
                UserEditCell(page, id, Below(4), Below(2), Texts[Below(10)]);
                break;
            case 7:
                UserDragColumn(page, id, Below(4), Below(300));
                break;
            default:
                UserClick(page, id);
                break;
        }
    }

    std::mt19937 Random;
    const int Steps;
};

// All settings and columns of a record as text.
std::string Everything(const CCsvImportSettings& s) {
    std::string text;
    const auto add = [&](const auto& value) {
        if constexpr (std::is_same_v<std::decay_t<decltype(value)>, std::u16string>) {
            text += std::string(value.begin(), value.end()) + "|";
        } else {
            text += std::to_string(value) + "|";
        }
    };
    for (const Setting& setting : SettingsTable)
        std::visit([&](const auto& kind) { add(s.*kind.Field); }, setting.Kind);
    for (const int value : {s.DetectedSeparator, s.DetectedFirstLine, s.DetectedHeader, s.ColumnCount})
        add(value);
    for (const auto& [index, column] : s.ColumnMap) {
        for (const auto& name : {column.DetectedName, column.UserName, column.Unit}) add(name);
        for (const int value :
             {index, static_cast<int>(column.ImportColumn), static_cast<int>(column.DetectedType),
              static_cast<int>(column.UserType), column.PreviewWidth}) {
            add(value);
        }
    }
    return text;
}

TEST(RandomSteps, AreTakenBackByCancel) {
    const Workdir folder;
    const std::u16string path =
        folder.Write("data.csv", "t;n;v\n10:00:00;1;2,5\n10:00:01;3;4 V\n;x;\"a;b\"\n");
    for (unsigned seed = 0; seed < 12; ++seed) {
        CCsvImportFilter filter(path.c_str());
        ASSERT_TRUE(filter.AnalyzeFile());
        const std::string before = Everything(filter.GetSettings());
        RandomUser user(seed, 250);
        SetDialogDriver(&user);
        EXPECT_EQ(filter.ShowOptionDialog(), 2);
        SetDialogDriver(nullptr);
        ASSERT_EQ(Everything(filter.GetSettings()), before) << "seed " << seed;
        ASSERT_EQ(folder.Names(), "data.csv") << "seed " << seed;
    }
}

}  // namespace
