// What was assumed wrongly is set right in the dialog.
#include <QComboBox>
#include <QMessageBox>
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
class DialogOfChoices : public ViewWindow {
  protected:
    DialogOfChoices() {
        std::string text = "Date,Time,Speed\n";
        for (int i = 10; i < 60; ++i)
            text += "05/03/2024,08:00:" + std::to_string(i) + "," + std::to_string(i) + ".5\n";
        Open(Write("run.csv", text));
        EXPECT_EQ(FirstTime(), "2024-03-05 08:00:10");
    }

    std::string FirstTime() const { return MomentText(Clock(), Shown->Model().Visible().From); }

    // Opens the dialog, has day and month in the other order, and presses OK. A question that comes then is
    // answered by the key, which must be pressed.
    void SwapDayAndMonth(Qt::Key answer = Qt::Key_unknown) {
        constexpr int FormatId = 1020;
        bool isDone = false;
        QTimer::singleShot(300, Shown.get(), [&isDone] {
            if (QApplication::activeModalWidget() == nullptr) return;
            const auto* const format = dynamic_cast<QComboBox*>(WidgetOf(FormatId));
            if (format == nullptr) return;
            const QString old = format->currentText();
            const QString swapped = old.mid(3, 2) + "/" + old.left(2) + old.mid(5);
            isDone = DoStep("type 1020 " + swapped.toStdString()) && DoStep("ok");
        });
        bool isAnswered = answer == Qt::Key_unknown;
        QTimer answering;
        QObject::connect(&answering, &QTimer::timeout, [&] {
            auto* const question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (question == nullptr || answer == Qt::Key_unknown) return;
            isAnswered = true;
            QTest::keyClick(question, answer, Qt::AltModifier);
        });
        answering.start(50);
        Shown->activateWindow();  // a question that was answered before leaves none active
        EXPECT_TRUE(QTest::qWaitForWindowActive(Shown.get()));
        QTest::keyClick(Shown.get(), Qt::Key_Comma, Qt::ControlModifier);
        Wait();
        EXPECT_TRUE(isDone);
        EXPECT_TRUE(isAnswered);
    }
};

TEST_F(DialogOfChoices, SwapDayAndMonth) {
    SwapDayAndMonth();
    EXPECT_EQ(Plotted(), "Speed | ");
    EXPECT_EQ(Item(0)->text(3), "50");
    EXPECT_EQ(FirstTime(), "2024-05-03 08:00:10");
}

// A sidecar says all: the window asks whether what was changed is to stand there.
TEST_F(DialogOfChoices, ComeIntoTheSidecarIfTheUserSaysSo) {
    QTest::keyClick(Shown.get(), Qt::Key_K, Qt::ControlModifier);
    Wait();
    const std::string kept = Folder.Read("run.csv.info");
    SwapDayAndMonth(Qt::Key_N);
    EXPECT_EQ(Folder.Read("run.csv.info"), kept);
    EXPECT_EQ(FirstTime(), "2024-03-05 08:00:10");
    SwapDayAndMonth(Qt::Key_Y);
    EXPECT_NE(Folder.Read("run.csv.info"), kept);
    EXPECT_EQ(Plotted(), "Speed | ");
    EXPECT_EQ(FirstTime(), "2024-05-03 08:00:10");
    // Opened by another program it is read so as well.
    Shown->Close(ToQt(Folder.Path("run.csv")));
    Open(ToQt(Folder.Path("run.csv")));
    EXPECT_EQ(FirstTime(), "2024-05-03 08:00:10");
}

}  // namespace window_tests
