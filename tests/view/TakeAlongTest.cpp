// What leaves the window: printed pages and the clipboard.
#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QMimeData>
#include <QPrinter>
#include <QTimer>

#include "view/SignalKit.h"
#include "view/WindowKit.h"
#include "view/plot/Picture.h"

namespace window_tests {

using view_tests::EvenTimes;
using view_tests::SignalOf;

// The painting of a PDF file's pages as its operators, uncompressed.
std::string PaintingOf(const std::string& pdf) {
    std::string painting;
    const std::string start = ">>\nstream\n";
    for (std::size_t at = 0; (at = pdf.find(start, at)) != std::string::npos; ++at) {
        const std::size_t begin = at + start.size();
        const std::size_t end = pdf.find("endstream", begin);
        if (end == std::string::npos) break;
        if (pdf[begin] != 'x') continue;  // not packed
        // Qt expects the size in front; it is a guess, and a small one is corrected.
        QByteArray packed("\0\0\1\0", 4);
        packed.append(pdf.data() + begin, static_cast<qsizetype>(end - begin));
        painting += qUncompress(packed).toStdString();
        at = end;
    }
    return painting;
}

// A page of the printer's layout with everything in it, dark on white in every scheme.
TEST(Printing, FillsThePageInDarkInk) {
    const QPalette before = QApplication::palette();
    const Workdir folder;
    const struct {
        const char* Name;
        QPageLayout::Orientation Orientation;
        bool IsDark;
    } cases[] = {{"wide.pdf", QPageLayout::Landscape, false},
                 {"high.pdf", QPageLayout::Portrait, false},
                 {"dark.pdf", QPageLayout::Landscape, true}};
    std::map<std::string, std::string> paintings;
    for (const auto& test : cases) {
        SCOPED_TRACE(test.Name);
        if (test.IsDark) QApplication::setPalette(QPalette(QColor(40, 40, 40)));
        PlotModel model;
        model.Add(SignalOf(EvenTimes(3, 1'000'000'000), {1, 3, 2}), 0);
        model.Cursor = 1'500'000'000;
        QPrinter printer;
        printer.setOutputFileName(ToQt(folder.Path(test.Name)));
        printer.setPageOrientation(test.Orientation);
        printer.setPageSize(QPageSize(QPageSize::A4));
        PrintPlots(printer, model, {800, 400});
        const std::string pdf = folder.Read(test.Name);
        const bool isWide = test.Orientation == QPageLayout::Landscape;
        EXPECT_NE(pdf.find(isWide ? "/MediaBox [0 0 842" : "/MediaBox [0 0 595"), std::string::npos);
        EXPECT_NE(pdf.find("/Count 1"), std::string::npos);
        paintings[test.Name] = PaintingOf(pdf);
        EXPECT_GT(paintings[test.Name].size(), 2000u);
    }
    QApplication::setPalette(before);
    EXPECT_EQ(paintings["wide.pdf"], paintings["dark.pdf"]);
}

// By the menu's key and the dialog of the system, which can print into a file.
TEST_F(ViewWindow, PrintsIntoAFile) {
    Open(Write("lauf.csv", GermanFile(20)));
    bool isThere = false;
    QTimer::singleShot(300, Shown.get(), [&] {
        QWidget* const dialog = QApplication::activeModalWidget();
        auto* const name = dialog == nullptr ? nullptr : dialog->findChild<QLineEdit*>("filename");
        isThere = name != nullptr;
        if (isThere) name->setText(ToQt(Folder.Path("seite.pdf")));
        // A question that comes up instead would wait for ever.
        QTimer::singleShot(2000, dialog, [] {
            while (QWidget* const front = QApplication::activeModalWidget()) front->close();
        });
        QTest::keyClick(dialog, isThere ? Qt::Key_Return : Qt::Key_Escape);
    });
    QTest::keyClick(Shown.get(), Qt::Key_P, Qt::ControlModifier);
    EXPECT_TRUE(isThere);
    EXPECT_EQ(Folder.Read("seite.pdf").substr(0, 5), "%PDF-");
}

// What has the keys is copied: the plots as a picture with their cursors, rows of tables as text.
TEST_F(ViewWindow, CopiesWhatHasTheKeys) {
    Open(Write("lauf.csv", GermanFile(100)));
    PlotArea& plots = Shown->Plots();
    const QRect rect = plots.PlotRect();
    QTest::mouseClick(&plots, Qt::LeftButton, {}, {rect.left() + 2, rect.top() + 20});
    const QClipboard& clipboard = *QApplication::clipboard();
    QTest::keyClick(&plots, Qt::Key_C, Qt::ControlModifier);
    const QImage picture = clipboard.image();
    EXPECT_EQ(picture.size(), plots.size() * 2);
    EXPECT_EQ(picture.pixelColor(2 * (rect.left() + 2), 2 * (rect.top() + 20)),
              plots.palette().color(QPalette::Text))
        << "the cursor is in the picture";

    CursorTable& table = Shown->Cursors();
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualItemRect(table.item(0, 0)).center());
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard.text(), "Drehzahl");
    QTest::keyClick(&table, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard.text().toStdString(),
              "Drehzahl\t800.25 U/min\t2024-01-31 08:00:00.5\t\t\t\t\n"
              "Druck\t1.5 bar\t2024-01-31 08:00:00.5\t\t\t\t");

    Shown->findChild<QDockWidget*>("findings")->raise();
    QTest::qWait(50);
    FindingsView& found = Shown->Found();
    QTest::mouseClick(found.viewport(), Qt::LeftButton, {},
                      found.visualItemRect(found.topLevelItem(0)).center());
    QTest::keyClick(&found, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard.text(), found.topLevelItem(0)->text(0));
}

}  // namespace window_tests
