// What was assumed wrongly is set right in the dialog.
#include <QComboBox>
#include <QTimer>

#include "platform/framework/Text.h"
#include "view/WindowKit.h"
#include "view/WindowUser.h"
#include "view/model/DialogChoices.h"

namespace window_tests {

std::string KeysOf(const std::vector<kelvarin::ParsedSetting>& settings) {
    std::string keys;
    for (const kelvarin::ParsedSetting& setting : settings) keys += Utf16ToUtf8(setting.Key) + " ";
    return keys;
}

TEST(DialogChoices, AreTakenWithWhatBelongsToThem) {
    const kelvarin::SettingList before = {{"Separator", "1"},  {"FirstLine", "1"},
                                          {"DateColumn", "1"}, {"TimeColumn", "2"},
                                          {"AdjustMode", "0"}, {"TimestampFormat", "hh:mm"}};
    const struct {
        kelvarin::SettingList Changed;
        const char* Wanted;
    } cases[] = {
        {{}, ""},
        {{{"AdjustMode", "1"}}, "AdjustMode "},
        {{{"FirstLine", "3"}}, "FirstLine "},
        {{{"TimestampFormat", "mm:ss"}}, "DateColumn TimeColumn TimestampFormat "},
        {{{"TimeColumn", "3"}, {"FirstLine", "3"}},
         "Separator FirstLine DateColumn TimeColumn TimestampFormat "},
    };
    for (const auto& test : cases) {
        kelvarin::SettingList after = before;
        for (auto& setting : after) {
            for (const auto& changed : test.Changed) {
                if (changed.first == setting.first) setting = changed;
            }
        }
        std::vector<kelvarin::ParsedSetting> chosen;
        TakeChoices(chosen, before, after);
        EXPECT_EQ(KeysOf(chosen), test.Wanted);
        // Once more with the same: each key stays there once.
        TakeChoices(chosen, before, after);
        EXPECT_EQ(KeysOf(chosen), test.Wanted);
    }
}

// Date and time in two columns, and no row that tells the day from the month.
TEST_F(ViewWindow, SwapsDayAndMonthInTheDialog) {
    constexpr int FormatId = 1020;
    std::string text = "Date,Time,Speed\n";
    for (int i = 10; i < 60; ++i)
        text += "05/03/2024,08:00:" + std::to_string(i) + "," + std::to_string(i) + ".5\n";
    Open(Write("run.csv", text));
    Clock local;
    EXPECT_EQ(MomentText(local, Shown->Model().Visible().From), "2024-03-05 08:00:10");
    bool isDone = false;
    QTimer::singleShot(300, Shown.get(), [&isDone] {
        if (QApplication::activeModalWidget() == nullptr) return;
        const auto* const format = dynamic_cast<QComboBox*>(WidgetOf(FormatId));
        if (format == nullptr) return;
        const QString old = format->currentText();
        const QString swapped = old.mid(3, 2) + "/" + old.left(2) + old.mid(5);
        isDone = DoStep("type 1020 " + swapped.toStdString()) && DoStep("ok");
    });
    QTest::keyClick(Shown.get(), Qt::Key_Comma, Qt::ControlModifier);
    Wait();
    ASSERT_TRUE(isDone);
    EXPECT_EQ(Plotted(), "Speed | ");
    EXPECT_EQ(Item(0)->text(3), "50");
    EXPECT_EQ(MomentText(local, Shown->Model().Visible().From), "2024-05-03 08:00:10");
}

}  // namespace window_tests
