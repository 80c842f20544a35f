// The window of the viewer worked as a user works it, with files of a folder of its own.
#include <QAction>
#include <QDir>
#include <QDockWidget>
#include <QHeaderView>
#include <QTextBlock>
#include <QTimer>
#include <QTreeWidgetItemIterator>
#include <filesystem>
#include <fstream>

#include "view/SlowDisk.h"
#include "view/WindowKit.h"

namespace window_tests {

constexpr std::size_t MostOfIt = 20 << 20;  // of the bytes of a long file

TEST_F(ViewWindow, ShowsAFileAndItsValuesAtTheCursor) {
    Open(Write("lauf.csv", GermanFile(100)));
    ASSERT_EQ(Shown->Tree().topLevelItemCount(), 1);
    ASSERT_EQ(Shown->Tree().topLevelItem(0)->childCount(), 2);
    EXPECT_EQ(Item(0)->text(0), "Drehzahl");
    EXPECT_EQ(Item(0)->text(1), "U/min");
    EXPECT_EQ(Plotted(), "Drehzahl | Druck | ");
    PlotArea& plots = Shown->Plots();
    const QRect rect = plots.PlotRect();
    QTest::mouseClick(&plots, Qt::LeftButton, {}, {rect.left() + 2, rect.top() + 20});
    ASSERT_TRUE(Shown->Model().Cursor);
    EXPECT_EQ(CursorCell(0, 0), "Drehzahl");
    EXPECT_EQ(CursorCell(0, 1), "800.25 U/min");
    EXPECT_EQ(CursorCell(0, 2), "2024-01-31 08:00:00.5");
    QTest::keyClick(Shown.get(), Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(CursorCell(0, 2), "2024-01-31 08:00:01.5");
    QTest::keyClick(Shown.get(), Qt::Key_D, Qt::ControlModifier);
    QTest::keyClick(Shown.get(), Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(CursorCell(0, 5), "-1 U/min");
    EXPECT_EQ(CursorCell(0, 6), "-1 s");
    QTest::keyClick(Shown.get(), Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(CursorCell(0, 2), "2024-01-31 07:00:02.5Z");
}

TEST_F(ViewWindow, TakesTicksAwayAndSetsThem) {
    Open(Write("lauf.csv", GermanFile(100)));
    SignalTree& tree = Shown->Tree();
    tree.scrollToItem(Item(0));
    const QRect row = tree.visualItemRect(Item(0));
    const QPoint box(row.left() + 8, row.center().y());
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, box);
    EXPECT_EQ(Plotted(), "Druck | ");
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, box);
    EXPECT_EQ(Plotted(), "Druck | Drehzahl | ");
    tree.Filter("DRU");
    EXPECT_TRUE(Item(0)->isHidden());
    EXPECT_FALSE(Item(1)->isHidden());
}

// From a finding to the text and the plot, and back from the plot.
TEST_F(ViewWindow, ShowsAFindingInTheTextAndThePlot) {
    Open(Write("lauf.csv", GermanFile(100)));
    QTreeWidgetItem* refused = nullptr;
    for (QTreeWidgetItemIterator it(&Shown->Found()); *it != nullptr; ++it) {
        if ((*it)->text(0) == "line 10" && refused == nullptr) refused = *it;
    }
    ASSERT_NE(refused, nullptr);
    Shown->findChild<QDockWidget*>("findings")->raise();
    QTest::qWait(50);
    refused->parent()->setExpanded(true);
    Shown->Found().scrollToItem(refused);
    QTest::mouseClick(Shown->Found().viewport(), Qt::LeftButton, {},
                      Shown->Found().visualItemRect(refused).center());
    Wait();
    EXPECT_TRUE(Shown->FileText().textCursor().block().text().contains("defekt"))
        << Shown->FileText().textCursor().block().text().toStdString();
    Shown->Found().setCurrentItem(nullptr);
    Shown->ShowLine(60);
    Wait();
    EXPECT_TRUE(Shown->FileText().textCursor().block().text().startsWith(" 60 "))
        << Shown->FileText().textCursor().block().text().toStdString();
}

TEST_F(ViewWindow, KeepsTheLookWhenAFileIsReadAnew) {
    const QString path = Write("lauf.csv", GermanFile(100));
    Open(path);
    const TimeRange part{Shown->Model().Visible().From + 10, Shown->Model().Visible().From + 5'000'000'000};
    Shown->Model().ShowTimes(part);
    Write("lauf.csv", GermanFile(200));
    QTest::keyClick(Shown.get(), Qt::Key_F5);
    Wait();
    EXPECT_EQ(Shown->Model().Visible(), part);
    EXPECT_EQ(Item(0)->text(3), "199");
    EXPECT_EQ(Plotted(), "Drehzahl | Druck | ");
    std::filesystem::remove(Folder.NativePath("lauf.csv"));
    QTest::keyClick(Shown.get(), Qt::Key_F5);
    Wait();
    EXPECT_EQ(Plotted(), "");
    EXPECT_EQ(Shown->Tree().topLevelItem(0)->childCount(), 1);
}

// The dialog comes up over the window; OK reads the file again and keeps what is seen.
TEST_F(ViewWindow, ReadsAFileAnewByTheDialog) {
    Open(Write("lauf.csv", GermanFile(100)));
    const TimeRange part{Shown->Model().Visible().From + 10, Shown->Model().Visible().From + 5'000'000'000};
    Shown->Model().ShowTimes(part);
    bool isThere = false;
    QTimer::singleShot(300, Shown.get(), [&isThere] {
        QWidget* const dialog = QApplication::activeModalWidget();
        isThere = dialog != nullptr;
        if (isThere) QTest::keyClick(dialog, Qt::Key_Return);
    });
    QTest::keyClick(Shown.get(), Qt::Key_Comma, Qt::ControlModifier);
    Wait();
    EXPECT_TRUE(isThere);
    EXPECT_EQ(Plotted(), "Drehzahl | Druck | ") << Item(0)->text(0).toStdString();
    EXPECT_EQ(Item(0)->text(1), "U/min");
    EXPECT_EQ(Shown->Model().Visible(), part);
}

TEST_F(ViewWindow, KeepsWhatWasAssumedBesideTheFile) {
    Open(Write("lauf.csv", GermanFile(100)));
    EXPECT_TRUE(Shown->Assumptions().isVisible());
    QTest::keyClick(Shown.get(), Qt::Key_K, Qt::ControlModifier);
    Wait();
    EXPECT_FALSE(Shown->Assumptions().isVisible());
    EXPECT_TRUE(std::filesystem::exists(Folder.NativePath("lauf.csv.info")));
}

TEST_F(ViewWindow, WritesWhatIsShown) {
    Open(Write("lauf.csv", GermanFile(5)));
    for (const char* name : {"out.csv", "out.h5", "out.png", "out.svg", "out.pdf"}) {
        Shown->ExportTo(ToQt(Folder.Path(name)));
        Wait();
        EXPECT_GT(Folder.Read(name).size(), 60u) << name;
    }
    EXPECT_EQ(Folder.Read("out.csv").substr(0, 79),
              "Time,Drehzahl [U/min],Druck [bar]\n2024-01-31 08:00:00.5,800.25,1.5\n2024-01-31 0");
    const std::string before = Folder.Read("lauf.csv");
    Shown->ExportTo(ToQt(Folder.Path("lauf.csv")));
    Wait();
    EXPECT_EQ(Folder.Read("lauf.csv"), before);
}

// No signals, odd ones, or very many: shown or said, and the window lives on.
TEST_F(ViewWindow, OpensOddFiles) {
    std::string wide = "t";
    std::string row;
    for (int i = 0; i < 1000; ++i) {
        wide += ";s" + std::to_string(i);
        row += ";" + std::to_string(i);
    }
    const struct {
        const char* Name;
        std::string Bytes;
        int Rows;
    } cases[] = {
        {"empty.csv", "", 1},
        {"broken.csv", std::string(3000, '\0'), 1},
        {"one.csv", "time,a\n2024-01-31 08:00:00,1\n", 1},
        {"odd.csv",
         "time,a,b\n0.0,inf,\xD7\xA9\xD7\x9C\xE2\x80\xAE\n0.1,nan,\xF0\x9F\x98\x80\n0.2,-inf,x\n0.3,1,y\n",
         2},
        {"wide.csv", wide + "\n0" + row + "\n1" + row + "\n2" + row + "\n", 1000},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.Name);
        Open(Write(test.Name, test.Bytes));
        QTreeWidgetItem* const file = Shown->Tree().topLevelItem(Shown->Tree().topLevelItemCount() - 1);
        EXPECT_EQ(file->childCount(), test.Rows);
        Shown->Close(ToQt(Folder.Path(test.Name)));
        EXPECT_TRUE(Shown->Model().IsEmpty());
    }
    Shown->Open("/no/such/file.csv");
    Wait();
    EXPECT_EQ(Shown->Tree().topLevelItemCount(), 1);
}

// A file that takes a while: the window stays alive, and what was read before the end is shown.
TEST_F(ViewWindow, CancelsReadingAndShowsWhatIsThere) {
    WriteLong("long.csv", 1'500'000);
    SlowDisk disk(MostOfIt);
    Shown->Open(ToQt(Folder.Path("long.csv")));
    const auto hasBegun = [this] { return Shown->Tree().topLevelItemCount() == 1 && Item(0) != nullptr; };
    EXPECT_TRUE(QTest::qWaitFor(hasBegun, Longest));
    Shown->CancelReading();
    disk.LetGo();
    Wait();
    ASSERT_NE(Item(0), nullptr);
    EXPECT_EQ(Item(0)->text(0), "a");
    EXPECT_NE(Item(0)->text(3), "0");
}

// Plots fill while a file is read; the time axis grows until the user zooms.
TEST_F(ViewWindow, PlotsWhatIsReadSoFar) {
    WriteLong("long.csv", 1'500'000);
    SlowDisk disk(MostOfIt);
    Shown->Open(ToQt(Folder.Path("long.csv")));
    const auto isPlotted = [this] { return !Shown->Model().IsEmpty(); };
    EXPECT_TRUE(QTest::qWaitFor(isPlotted, Longest)) << "plots come at the end only";
    EXPECT_EQ(Plotted(), "a | b | ");
    const TimeRange first = Shown->Model().Visible();
    const auto hasGrown = [&] { return Shown->Model().Visible().To > first.To; };
    EXPECT_TRUE(QTest::qWaitFor(hasGrown, Longest));
    const QRect rect = Shown->Plots().PlotRect();
    QWheelEvent wheel(rect.center(), Shown->Plots().mapToGlobal(rect.center()), {}, {0, 240}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&Shown->Plots(), &wheel);
    const TimeRange zoomed = Shown->Model().Visible();
    disk.LetGo();
    Wait();
    EXPECT_EQ(Shown->Model().Visible(), zoomed);
    EXPECT_EQ(Plotted(), "a | b | ");
    EXPECT_EQ(Item(0)->checkState(0), Qt::Checked);
    QTest::keyClick(Shown.get(), Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(Shown->Model().Visible(), Shown->Model().Whole());
    EXPECT_EQ(Shown->Model().Panes()[0].Signals[0]->Count(), 1'500'000u);
}

// The plots of a file that is read anew stand for what is read of it so far, in the tree too.
TEST_F(ViewWindow, PlotsWhatIsReadAnew) {
    WriteLong("long.csv", 1'500'000);
    Open(ToQt(Folder.Path("long.csv")));
    const auto samples = [this] { return Shown->Model().Panes()[0].Signals[0]->Count(); };
    SlowDisk disk(MostOfIt);
    QTest::keyClick(Shown.get(), Qt::Key_F5);
    EXPECT_TRUE(QTest::qWaitFor([&] { return samples() < 1'500'000; }, Longest));
    Item(1)->setCheckState(0, Qt::Unchecked);
    EXPECT_EQ(Plotted(), "a | ");
    disk.LetGo();
    Wait();
    EXPECT_EQ(Plotted(), "a | ");
    EXPECT_EQ(samples(), 1'500'000u);
    EXPECT_EQ(Item(1)->checkState(0), Qt::Unchecked);
}

// New lines come into the plots by themselves, the visible end goes along, and a zoom away from it stays.
TEST_F(ViewWindow, FollowsAFileThatGrows) {
    Open(Write("lauf.csv", GermanFile(100)));
    QTest::keyClick(Shown.get(), Qt::Key_L, Qt::ControlModifier);
    const auto grow = [this](int rows) {
        Write("lauf.csv", GermanFile(rows));
        const QString wanted = QString::number(rows - 1);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Item(0)->text(3) == wanted; }, Longest))
            << Item(0)->text(3).toStdString();
        Wait();
    };
    grow(150);
    EXPECT_EQ(Shown->Model().Visible(), Shown->Model().Whole());
    EXPECT_EQ(Plotted(), "Drehzahl | Druck | ");
    const TimeRange whole = Shown->Model().Whole();
    const TimeRange end{whole.From + 100'000'000'000, whole.To};
    Shown->Model().ShowTimes(end);
    grow(200);
    EXPECT_EQ(Shown->Model().Visible().From, end.From);
    EXPECT_EQ(Shown->Model().Visible().To, Shown->Model().Whole().To);
    const TimeRange part{whole.From + 10, whole.From + 5'000'000'000};
    Shown->Model().ShowTimes(part);
    grow(250);
    EXPECT_EQ(Shown->Model().Visible(), part);
    QTest::keyClick(Shown.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Shown->Model().Visible().From, end.From) << "following is no step";
}

TEST_F(ViewWindow, RemembersFilesAndItsLayout) {
    Open(Write("lauf.csv", GermanFile(5)));
    Shown->resize(900, 650);
    Shown->Tree().header()->resizeSection(0, 77);
    auto* const list = Shown->findChild<QDockWidget*>("signals");
    Shown->resizeDocks({list}, {333}, Qt::Horizontal);
    Shown->findChild<QDockWidget*>("text")->hide();
    Shown->close();
    Shown = std::make_unique<MainWindow>(HostModule());
    Shown->show();
    EXPECT_EQ(Shown->size(), QSize(900, 650));
    EXPECT_EQ(Shown->Tree().header()->sectionSize(0), 77);
    EXPECT_EQ(Shown->findChild<QDockWidget*>("signals")->width(), 333);
    EXPECT_FALSE(Shown->findChild<QDockWidget*>("text")->isVisible());
    EXPECT_EQ(QSettings().value("recent").toStringList(), QStringList{ToQt(Folder.Path("lauf.csv"))});
}

// Every action of the menus has a key or a letter, and no key is given twice.
TEST_F(ViewWindow, HasAKeyForEveryAction) {
    std::map<QString, QString> keys;
    for (QAction* const action : Shown->findChildren<QAction*>()) {
        if (action->shortcut().isEmpty()) continue;
        const auto [before, isNew] = keys.emplace(action->shortcut().toString(), action->text());
        EXPECT_TRUE(isNew) << action->text().toStdString() << " and " << before->second.toStdString();
    }
    EXPECT_GT(keys.size(), 25u);
}

// Not a test of its own: KELVARIN_PICTURES names the folder for the pictures of the documents.
TEST_F(ViewWindow, MakesPictures) {
    const char* const folder = std::getenv("KELVARIN_PICTURES");
    if (folder == nullptr) GTEST_SKIP() << "KELVARIN_PICTURES is not set";
    UseTexts("de");
    Shown = std::make_unique<MainWindow>(HostModule());
    Shown->resize(1280, 860);
    Shown->show();
    Open(QString(KELVARIN_TEST_DATA) + "/../../examples/pruefstand.csv");
    MainWindow& window = *Shown;
    for (const int row : {4, 5}) Item(row)->setCheckState(0, Qt::Checked);
    QTest::qWait(100);
    const QRect rect = window.Plots().PlotRect();
    QTest::mouseClick(&window.Plots(), Qt::LeftButton, {}, {rect.left() + rect.width() / 4, rect.top() + 20});
    QTest::mouseClick(&window.Plots(), Qt::LeftButton, Qt::ShiftModifier,
                      {rect.left() + rect.width() / 2, rect.top() + 20});
    QTest::qWait(300);
    window.grab().save(QString(folder) + "/view-signals.png");
    window.ShowLine(40);
    Wait();
    window.findChild<QDockWidget*>("findings")->raise();
    QTest::qWait(300);
    window.grab().save(QString(folder) + "/view-text.png");
}

}  // namespace window_tests
