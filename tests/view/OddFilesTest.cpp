// Files that are large, wide, broken or gone: what the window shows of them, and that it answers.
#include <QAction>
#include <QPushButton>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTextBlock>
#include <QTimer>
#include <QTreeWidgetItemIterator>
#include <filesystem>
#include <fstream>
#include <random>

#include "view/SlowDisk.h"
#include "view/WindowKit.h"

namespace window_tests {

class OddFiles : public ViewWindow {
  protected:
    std::string Said() const { return Shown->statusBar()->currentMessage().toStdString(); }

    bool Await(const std::function<bool()>& isSo) const { return QTest::qWaitFor(isSo, Longest); }

    bool HasBegun() const { return Shown->Tree().topLevelItemCount() == 1 && Item(0) != nullptr; }

    // So many bytes of rows at least, by repeating some of them; the number of rows.
    std::uint64_t WriteRows(const char* name, std::uint64_t bytes) const {
        constexpr int Rows = 50'000;
        std::string block;
        for (int i = 0; i < Rows; ++i)
            block += std::to_string(i % 977) + ".5;" + std::to_string(i % 31) + ".25\n";
        std::ofstream file(Folder.NativePath(name), std::ios::binary);
        file << "speed;pressure\n";
        std::uint64_t rows = 0;
        for (std::uint64_t written = 0; written < bytes; written += block.size(), rows += Rows) file << block;
        return rows;
    }
};

// The window answers while a file is read, and shows what was read of it before Cancel was pressed.
TEST_F(OddFiles, CancelsAFileOfAGibibyte) {
    constexpr std::uint64_t Gibibyte = std::uint64_t{1} << 30;
    const std::uint64_t rows = WriteRows("large.csv", Gibibyte);
    SlowDisk disk(100 << 20);
    Shown->Open(ToQt(Folder.Path("large.csv")));
    EXPECT_TRUE(Await([this] { return HasBegun(); }));
    QTest::keyClicks(Shown->findChild<QLineEdit*>(), "press");
    EXPECT_TRUE(Item(0)->isHidden());
    EXPECT_FALSE(Item(1)->isHidden());
    QPushButton* cancel = nullptr;
    for (QPushButton* const button : Shown->findChildren<QPushButton*>()) {
        if (button->text() == "Cancel") cancel = button;
    }
    EXPECT_TRUE(cancel != nullptr && cancel->isVisible());
    QTest::mouseClick(cancel, Qt::LeftButton);
    disk.LetGo();
    Wait();
    EXPECT_FALSE(cancel->isVisible());
    EXPECT_NE(Said().find("(read in part)"), std::string::npos) << Said();
    EXPECT_EQ(Plotted(), "speed | pressure | ");
    const auto& plotted = *Shown->Model().Panes()[0].Signals[0];
    EXPECT_GT(plotted.Count(), 0u);
    EXPECT_LT(plotted.Count(), rows);
}

// What is shown stays when the file is gone, and the window says so.
TEST_F(OddFiles, KeepsWhatIsShownOfAFileThatVanishes) {
    Open(Write("lauf.csv", GermanFile(100)));
    std::filesystem::remove(Folder.NativePath("lauf.csv"));
    EXPECT_TRUE(Await([this] { return Said() == "lauf.csv is no longer there"; })) << Said();
    EXPECT_EQ(Plotted(), "Drehzahl | Druck | ");
    Shown->ShowLine(50);
    Wait();
    EXPECT_EQ(Shown->FileText().FirstLine(), 1u);
    Shown->ExportTo(ToQt(Folder.Path("out.csv")));
    Wait();
    EXPECT_EQ(Folder.Read("out.csv").substr(0, 4), "Time");
    Shown->ExportTo(ToQt(Folder.Path("out.h5")));
    Wait();
    EXPECT_NE(Said().find("out.h5 can't be written: "), std::string::npos) << Said();
    EXPECT_EQ(Folder.Names(), "out.csv settings");
    Shown->Close(ToQt(Folder.Path("lauf.csv")));
    EXPECT_EQ(Plotted(), "");
}

// A file that is removed or cut while it is read: what there is of it is shown.
TEST_F(OddFiles, ShowsWhatItCanOfAFileThatIsLostWhileItIsRead) {
    constexpr std::uint64_t Large = std::uint64_t{33} << 20;  // read by several threads
    for (const bool isCut : {false, true}) {
        SCOPED_TRACE(isCut ? "cut" : "removed");
        const std::uint64_t rows = WriteRows("large.csv", Large);
        SlowDisk disk(20 << 20);
        Shown->Open(ToQt(Folder.Path("large.csv")));
        EXPECT_TRUE(Await([this] { return HasBegun(); }));
        if (isCut) {
            std::filesystem::resize_file(Folder.NativePath("large.csv"), 1000);
        } else {
            std::filesystem::remove(Folder.NativePath("large.csv"));
        }
        disk.LetGo();
        Wait();
        EXPECT_EQ(Plotted(), "speed | pressure | ") << Said();
        ASSERT_FALSE(Shown->Model().IsEmpty());
        const std::uint64_t count = Shown->Model().Panes()[0].Signals[0]->Count();
        EXPECT_TRUE(isCut ? count > 0 && count < rows : count == rows) << count << " of " << rows;
        Shown->Close(ToQt(Folder.Path("large.csv")));
        std::filesystem::remove(Folder.NativePath("large.csv"));
    }
}

// No text, no table, no file: the window says why, and reads the next file as ever.
TEST_F(OddFiles, SaysWhyABrokenFileIsNotShown) {
    std::string noise(20'000, '\0');
    std::mt19937 random(7);
    for (char& byte : noise) byte = static_cast<char>(random());
    std::filesystem::create_directory(Folder.NativePath("folder"));
    const struct {
        const char* Name;
        std::string Bytes;
    } cases[] = {{"noise.csv", noise},
                 {"blank.csv", "\n\n\n"},
                 {"letter.txt", "Dear all,\n\nplease find attached what you asked for.\n\nRegards\n"},
                 {"folder", ""}};
    for (const auto& test : cases) {
        SCOPED_TRACE(test.Name);
        if (!test.Bytes.empty()) Write(test.Name, test.Bytes);
        Open(ToQt(Folder.Path(test.Name)));
        EXPECT_EQ(Plotted(), "");
        const std::string said = Said();
        EXPECT_EQ(said.substr(0, std::string(test.Name).size() + 2), std::string(test.Name) + ": ");
        EXPECT_EQ(Item(0)->text(0).toStdString(), said.substr(std::string(test.Name).size() + 2));
        EXPECT_FALSE(Item(0)->flags().testFlag(Qt::ItemIsUserCheckable));
        Shown->Close(ToQt(Folder.Path(test.Name)));
    }
    Open(Write("lauf.csv", GermanFile(20)));
    EXPECT_EQ(Plotted(), "Drehzahl | Druck | ");
}

// A thousand signals cost a tick, a filter and a movement no more drawing than two do.
TEST_F(OddFiles, WorksAThousandSignals) {
    std::map<int, std::string> drawn;
    for (const int count : {2, 1000}) {
        SCOPED_TRACE(count);
        std::string bytes = "time";
        for (int i = 0; i < count; ++i) bytes += ";signal " + std::to_string(i + 1);
        for (int row = 0; row < 50; ++row) {
            bytes += "\n2024-01-31 08:00:" + std::to_string(10 + row);
            for (int i = 0; i < count; ++i) bytes += ";" + std::to_string(i + row) + ".5";
        }
        Open(Write("wide.csv", bytes + "\n"));
        ASSERT_EQ(Shown->Tree().topLevelItem(0)->childCount(), count);
        QTest::qWait(20);
        const QSignalSpy drawings(&Shown->Plots(), &QCustomPlot::afterReplot);
        const auto note = [&](const char* what) {
            QTest::qWait(20);
            drawn[count] += std::string(what) + " " + std::to_string(drawings.count()) + " ";
        };
        QTest::keyClicks(Shown->findChild<QLineEdit*>(), "signal 2");
        EXPECT_FALSE(Item(1)->isHidden());
        EXPECT_TRUE(Item(0)->isHidden());
        note("filter");
        Item(0)->setCheckState(0, Qt::Unchecked);
        note("untick");
        Shown->Tree().Filter("");
        Shown->Tree().selectAll();
        QTest::keyClick(Shown.get(), Qt::Key_T, Qt::ControlModifier);
        note("together");
        EXPECT_EQ(Shown->Model().AtCursors().size(), static_cast<std::size_t>(count));
        EXPECT_EQ(Shown->Model().Panes().size(), 1u);
        QTest::keyClick(Shown.get(), Qt::Key_Plus, Qt::ControlModifier);
        note("zoom");
        Shown->Close(ToQt(Folder.Path("wide.csv")));
        QTest::qWait(20);
        Shown->findChild<QLineEdit*>()->clear();
    }
    EXPECT_EQ(drawn[1000], drawn[2]);
}

// Forty units in one plot leave it room.
TEST_F(OddFiles, PlotsManyUnitsTogether) {
    const QStringList units =
        QString(
            "V A W Hz bar Pa N Nm kg g m mm cm km s ms min h K mV kV mA kW kHz MHz mbar kPa MPa "
            "kN l ml rpm km/h m/s rad deg Ohm kJ mT dB")
            .split(' ');
    std::string bytes = "time";
    for (const QString& unit : units) bytes += ";of " + unit.toStdString() + " [" + unit.toStdString() + "]";
    for (int row = 10; row < 40; ++row) {
        bytes += "\n2024-01-31 08:00:" + std::to_string(row);
        for (int i = 0; i < units.size(); ++i) bytes += ";" + std::to_string(i + row) + ".5";
    }
    Open(Write("units.csv", bytes + "\n"));
    Shown->Tree().selectAll();
    QTest::keyClick(Shown.get(), Qt::Key_T, Qt::ControlModifier);
    QTest::qWait(20);
    ASSERT_EQ(Shown->Model().Panes().size(), 1u);
    EXPECT_EQ(Shown->Model().Panes()[0].Units().size(), static_cast<std::size_t>(units.size()));
    EXPECT_GT(Shown->Plots().PlotRect().width(), Shown->Plots().width() / 3);
}

// Texts from right to left, wide and doubled characters, marks that a screen would obey: in every place where
// a text of the file is shown.
TEST_F(OddFiles, ShowsTextsOfAllScripts) {
    const struct {
        const char* What;
        std::string Name, Text;            // in the file
        std::string ShownName, ShownText;  // in the window
    } cases[] = {
        {"from right to left", "מהירות", "שלום עולם", "מהירות", "שלום עולם"},
        {"wide", "回転数", "正常です", "回転数", "正常です"},
        {"beyond the first plane", "😀 temperature", "𝔘𝔫𝔦", "😀 temperature", "𝔘𝔫𝔦"},
        {"combined", "e\xCC\x81tat", "n\xCC\x83", "e\xCC\x81tat", "n\xCC\x83"},
        {"turned round",
         "speed\xE2\x80\xAE"
         "deeps",
         "on\xE2\x80\xAE"
         "ffo",
         "speed\\u202Edeeps", "on\\u202Effo"},
        {"controls", "speed\x1B[31m", "on\x1B[0m", "speed\\x1B[31m", "on\\x1B[0m"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.What);
        std::string bytes = "time;" + test.Name + ";state\n;°C;\n";
        for (int row = 10; row < 40; ++row) {
            bytes += "2024-01-31 08:00:" + std::to_string(row) + ";" +
                     (row == 20 ? test.Text : std::to_string(row) + ".5") + ";" + test.Text + "\n";
        }
        Open(Write("texts.csv", bytes));
        ASSERT_EQ(Shown->Tree().topLevelItem(0)->childCount(), 2);
        EXPECT_EQ(Item(0)->text(0).toStdString(), test.ShownName);
        Shown->Model().Cursor = Shown->Model().Visible().From;
        QTest::keyClick(Shown.get(), Qt::Key_Right, Qt::ControlModifier);
        EXPECT_EQ(CursorCell(0, 0), test.ShownName);
        EXPECT_EQ(CursorCell(0, 1), "11.5 °C");
        EXPECT_EQ(CursorCell(1, 1), "\"" + test.ShownText + "\"");
        bool isFound = false;
        for (QTreeWidgetItemIterator it(&Shown->Found()); *it != nullptr; ++it)
            isFound = isFound || (*it)->text(0).toStdString().find(test.ShownText) != std::string::npos;
        EXPECT_TRUE(isFound) << "the refused cell is shown as it is";
        EXPECT_EQ(Shown->FileText().document()->findBlockByNumber(0).textDirection(), Qt::LeftToRight);
        Shown->Close(ToQt(Folder.Path("texts.csv")));
    }
}

// Few samples, none, and values that are no numbers: the table says what each is.
TEST_F(OddFiles, SaysValuesThatAreNoNumbers) {
    const struct {
        const char* What;
        std::string Cells;  // of the rows, one a second
        std::string Said;   // of the last one
    } cases[] = {{"one sample", "4.5", "4.5 V"},
                 {"infinite", "1.5 inf", "inf V"},
                 {"infinite below", "1.5 -inf", "-inf V"},
                 {"not a number", "1.5 nan", "nan V"}};
    for (const auto& test : cases) {
        SCOPED_TRACE(test.What);
        std::string bytes = "time;v\n;V\n";
        std::istringstream cells(test.Cells);
        int row = 10;
        for (std::string cell; cells >> cell; ++row)
            bytes += "2024-01-31 08:00:" + std::to_string(row) + ";" + cell + "\n";
        Open(Write("odd.csv", bytes));
        EXPECT_EQ(Plotted(), "v | ") << Said();
        Shown->Model().Cursor = Shown->Model().Visible().To;
        QTest::keyClick(Shown.get(), Qt::Key_D, Qt::ControlModifier);
        EXPECT_EQ(CursorCell(0, 1), test.Said);
        Shown->Close(ToQt(Folder.Path("odd.csv")));
    }
}

}  // namespace window_tests
