#include "view/window/MainWindow.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QHeaderView>
#include <QMimeData>
#include <QSettings>
#include <QStatusBar>
#include <QVBoxLayout>

#include "host/language/Phrase.h"
#include "view/dialog/QtText.h"
#include "view/model/Choice.h"

namespace kelvarin::view {
namespace {
QString Titled(const std::string& text) {
    return QString::fromStdString(text);
}
}  // namespace

MainWindow::MainWindow(const ModuleLoader& module, std::vector<ParsedSetting> settings)
    : Module(module), GivenSettings(std::move(settings)) {
    setObjectName("main");
    setWindowTitle("kelvarin-view");
    setAcceptDrops(true);
    resize(1200, 800);
    BuildLayout();
    BuildMenus();
    Connect();
    const QSettings state;
    Recent = state.value("recent").toStringList();
    ShowRecent();
    restoreGeometry(state.value("geometry").toByteArray());
    restoreState(state.value("state").toByteArray());
    Signals->header()->restoreState(state.value("columns").toByteArray());
    ChangeTimer.start(1000);
}

MainWindow::~MainWindow() = default;

QDockWidget* MainWindow::AddDock(const char* name, const QString& title, QWidget* content,
                                 Qt::DockWidgetArea area) {
    auto* const dock = new QDockWidget(title, this);
    dock->setObjectName(name);
    dock->setWidget(content);
    addDockWidget(area, dock);
    return dock;
}

void MainWindow::BuildLayout() {
    auto* const middle = new QWidget;
    auto* const column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(Assumed = new AssumptionBar);
    column->addWidget(Progress = new ReadingBar);
    column->addWidget(Area = new PlotArea(Plotted), 1);
    setCentralWidget(middle);
    auto* const left = new QWidget;
    auto* const list = new QVBoxLayout(left);
    list->setContentsMargins(0, 0, 0, 0);
    list->addWidget(FilterField = new QLineEdit);
    list->addWidget(Signals = new SignalTree, 1);
    FilterField->setPlaceholderText(Titled(Phrase("Filter signals")));
    FilterField->setClearButtonEnabled(true);
    FilterField->setAcceptDrops(false);  // a file is opened wherever it is dropped
    BuildDocks(left);
    statusBar();
}

void MainWindow::BuildDocks(QWidget* left) {
    QDockWidget* const files = AddDock("signals", Titled(Phrase("Signals")), left, Qt::LeftDockWidgetArea);
    QDockWidget* const cursors =
        AddDock("cursors", Titled(Phrase("Cursors")), Values = new CursorTable, Qt::BottomDockWidgetArea);
    QDockWidget* const findings = AddDock("findings", Titled(Phrase("Findings")), Findings = new FindingsView,
                                          Qt::BottomDockWidgetArea);
    QDockWidget* const statistics = AddDock("statistics", Titled(Phrase("Statistics")),
                                            Summary = new StatisticsView, Qt::BottomDockWidgetArea);
    QDockWidget* const cross =
        AddDock("cross", Titled(Phrase("One over another")), Cross = new CrossView, Qt::BottomDockWidgetArea);
    QDockWidget* const text = AddDock("text", Titled(Phrase("Text of the file")), Text = new FileTextView,
                                      Qt::BottomDockWidgetArea);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    tabifyDockWidget(cursors, statistics);
    tabifyDockWidget(statistics, cross);
    tabifyDockWidget(cross, findings);
    cursors->raise();
    resizeDocks({cursors, text}, {190, 190}, Qt::Vertical);
    resizeDocks({cursors, text}, {450, 350}, Qt::Horizontal);
    resizeDocks({files}, {490}, Qt::Horizontal);
    StatisticsFollower = new LookFollower(*statistics, *Area, [this] { CountStatistics(); });
    CrossFollower = new LookFollower(*cross, *Area, [this] { FollowCross(); });
}

void MainWindow::Connect() {
    Area->OnLookChanged = [this] { ShowLook(); };
    Area->OnCursorChanged = [this] { ShowCursors(); };
    Area->OnDropped = [this](const QByteArray&, std::size_t pane) {
        Plotted.Gather(Signals->Selected(), pane);
        PlotLook();
    };
    Signals->OnTicked = [this](const SignalPointer& signal, bool isOn) {
        if (isOn) {
            Plotted.Add(signal, PaneFor(Plotted, *signal));
        } else {
            Plotted.Remove(*signal);
        }
        PlotLook();
    };
    Cross->OnChosen = [this] { FollowCross(); };
    Progress->OnCancel = [this] { CancelReading(); };
    Assumed->OnChange = [this] { ChangeSettings(); };
    Assumed->OnKeep = [this] { KeepBeside(); };
    Findings->OnLine = [this](std::uint64_t line) { ShowLine(line); };
    Text->OnLine = [this](std::uint64_t line) {
        ShowLine(line);
        Findings->SelectLine(line);
    };
    QObject::connect(FilterField, &QLineEdit::textChanged, this,
                     [this](const QString& text) { Signals->Filter(text); });
    QObject::connect(Signals, &QTreeWidget::currentItemChanged, this, [this] { ShowCurrent(); });
    QObject::connect(&ChangeTimer, &QTimer::timeout, this, [this] { LookForChanges(); });
}

void MainWindow::ShowDock(const char* name) {
    auto* const dock = findChild<QDockWidget*>(name);
    dock->show();
    dock->raise();
}

void MainWindow::PlotLook() {
    // The signals may have gone.
    CountedParts.clear();
    Crossed.reset();
    Cross->Offer(Plotted);
    // Signals that are read anew may lie at other times.
    const TimeRange& seen = Plotted.Visible();
    const TimeRange whole = Plotted.Whole();
    if (!Plotted.IsEmpty() && (whole.To <= seen.From || seen.To <= whole.From)) Plotted.FitAll();
    Area->Refresh();
    Signals->ShowTicks(Plotted);
    Values->Show(Plotted);
}

void MainWindow::ShowLook() {
    Area->ShowLook();
}

// The finding and the line of the cursor's sample are shown too.
void MainWindow::ShowCursors() {
    Area->ShowCursors();
    Values->Show(Plotted);
    StatisticsFollower->Await();
    CrossFollower->Await();
    const OpenFile* const file = Current();
    if (!Plotted.Cursor || file == nullptr || file->Data == nullptr || file->Data->Signals.empty()) return;
    const ImportedFile& shown = *file->Data;
    const std::uint64_t rows = shown.Signals.front()->Times().Index().RowsBefore(*Plotted.Cursor + 1);
    if (rows == 0 || rows > shown.Lines.Rows()) return;
    const std::uint64_t line = shown.Lines.LineOf(rows - 1);
    Findings->SelectLine(line);
    ShowText(line);
    Tell(Titled(Phrase("line {}", line)));
}

void MainWindow::SetClock(ClockStyle style) {
    Plotted.Times.Style = style;
    const OpenFile* const file = Current();
    const bool hasStart = file != nullptr && file->IsRelative;
    Plotted.Times.Start = hasStart ? ClockFor(true).Start : Plotted.Whole().From;
    Area->ShowLook();
    Values->Show(Plotted);
}

void MainWindow::MoveCursor(bool forward) {
    Plotted.Cursor = Plotted.NextSample(forward);
    const TimeRange& range = Plotted.Visible();
    if (*Plotted.Cursor < range.From || *Plotted.Cursor > range.To) {
        Plotted.Pan((range.OffsetOf(*Plotted.Cursor)) / range.Length() - 0.5);
        ShowLook();
    }
    ShowCursors();
}

void MainWindow::Tell(const QString& text) const {
    statusBar()->showMessage(ShownText(text.toStdString()));
}

void MainWindow::closeEvent(QCloseEvent* event) {
    QSettings state;
    state.setValue("geometry", saveGeometry());
    state.setValue("state", saveState());
    state.setValue("columns", Signals->header()->saveState());
    Queue.Cancel();
    QMainWindow::closeEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile()) Open(url.toLocalFile());
    }
    event->acceptProposedAction();
}
}  // namespace kelvarin::view
