// The window: files and signals at the left, plots in the middle, cursors, findings and the file's text
// below.
#pragma once

#include <QDockWidget>
#include <QFileInfo>
#include <QLineEdit>
#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "host/ModuleLoader.h"
#include "view/model/FileImport.h"
#include "view/model/PlotModel.h"
#include "view/model/WorkQueue.h"
#include "view/plot/PlotArea.h"
#include "view/window/CrossView.h"
#include "view/window/CursorTable.h"
#include "view/window/FindingsView.h"
#include "view/window/LookFollower.h"
#include "view/window/ReadingBar.h"
#include "view/window/SignalTree.h"
#include "view/window/StatisticsView.h"

namespace kelvarin::view {
class MainWindow : public QMainWindow {
  public:
    // `settings` were chosen for all files. The module outlives the window.
    explicit MainWindow(const ModuleLoader& module, std::vector<ParsedSetting> settings = {});
    ~MainWindow() override;

    // Reads a file and shows it; one that is open is read again and keeps what is seen of it.
    void Open(const QString& path);
    void Close(const QString& path);

    // True while something is read or written.
    bool IsBusy() { return !Queue.IsIdle() || Awaited != 0; }

    // Ends what is being read; what is there of it is shown.
    void CancelReading() { Queue.Cancel(); }

    // What an export writes depends on the ending of the path: h5, csv, png, svg, pdf.
    void ExportTo(const QString& path);

    // Shows a line of the current file, and marks its time in the plots.
    void ShowLine(std::uint64_t line);

    // Shows it in the text alone. A file must be read.
    void ShowText(std::uint64_t line);

    PlotModel& Model() { return Plotted; }
    PlotArea& Plots() { return *Area; }
    SignalTree& Tree() { return *Signals; }
    CursorTable& Cursors() { return *Values; }
    CrossView& Crossing() { return *Cross; }
    StatisticsView& Summaries() { return *Summary; }
    FindingsView& Found() { return *Findings; }
    FileTextView& FileText() { return *Text; }
    AssumptionBar& Assumptions() { return *Assumed; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    struct OpenFile {
        QString Path;
        std::vector<ParsedSetting> Settings;       // chosen for it
        std::shared_ptr<const ImportedFile> Data;  // null before it is read
        std::vector<SignalPointer> Signals;        // that stand for it now: while it is read those so far
        bool IsRelative = false;                   // as of ImportedFile
        qint64 Size = 0;                           // when it was read
        QDateTime Modified;
        bool IsTold = false;  // that it has changed
    };

    void BuildLayout();
    void BuildDocks(QWidget* left);
    void Connect();
    QDockWidget* AddDock(const char* name, const QString& title, QWidget* content, Qt::DockWidgetArea area);

    // WindowActions.cpp
    void BuildMenus();
    void BuildFileMenu();
    void BuildExportMenu();
    void BuildLookMenu();
    void BuildCursorMenu();
    QAction* AddAction(QMenu* menu, const std::string& text, const QKeySequence& key,
                       std::function<void()> act);
    void ShowRecent();
    void AddRecent(const QString& path);
    void AskOpen();
    void AskRanges();
    void AskExport(const QString& ending);
    void Print();
    void CopyPicture();

    // WindowFiles.cpp
    OpenFile* FileAt(const QString& path);
    OpenFile* Current();
    void Read(OpenFile& file, bool hasGrown = false);
    WantedPlots PlotsOf(const OpenFile& file) const;
    void ShowGrowing(const QString& path, const ImportProgress& now);
    void TakeFile(std::shared_ptr<const ImportedFile> anew);
    void KeepLook(const OpenFile& file, const ImportedFile& anew);
    void Replace(SignalPointer& old, SignalPointer signal);
    void FreeLater(std::shared_ptr<const ImportedFile> file);
    void ShowCurrent();
    void LookForChanges();
    void ChangeSettings();
    bool KeepInSidecar(const std::u16string& path, const SettingList& settings);
    void KeepBeside();
    // Does work on the thread of the queue, then `done` on this one.
    void Later(WorkQueue::Work work, std::function<void()> done);

    // WindowStatistics.cpp
    void CountStatistics();
    void CopyStatistics();

    // WindowCross.cpp
    void FollowCross();

    void ShowDock(const char* name);
    void PlotLook();
    void ShowLook();
    void ShowCursors();
    void SetClock(ClockStyle style);
    void MoveCursor(bool forward);
    void Tell(const QString& text) const;

    const ModuleLoader& Module;
    const std::vector<ParsedSetting> GivenSettings;
    PlotModel Plotted;
    std::vector<std::unique_ptr<OpenFile>> Files;
    std::shared_ptr<const ImportedFile> InFront;  // whose findings and text are shown
    std::atomic<std::uint64_t> WantedLine = 1;    // of the text; while it is read, that of the last wish
    QTimer ChangeTimer;
    QStringList Recent;
    QMenu* RecentMenu = nullptr;
    QAction* Follow = nullptr;
    LookFollower* StatisticsFollower = nullptr;  // owned by its dock
    bool IsCounting = false;                     // on the thread of the queue
    bool IsCopyAwaited = false;                  // to the clipboard, once they are counted
    std::vector<SignalPart> CountedParts;
    std::vector<Statistics> Counted;        // of these
    LookFollower* CrossFollower = nullptr;  // owned by its dock
    bool IsCrossing = false;                // on the thread of the queue
    std::optional<CrossOrder> Crossed;      // what is shown
    int Awaited = 0;                        // pieces of work whose end this thread hasn't seen

    // Widgets, owned by the window.
    PlotArea* Area = nullptr;
    QLineEdit* FilterField = nullptr;
    SignalTree* Signals = nullptr;
    ReadingBar* Progress = nullptr;
    AssumptionBar* Assumed = nullptr;
    CursorTable* Values = nullptr;
    StatisticsView* Summary = nullptr;
    CrossView* Cross = nullptr;
    FindingsView* Findings = nullptr;
    FileTextView* Text = nullptr;

    WorkQueue Queue;  // last: its work uses the others
};
}  // namespace kelvarin::view
