// Reading files: what is open, what of it is shown, and what becomes of it when it changes.
#include <QDateTime>
#include <QStatusBar>
#include <algorithm>
#include <mutex>
#include <utility>

#include "host/FileReading.h"
#include "host/HostSession.h"
#include "host/language/Phrase.h"
#include "view/dialog/QtText.h"
#include "view/model/Choice.h"
#include "view/window/MainWindow.h"

namespace kelvarin::view {
namespace {
constexpr std::size_t FirstPlotted = 4;

// Progress comes on other threads and faster than it can be shown: the latest counts.
class LatestProgress : public std::enable_shared_from_this<LatestProgress> {
  public:
    LatestProgress(QObject* receiver, std::function<void(const ImportProgress&)> show)
        : Receiver(receiver), Show(std::move(show)) {}

    void Take(const ImportProgress& progress) {
        const std::lock_guard lock(Mutex);
        Latest = progress;
        if (IsPosted) return;
        IsPosted = true;
        QMetaObject::invokeMethod(
            Receiver, [self = shared_from_this()] { self->Deliver(); }, Qt::QueuedConnection);
    }

  private:
    void Deliver() {
        ImportProgress progress;
        {
            const std::lock_guard lock(Mutex);
            progress = std::move(Latest);
            IsPosted = false;
        }
        Show(progress);
    }

    QObject* const Receiver;
    const std::function<void(const ImportProgress&)> Show;
    std::mutex Mutex;
    ImportProgress Latest;
    bool IsPosted = false;
};
}  // namespace

MainWindow::OpenFile* MainWindow::FileAt(const QString& path) {
    const auto found =
        std::find_if(Files.begin(), Files.end(), [&](const auto& file) { return file->Path == path; });
    return found == Files.end() ? nullptr : found->get();
}

MainWindow::OpenFile* MainWindow::Current() {
    return FileAt(Signals->CurrentPath());
}

void MainWindow::Later(WorkQueue::Work work, std::function<void()> done) {
    ++Awaited;
    Queue.Add([this, work = std::move(work), done = std::move(done)](const std::atomic<bool>& cancel) {
        work(cancel);
        const auto end = [this, done] {
            --Awaited;
            if (Awaited == 0) Progress->hide();
            done();
        };
        QMetaObject::invokeMethod(this, end, Qt::QueuedConnection);
    });
}

void MainWindow::Open(const QString& path) {
    const QString whole = QFileInfo(path).absoluteFilePath();
    OpenFile* file = FileAt(whole);
    if (file == nullptr) {
        Files.push_back(std::make_unique<OpenFile>());
        file = Files.back().get();
        file->Path = whole;
        file->Settings = GivenSettings;
    }
    AddRecent(whole);
    Read(*file);
}

void MainWindow::Read(OpenFile& file, bool hasGrown) {
    const QFileInfo info(file.Path);
    file.Size = info.size();
    file.Modified = info.lastModified();
    file.IsTold = false;
    const QString path = file.Path;
    const auto progress = std::make_shared<LatestProgress>(
        this, [this, path](const ImportProgress& now) { ShowGrowing(path, now); });
    Progress->Begin(info.fileName(), static_cast<std::uint64_t>(file.Size));
    const auto result = std::make_shared<std::shared_ptr<const ImportedFile>>();
    const auto before = hasGrown && file.Data != nullptr ? file.Data->Next : nullptr;
    const auto read = [this, path, result, progress, before, hasGrown, settings = file.Settings,
                       plots = PlotsOf(file)](const std::atomic<bool>& cancel) {
        ImportOrder order{FromQt(path), settings};
        order.Plots = plots;
        order.HasGrown = hasGrown;
        order.Before = before;
        order.Cancel = &cancel;
        order.OnProgress = [progress](const ImportProgress& now) { progress->Take(now); };
        try {
            *result = std::make_shared<const ImportedFile>(ImportFile(Module, order));
        } catch (const std::bad_alloc&) {
            ImportedFile failed;
            failed.Path = order.Path;
            failed.Failure = Phrase("not enough memory");
            *result = std::make_shared<const ImportedFile>(std::move(failed));
        }
    };
    Later(read, [this, result] { TakeFile(*result); });
}

// Those that will be plotted once the file is read.
WantedPlots MainWindow::PlotsOf(const OpenFile& file) const {
    WantedPlots wanted;
    if (file.Data == nullptr && Plotted.IsEmpty()) wanted.First = FirstPlotted;
    for (const SignalPointer& signal : file.Signals) {
        if (Plotted.Has(*signal)) wanted.Named.push_back(signal->Name());
    }
    return wanted;
}

void MainWindow::ShowGrowing(const QString& path, const ImportProgress& now) {
    Progress->Show(now);
    OpenFile* const file = FileAt(path);
    if (file == nullptr) return;  // closed meanwhile
    Signals->ShowGrowing(path, now.Signals);
    if (now.Plots.empty()) return;
    file->IsRelative = now.IsRelative;
    if (!file->Signals.empty()) {
        for (const SignalPointer& signal : now.Plots) {
            const auto same =
                std::find_if(file->Signals.begin(), file->Signals.end(),
                             [&](const SignalPointer& before) { return before->Name() == signal->Name(); });
            if (same != file->Signals.end()) Replace(*same, signal);
        }
    } else if (Plotted.IsEmpty()) {
        Plotted.Times = ClockFor(now.IsRelative);
        PlotAll(Plotted, now.Plots);
        file->Signals = now.Plots;
    }
    Area->Refresh();
    Values->Show(Plotted);
}

void MainWindow::Replace(SignalPointer& old, SignalPointer signal) {
    Plotted.Replace(*old, signal, Follow->isChecked());
    Signals->Replace(*old, signal);
    old = std::move(signal);
}

void MainWindow::TakeFile(std::shared_ptr<const ImportedFile> anew) {
    OpenFile* const file = FileAt(ToQt(anew->Path));
    if (file == nullptr) return;  // closed meanwhile
    const bool isFirst = Plotted.IsEmpty() && file->Data == nullptr && !anew->Signals.empty();
    KeepLook(*file, *anew);
    std::shared_ptr<const ImportedFile> old = std::exchange(file->Data, anew);
    file->Signals = anew->Signals;
    file->IsRelative = anew->IsRelative;
    if (isFirst) {
        Plotted.Times = ClockFor(anew->IsRelative);
        PlotAll(Plotted, FirstSignals(anew->Signals, FirstPlotted));
    }
    Signals->ShowFile(anew, Plotted);
    PlotLook();
    ShowCurrent();
    FreeLater(std::move(old));
    const QString name = QFileInfo(file->Path).fileName();
    if (!anew->Failure.empty()) {
        Tell(name + ": " + InWindow(anew->Failure));
    } else {
        Tell(name + ": " + InWindow(Phrase("{} signals, {} lines", anew->Signals.size(), anew->LinesRead)) +
             (anew->IsInterrupted ? " " + InWindow(Phrase("(read in part)")) : QString()));
    }
}

// Signals of the same name take the place of those that were there before.
void MainWindow::KeepLook(const OpenFile& file, const ImportedFile& anew) {
    for (const SignalPointer& before : file.Signals) {
        if (!Plotted.Has(*before)) continue;
        const auto same = std::find_if(anew.Signals.begin(), anew.Signals.end(),
                                       [&](const auto& signal) { return signal->Name() == before->Name(); });
        if (same == anew.Signals.end()) {
            Plotted.Remove(*before);
        } else {
            Plotted.Replace(*before, *same, Follow->isChecked());
        }
    }
}

void MainWindow::Close(const QString& path) {
    OpenFile* const file = FileAt(path);
    if (file == nullptr) return;
    for (const SignalPointer& signal : file->Signals) Plotted.Remove(*signal);
    Signals->RemoveFile(path);
    std::shared_ptr<const ImportedFile> old = std::move(file->Data);
    std::erase_if(Files, [&](const auto& other) { return other.get() == file; });
    PlotLook();
    ShowCurrent();
    FreeLater(std::move(old));
}

// Gibibytes that are given back to the system take longer than a window may stand still.
void MainWindow::FreeLater(std::shared_ptr<const ImportedFile> file) {
    if (file != nullptr) Queue.Add([own = std::move(file)](const auto&) mutable { own.reset(); });
}

void MainWindow::ShowCurrent() {
    const OpenFile* const file = Current();
    setWindowTitle(file == nullptr ? "kelvarin-view" : QFileInfo(file->Path).fileName() + " – kelvarin-view");
    const std::shared_ptr<const ImportedFile> shown = file == nullptr ? nullptr : file->Data;
    if (shown == InFront) return;
    const bool isReadAnew = InFront != nullptr && shown != nullptr && InFront->Path == shown->Path;
    InFront = shown;
    Assumed->Show(shown.get());
    Findings->Show(shown.get());
    Text->Show({}, 0);
    if (shown != nullptr) ShowText(isReadAnew ? WantedLine.load() : 1);
}

void MainWindow::ShowLine(std::uint64_t line) {
    const OpenFile* const file = Current();
    if (file == nullptr || file->Data == nullptr) return;
    const std::shared_ptr<const ImportedFile> shown = file->Data;
    const std::optional<std::uint64_t> row = shown->Lines.RowAt(line);
    const bool isPlotted =
        row && !shown->Signals.empty() && *row < shown->Signals.front()->Times().Index().Count();
    if (isPlotted) {
        const std::int64_t time = shown->Signals.front()->Times().Index().TimeAt(*row);
        const TimeRange& range = Plotted.Visible();
        if (!Plotted.IsEmpty() && (time < range.From || time > range.To)) {
            Plotted.BeginMovement();
            Plotted.Pan(range.OffsetOf(time) / range.Length() - 0.5);
            Area->ShowLook();
        }
        Area->Mark(time);
    }
    ShowText(line);
}

void MainWindow::ShowText(std::uint64_t line) {
    constexpr std::uint64_t Before = 100;
    constexpr std::size_t MostShown = 300;
    WantedLine = line;
    if (Text->Mark(line)) return;
    const OpenFile* const file = Current();
    const std::shared_ptr<const ImportedFile> shown = file->Data;
    const auto lines = std::make_shared<std::vector<FileLine>>();
    const std::uint64_t first = line > Before ? line - Before : 1;
    const QString path = file->Path;
    const auto read = [this, line, shown, lines, first](const std::atomic<bool>&) {
        if (line == WantedLine) *lines = LinesOf(shown->Path, shown->Format, first, MostShown);
    };
    Later(read, [this, path, lines, line] {
        const bool isWanted = line == WantedLine && Current() != nullptr && Current()->Path == path;
        if (isWanted) Text->Show(*lines, line);
    });
}

// A file that is followed is read again when nothing else is done; of another it is said once.
void MainWindow::LookForChanges() {
    if (IsBusy()) return;
    for (const auto& file : Files) {
        const QFileInfo info(file->Path);
        const bool isGone = !info.exists();
        if (!isGone && info.size() == file->Size && info.lastModified() == file->Modified) continue;
        if (!isGone && Follow->isChecked()) {
            Read(*file, info.size() > file->Size);
            return;
        }
        if (file->IsTold) continue;
        file->IsTold = true;
        Tell(InWindow(isGone ? Phrase("{} is no longer there", info.fileName().toStdString())
                             : Phrase("{} has changed; F5 reads it again", info.fileName().toStdString())));
    }
}
}  // namespace kelvarin::view
