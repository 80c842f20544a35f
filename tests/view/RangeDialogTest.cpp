// Value axes get the range that a user types.
#include <QTimer>

#include "view/WindowKit.h"
#include "view/WindowUser.h"
#include "view/window/RangeDialog.h"

namespace window_tests {

class RangesWindow : public ViewWindow {
  protected:
    RangesWindow() { Open(Write("lauf.csv", GermanFile(5))); }

    // Works the dialog by keys: a text is typed over what is in the field, Tab goes to the next one.
    void Type(const std::vector<QString>& fields, Qt::Key end) {
        bool isThere = false;
        QTimer::singleShot(100, Shown.get(), [&] {
            auto* const dialog = dynamic_cast<RangeDialog*>(QApplication::activeModalWidget());
            isThere = dialog != nullptr;
            if (!isThere) return;
            for (const QString& field : fields) {
                if (!field.isEmpty()) TypeText(field);
                PressKey(Qt::Key_Tab);
            }
            PressKey(end);
            if (dialog->isVisible()) dialog->reject();
        });
        Press(Qt::Key_R);
        EXPECT_TRUE(isThere);
    }

    // With Ctrl, in the window, which gets the keys a little after a dialog has gone.
    void Press(Qt::Key key) {
        Shown->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(Shown.get()));
        QTest::keyClick(Shown.get(), key, Qt::ControlModifier);
    }

    // "lowest..highest" of each pane, "fits" where that follows what is visible.
    std::string Ranges() {
        std::string text;
        for (const Pane& pane : Shown->Model().Panes()) {
            char range[60] = "fits";
            if (!pane.FixedRanges.empty())
                std::snprintf(range, sizeof range, "%g..%g", pane.FixedRanges[0].Lowest,
                              pane.FixedRanges[0].Highest);
            text += std::string(range) + " ";
        }
        return text;
    }
};

TEST_F(RangesWindow, TakesTypedNumbers) {
    Type({"0", "1000,5"}, Qt::Key_Return);
    EXPECT_EQ(Ranges(), "0..1000.5 fits ");
    EXPECT_EQ(Shown->Plots().ShownRange(0, 0), (ValueRange{0, 1000.5}));
    // Without a change nothing changes.
    Type({}, Qt::Key_Return);
    EXPECT_EQ(Ranges(), "0..1000.5 fits ");
    // Both plots are one step.
    Type({"-1e3", "", "", "1", "2"}, Qt::Key_Return);
    EXPECT_EQ(Ranges(), "-1000..1000.5 1..2 ");
    Press(Qt::Key_Z);
    EXPECT_EQ(Ranges(), "0..1000.5 fits ");
    Press(Qt::Key_0);
    EXPECT_EQ(Ranges(), "fits fits ");
}

// What the fields show in seven digits.
TEST_F(RangesWindow, KeepsRangesThatAreNotTyped) {
    const std::vector<ValueRange> exact = {{1 / 3.0, 2 / 3.0}};
    Shown->Model().ShowValues(0, exact);
    Shown->Plots().ShowLook(true);
    Type({"", "", "", "1", "2"}, Qt::Key_Return);
    EXPECT_EQ(Shown->Model().Panes()[0].FixedRanges, exact);
    EXPECT_EQ(Shown->Model().Panes()[1].FixedRanges, (std::vector<ValueRange>{{1, 2}}));
}

TEST_F(RangesWindow, RefusesWhatIsNoRange) {
    for (const auto& bounds :
         {std::vector<QString>{"5", "5"}, {"7", "6"}, {"x", "1"}, {"1e300", "2e300"}, {"nan", "1"}}) {
        Type(bounds, Qt::Key_Return);
        EXPECT_EQ(Ranges(), "fits fits ") << bounds[0].toStdString();
    }
    Type({"0", "9"}, Qt::Key_Escape);
    EXPECT_EQ(Ranges(), "fits fits ");
}

TEST_F(RangesWindow, FitsWhatIsVisibleAgain) {
    Type({"0", "9"}, Qt::Key_Return);
    // The third field is the check box of the first plot.
    bool isDone = false;
    QTimer::singleShot(100, Shown.get(), [&isDone] {
        for (int i = 0; i < 2; ++i) PressKey(Qt::Key_Tab);
        PressKey(Qt::Key_Space);
        PressKey(Qt::Key_Return);
        isDone = QApplication::activeModalWidget() == nullptr;
        if (!isDone) QApplication::activeModalWidget()->close();
    });
    Press(Qt::Key_R);
    EXPECT_TRUE(isDone);
    EXPECT_EQ(Ranges(), "fits fits ");
}

}  // namespace window_tests
