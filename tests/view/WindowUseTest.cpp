// Files and signals brought into the window by dragging and from the menus; what then is shown where.
#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QFileDialog>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QTextBlock>
#include <QTimer>
#include <QWindow>

#include "view/WindowKit.h"

namespace window_tests {

// Two files of the same hour with their own signals.
constexpr const char* OneFile =
    "time;speed;pressure;flow\n;km/h;bar;bar\n2024-01-31 08:00:00;1.5;2.5;4.5\n2024-01-31 "
    "08:00:10;1.5;3.5;4.5\n"
    "2024-01-31 08:00:20;1.5;3.5;4.5\n";
constexpr const char* OtherFile =
    "time;force\n;N\n2024-01-31 08:00:00;7.5\n2024-01-31 08:00:10;8.5\n2024-01-31 08:00:20;9.5\n";

class WindowUse : public ViewWindow {
  protected:
    // Drags something over a widget and lets it fall, as the window system reports it; false if nothing there
    // takes it.
    bool Drop(const QWidget& target, QPoint place, const QMimeData& what) const {
        QWindow* const window = Shown->windowHandle();
        const QPoint at = target.mapTo(Shown.get(), place);
        QDragEnterEvent enter(at, Qt::CopyAction, &what, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window, &enter);
        QDragMoveEvent move(at, Qt::CopyAction, &what, Qt::LeftButton, Qt::NoModifier);
        move.setDropAction(enter.dropAction());
        move.setAccepted(enter.isAccepted());
        QCoreApplication::sendEvent(window, &move);
        if (!enter.isAccepted()) {
            QDragLeaveEvent leave;
            QCoreApplication::sendEvent(window, &leave);
            return false;
        }
        QDropEvent drop(at, Qt::CopyAction, &what, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window, &drop);
        return drop.isAccepted();
    }

    void Select(const std::vector<int>& rows) const {
        Shown->Tree().clearSelection();
        for (const int row : rows) Item(row)->setSelected(true);
    }

    QAction* Action(const QString& text) const {
        for (QAction* const action : Shown->findChildren<QAction*>()) {
            if (action->text() == text) return action;
        }
        return nullptr;
    }

    std::string MarkedLine() const { return Shown->FileText().textCursor().block().text().toStdString(); }

    QPoint PlaceOf(std::int64_t time) const {
        const PlotArea& plots = Shown->Plots();
        return {static_cast<int>(plots.PlaceOf(time)), plots.PlotRect().top() + 20};
    }
};

// Files are opened wherever they are dropped; what is no file is not taken.
TEST_F(WindowUse, OpensFilesThatAreDropped) {
    const QString one = Write("one.csv", OneFile);
    const QString other = Write("two words, ä.csv", OtherFile);
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(one), QUrl::fromLocalFile(other), QUrl("https://example.org/a.csv")});
    files.setText(one);  // as file managers add it
    const QWidget* const places[] = {&Shown->Plots(), Shown->Tree().viewport(), Shown->FileText().viewport(),
                                     Shown->Cursors().viewport(), Shown->findChild<QLineEdit*>()};
    for (const QWidget* const place : places) {
        SCOPED_TRACE(place->metaObject()->className());
        EXPECT_TRUE(Drop(*place, place->rect().center(), files));
        Wait();
        EXPECT_EQ(Shown->Tree().topLevelItemCount(), 2);
        EXPECT_EQ(Shown->findChild<QLineEdit*>()->text(), "");
        Shown->Close(one);
        Shown->Close(other);
    }
    QMimeData text;
    text.setText("speed");
    EXPECT_FALSE(Drop(Shown->Plots(), {50, 50}, text));
    EXPECT_FALSE(Drop(*Shown->Tree().viewport(), {50, 50}, text));
}

// Signals dropped on a plot join it, each unit with an axis; below all plots they get one of their own.
TEST_F(WindowUse, PlotsSignalsWhereTheyAreDropped) {
    Open(Write("one.csv", OneFile));
    ASSERT_EQ(Plotted(), "speed | pressure | flow | ");
    PlotArea& plots = Shown->Plots();
    QMimeData dragged;
    dragged.setData(PlotArea::SignalMimeType, "2");
    const auto drop = [&](QPoint place) {
        EXPECT_TRUE(Drop(plots, place, dragged));
        QTest::qWait(20);
        return Plotted();
    };
    Select({1, 2});
    EXPECT_EQ(drop({plots.width() / 2, 30}), "speed pressure flow | ");
    EXPECT_EQ(Shown->Model().Panes()[0].Units().size(), 2u);
    Select({0});
    EXPECT_EQ(drop({plots.width() / 2, plots.height() - 1}), "pressure flow speed | ");
    QTest::keyClick(Shown.get(), Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(Plotted(), "pressure flow | speed | ");
}

// By the menu's question for a file, by its list of the last ones, and again when a file is gone.
TEST_F(WindowUse, OpensFilesFromTheMenu) {
    const QString one = Write("one.csv", OneFile);
    QTimer::singleShot(300, Shown.get(), [&] {
        auto* const dialog = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(one);
        QTest::keyClick(dialog, Qt::Key_Return);
        if (dialog->isVisible()) dialog->reject();
    });
    QTest::keyClick(Shown.get(), Qt::Key_O, Qt::ControlModifier);
    Wait();
    EXPECT_EQ(Plotted(), "speed | pressure | flow | ");
    Shown->activateWindow();  // without a window manager nobody else does
    EXPECT_TRUE(QTest::qWaitForWindowActive(Shown.get()));
    QTest::keyClick(Shown.get(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(Shown->Tree().topLevelItemCount(), 0);
    QAction* const recent = Action("&1  " + QString(one).replace('&', "&&"));
    ASSERT_NE(recent, nullptr);
    recent->trigger();
    Wait();
    EXPECT_EQ(Plotted(), "speed | pressure | flow | ");
}

// Findings, text and assumptions are those of the file that is chosen in the tree.
TEST_F(WindowUse, ShowsTheTextOfTheChosenFile) {
    Open(Write("one.csv", OneFile));
    EXPECT_EQ(MarkedLine(), "1  time;speed;pressure;flow");
    Open(Write("two.csv", OtherFile));
    Shown->Tree().setCurrentItem(Item(0, 1));
    Wait();
    EXPECT_EQ(MarkedLine(), "1  time;force");
    Shown->ShowLine(4);
    EXPECT_EQ(MarkedLine(), "4  2024-01-31 08:00:10;8.5");
    Write("two.csv", std::string(OtherFile) + "2024-01-31 08:00:30;11.5\n");
    QTest::keyClick(Shown.get(), Qt::Key_F5);
    Wait();
    EXPECT_EQ(MarkedLine(), "4  2024-01-31 08:00:10;8.5");
    EXPECT_EQ(Shown->FileText().blockCount(), 6);
    Shown->Close(ToQt(Folder.Path("two.csv")));
    Wait();
    EXPECT_EQ(MarkedLine(), "1  time;speed;pressure;flow");
}

// A click on a plot shows the line of the sample, however far the text has to go.
TEST_F(WindowUse, ShowsTheLineOfAClickOnAPlot) {
    std::string bytes = "time;speed\n";
    for (int i = 0; i < 3000; ++i) bytes += std::to_string(i) + ".0;" + std::to_string(i % 50) + ".5\n";
    Open(Write("long.csv", bytes));
    const TimeRange all = Shown->Model().Visible();
    for (const double share : {0.9, 0.1, 0.5, 0.501}) {
        SCOPED_TRACE(share);
        const auto time = all.From + static_cast<std::int64_t>(all.Length() * share);
        QTest::mouseClick(&Shown->Plots(), Qt::LeftButton, {}, PlaceOf(time));
        Wait();
        const auto second = (*Shown->Model().Cursor - all.From) / 1'000'000'000;
        const std::string line = std::to_string(second + 2) + "  " + std::to_string(second) + ".0;";
        EXPECT_NE(MarkedLine().find(line), std::string::npos) << MarkedLine() << " is not " << line;
    }
}

// The cells of a line have the tints of their columns, and in another scheme others; the marked line has one.
TEST_F(WindowUse, TintsTheColumnsOfTheText) {
    Open(Write("one.csv", OneFile));
    const auto colors = [this](int line) {
        const QTextBlock block = Shown->FileText().document()->findBlockByNumber(line);
        std::vector<QColor> found;
        for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
            if (range.format.hasProperty(QTextFormat::BackgroundBrush))
                found.push_back(range.format.background().color());
        }
        return found;
    };
    const std::vector<QColor> light = colors(3);
    ASSERT_EQ(light.size(), 4u);
    EXPECT_NE(light[0], light[1]);
    EXPECT_EQ(colors(2), light);
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(40, 40, 40)));
    QCoreApplication::processEvents();
    EXPECT_LT(colors(3)[0].lightness(), light[0].lightness());
    QApplication::setPalette(before);
}

// What the filter hides stays hidden in files that come later.
TEST_F(WindowUse, FiltersFilesToCome) {
    QTest::keyClicks(Shown->findChild<QLineEdit*>(), "PRES");
    Open(Write("one.csv", OneFile));
    EXPECT_TRUE(Item(0)->isHidden());
    EXPECT_FALSE(Item(1)->isHidden());
    QTest::keyClick(Shown.get(), Qt::Key_F5);
    Wait();
    EXPECT_TRUE(Item(0)->isHidden());
}

// The clock in force has the mark in the menu, also where the file has brought it.
TEST_F(WindowUse, MarksTheClockInForce) {
    Open(Write("count.csv", "t;v\n0.0;1.5\n0.1;2.5\n0.2;3.5\n"));
    const auto marked = [this] {
        auto* const menu = qobject_cast<QMenu*>(Action("Times in &UTC")->parent());
        Q_EMIT menu->aboutToShow();
        std::string text;
        for (const QAction* const action : menu->actions())
            text += action->isChecked() ? action->text().toStdString() : "";
        return text;
    };
    EXPECT_EQ(marked(), "Times from the &start");
    QTest::keyClick(Shown.get(), Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(marked(), "Times in &UTC");
}

// Every entry of every menu is reached by a key: its own, or the letter in it once the menu is open.
TEST_F(WindowUse, ReachesEveryActionByAKey) {
    Open(Write("one.csv", OneFile));
    int count = 0;
    const std::function<void(const QList<QAction*>&)> check = [&](const QList<QAction*>& actions) {
        for (const QAction* const action : actions) {
            if (action->isSeparator()) continue;
            ++count;
            const QString letters = QString(action->text()).remove("&&");
            EXPECT_TRUE(letters.contains('&') || !action->shortcut().isEmpty())
                << action->text().toStdString();
            if (action->menu() != nullptr) check(action->menu()->actions());
        }
    };
    check(Shown->menuBar()->actions());
    EXPECT_GT(count, 40);
}

}  // namespace window_tests
