// The menus and what their actions do.
#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QMenuBar>
#include <QPrintDialog>
#include <QPrinter>
#include <QSettings>
#include <algorithm>

#include "host/language/Phrase.h"
#include "host/store/SampleFile.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/File.h"
#include "platform/framework/ReplacingFile.h"
#include "platform/framework/Text.h"
#include "view/dialog/QtText.h"
#include "view/model/Export.h"
#include "view/plot/Picture.h"
#include "view/window/MainWindow.h"
#include "view/window/RangeDialog.h"

namespace kelvarin::view {
namespace {
constexpr qsizetype MostRecent = 10;

QString InMenu(const std::string& text) {
    return QString::fromStdString(text);
}

// Empty, or why the bytes could not be written.
std::string WriteBytes(const QString& path, const std::string& bytes) {
    try {
        ReplaceFile(FromQt(path), bytes);
    } catch (CFileException* failure) {
        std::string reason = Utf16ToUtf8(DescribeFileError(*failure));
        failure->Delete();
        return reason;
    }
    return {};
}
}  // namespace

QAction* MainWindow::AddAction(QMenu* menu, const std::string& text, const QKeySequence& key,
                               std::function<void()> act) {
    QAction* const action = menu->addAction(InMenu(text));
    action->setShortcut(key);
    QObject::connect(action, &QAction::triggered, this, [act = std::move(act)] { act(); });
    return action;
}

void MainWindow::BuildMenus() {
    BuildFileMenu();
    BuildLookMenu();
    BuildCursorMenu();
    QMenu* const windows = createPopupMenu();
    windows->setTitle(InMenu(Phrase("&Windows")));
    menuBar()->addMenu(windows);
}

void MainWindow::BuildFileMenu() {
    QMenu* const menu = menuBar()->addMenu(InMenu(Phrase("&File")));
    AddAction(menu, Phrase("&Open..."), QKeySequence::Open, [this] { AskOpen(); });
    RecentMenu = menu->addMenu(InMenu(Phrase("Open &recent")));
    AddAction(menu, Phrase("Read &again"), Qt::Key_F5, [this] {
        if (OpenFile* const file = Current()) Read(*file);
    });
    Follow = AddAction(menu, Phrase("&Follow files that grow"), Qt::CTRL | Qt::Key_L, [] {});
    Follow->setCheckable(true);
    AddAction(menu, Phrase("&Settings..."), Qt::CTRL | Qt::Key_Comma, [this] { ChangeSettings(); });
    AddAction(menu, Phrase("&Keep what was assumed beside the file"), Qt::CTRL | Qt::Key_K,
              [this] { KeepBeside(); });
    AddAction(menu, Phrase("&Close the file"), QKeySequence::Close,
              [this] { Close(Signals->CurrentPath()); });
    menu->addSeparator();
    BuildExportMenu();
    AddAction(menu, Phrase("Copy the pict&ure"), QKeySequence::Copy, [this] { CopyPicture(); });
    AddAction(menu, Phrase("&Print..."), QKeySequence::Print, [this] { Print(); });
    menu->addSeparator();
    AddAction(menu, Phrase("&Quit"), QKeySequence::Quit, [this] { close(); });
}

void MainWindow::BuildExportMenu() {
    QMenu* const menu = menuBar()->actions().back()->menu()->addMenu(InMenu(Phrase("&Export")));
    QAction* const hdf5 = AddAction(menu, Phrase("All samples as &HDF5..."), Qt::CTRL | Qt::SHIFT | Qt::Key_H,
                                    [this] { AskExport("h5"); });
    hdf5->setEnabled(store::HasSampleFiles());
    AddAction(menu, Phrase("What is shown as &CSV..."), Qt::CTRL | Qt::SHIFT | Qt::Key_C,
              [this] { AskExport("csv"); });
    AddAction(menu, Phrase("Picture as &PNG..."), QKeySequence::Save, [this] { AskExport("png"); });
    AddAction(menu, Phrase("Picture as &SVG..."), Qt::CTRL | Qt::SHIFT | Qt::Key_S,
              [this] { AskExport("svg"); });
    AddAction(menu, Phrase("Picture as P&DF..."), Qt::CTRL | Qt::SHIFT | Qt::Key_P,
              [this] { AskExport("pdf"); });
}

void MainWindow::BuildLookMenu() {
    constexpr double Closer = 0.5;
    constexpr double Aside = 0.25;
    QMenu* const menu = menuBar()->addMenu(InMenu(Phrase("&View")));
    const auto look = [this](auto change) {
        return [this, change] {
            change(Plotted);
            ShowLook();
        };
    };
    AddAction(menu, Phrase("&Fit all"), Qt::CTRL | Qt::Key_0, look([](PlotModel& model) { model.FitAll(); }));
    AddAction(menu, Phrase("Zoom &in"), QKeySequence::ZoomIn,
              look([](PlotModel& model) { model.Zoom(Closer, 0.5); }));
    AddAction(menu, Phrase("Zoom &out"), QKeySequence::ZoomOut,
              look([](PlotModel& model) { model.Zoom(1 / Closer, 0.5); }));
    AddAction(menu, Phrase("&Earlier"), Qt::ALT | Qt::Key_Left,
              look([](PlotModel& model) { model.Pan(-Aside); }));
    AddAction(menu, Phrase("&Later"), Qt::ALT | Qt::Key_Right,
              look([](PlotModel& model) { model.Pan(Aside); }));
    AddAction(menu, Phrase("&Back"), QKeySequence::Undo, look([](PlotModel& model) { model.Undo(); }));
    AddAction(menu, Phrase("&Again"), QKeySequence::Redo, look([](PlotModel& model) { model.Redo(); }));
    menu->addSeparator();
    AddAction(menu, Phrase("Val&ue ranges..."), Qt::CTRL | Qt::Key_R, [this] { AskRanges(); });
    AddAction(menu, Phrase("S&tatistics"), Qt::CTRL | Qt::Key_I, [this] { ShowDock("statistics"); });
    AddAction(menu, Phrase("&Copy the statistics"), Qt::CTRL | Qt::SHIFT | Qt::Key_I,
              [this] { CopyStatistics(); });
    AddAction(menu, Phrase("One signal o&ver another"), Qt::CTRL | Qt::Key_E, [this] { ShowDock("cross"); });
    menu->addSeparator();
    AddAction(menu, Phrase("&Plot the selected signals together"), Qt::CTRL | Qt::Key_T, [this] {
        const std::size_t pane = Plotted.Panes().size();
        for (SignalPointer& signal : Signals->Selected()) Plotted.Add(std::move(signal), pane);
        PlotLook();
    });
    AddAction(menu, Phrase("&Remove all plots"), Qt::CTRL | Qt::Key_Backspace, [this] {
        Plotted.Clear();
        PlotLook();
    });
    AddAction(menu, Phrase("Find a &signal"), QKeySequence::Find, [this] { FilterField->setFocus(); });
}

void MainWindow::BuildCursorMenu() {
    QMenu* const menu = menuBar()->addMenu(InMenu(Phrase("&Cursor")));
    AddAction(menu, Phrase("To the &next sample"), Qt::CTRL | Qt::Key_Right, [this] { MoveCursor(true); });
    AddAction(menu, Phrase("To the &previous sample"), Qt::CTRL | Qt::Key_Left,
              [this] { MoveCursor(false); });
    AddAction(menu, Phrase("&Second cursor at the first"), Qt::CTRL | Qt::Key_D, [this] {
        Plotted.Second = Plotted.Cursor;
        ShowCursors();
    });
    AddAction(menu, Phrase("&Remove cursors"), Qt::Key_Escape, [this] {
        Plotted.Cursor.reset();
        Plotted.Second.reset();
        Area->Mark({});
        ShowCursors();
    });
    menu->addSeparator();
    const struct {
        std::string Text;
        ClockStyle Style;
        Qt::Key Key;
    } clocks[] = {{Phrase("Times as in the &file"), ClockStyle::Local, Qt::Key_1},
                  {Phrase("Times with their &zone"), ClockStyle::Zoned, Qt::Key_2},
                  {Phrase("Times in &UTC"), ClockStyle::Utc, Qt::Key_3},
                  {Phrase("Times from the &start"), ClockStyle::Relative, Qt::Key_4}};
    for (const auto& clock : clocks) {
        AddAction(menu, clock.Text, Qt::CTRL | clock.Key, [this, style = clock.Style] { SetClock(style); });
    }
}

void MainWindow::AskRanges() {
    RangeDialog dialog(Plotted, *Area, this);
    if (dialog.exec() != QDialog::Accepted) return;
    dialog.Apply(Plotted);
    ShowLook();
}

void MainWindow::AddRecent(const QString& path) {
    Recent.removeAll(path);
    Recent.prepend(path);
    if (Recent.size() > MostRecent) Recent.resize(MostRecent);
    QSettings().setValue("recent", Recent);
    ShowRecent();
}

void MainWindow::ShowRecent() {
    RecentMenu->clear();
    RecentMenu->setEnabled(!Recent.isEmpty());
    for (const QString& path : Recent) {
        QAction* const action = RecentMenu->addAction(QString(path).replace(u'&', "&&"));
        QObject::connect(action, &QAction::triggered, this, [this, path] { Open(path); });
    }
}

void MainWindow::AskOpen() {
    const QString filter = InMenu(Phrase("Measurement files")) + " (*.csv *.txt *.tsv *.dat *.asc *.log);;" +
                           InMenu(Phrase("All files")) + " (*)";
    const QString folder = Recent.isEmpty() ? QString() : QFileInfo(Recent.front()).path();
    for (const QString& path : QFileDialog::getOpenFileNames(this, {}, folder, filter)) Open(path);
}

void MainWindow::AskExport(const QString& ending) {
    const OpenFile* const file = Current();
    if (file == nullptr) return;
    const QFileInfo info(file->Path);
    const QString suggestion =
        info.path() + "/" + info.completeBaseName() + (ending == "csv" ? "-shown.csv" : "." + ending);
    const QString path = QFileDialog::getSaveFileName(this, {}, suggestion, "*." + ending);
    if (path.isEmpty()) return;
    ExportTo(path.endsWith("." + ending, Qt::CaseInsensitive) ? path : path + "." + ending);
}

void MainWindow::ExportTo(const QString& path) {
    const bool isRead = std::any_of(Files.begin(), Files.end(), [&](const auto& file) {
        return QFileInfo(file->Path) == QFileInfo(path);
    });
    const auto tell = [this, path](const std::string& reason) {
        Tell(reason.empty() ? InMenu(Phrase("{} is written", path.toStdString()))
                            : InMenu(Phrase("{} can't be written: {}", path.toStdString(), reason)));
    };
    if (isRead) {
        Tell(InMenu(Phrase("{} is the file that is read", path.toStdString())));
        return;
    }
    const std::string picture = PictureEnding(path.toStdString());
    if (!picture.empty()) {
        tell(WriteBytes(path, PictureOf(*Area, picture).toStdString()));
        return;
    }
    const auto reason = std::make_shared<std::string>();
    const OpenFile* const file = Current();
    if (path.endsWith(".h5", Qt::CaseInsensitive) && file != nullptr) {
        const auto write = [this, reason, path, from = FromQt(file->Path),
                            settings = file->Settings](const std::atomic<bool>& cancel) {
            ImportOrder order{from, settings};
            order.Cancel = &cancel;
            *reason = ExportHdf5(Module, order, FromQt(path));
        };
        Later(write, [tell, reason] { tell(*reason); });
        return;
    }
    const auto write = [reason, path, model = Plotted](const std::atomic<bool>& cancel) {
        const std::string text = CsvOf(model, cancel);
        *reason = text.empty() ? Phrase("nothing is shown") : WriteBytes(path, text);
    };
    Later(write, [tell, reason] { tell(*reason); });
}

void MainWindow::CopyPicture() {
    QApplication::clipboard()->setPixmap(Area->toPixmap(Area->width(), Area->height(), 2));
}

void MainWindow::Print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted) return;
    QCPPainter painter(&printer);
    const QRectF page = printer.pageRect(QPrinter::DevicePixel);
    const double scale = std::min(page.width() / Area->width(), page.height() / Area->height());
    painter.scale(scale, scale);
    painter.setMode(QCPPainter::pmVectorized);
    painter.setMode(QCPPainter::pmNoCaching);
    Area->toPainter(&painter, Area->width(), Area->height());
}
}  // namespace kelvarin::view
