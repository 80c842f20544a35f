// Reading files: what is open, what of it is shown, and what becomes of it when it changes.
#include <QDateTime>
#include <QMessageBox>
#include <QStatusBar>
#include <algorithm>
#include <mutex>

#include "host/FileReading.h"
#include "host/HostSession.h"
#include "host/language/Phrase.h"
#include "view/dialog/QtDialogDriver.h"
#include "view/dialog/QtText.h"
#include "view/model/Choice.h"
#include "view/model/DialogChoices.h"
#include "view/window/MainWindow.h"

namespace kelvarin::view {
namespace {
constexpr std::size_t FirstPlotted = 4;

QString InWindow(const std::string& text) {
    return QString::fromStdString(text);
}

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

void MainWindow::Read(OpenFile& file) {
    const QFileInfo info(file.Path);
    file.Size = info.size();
    file.Modified = info.lastModified();
    file.IsTold = false;
    const QString path = file.Path;
    const auto progress = std::make_shared<LatestProgress>(this, [this, path](const ImportProgress& now) {
        Progress->Show(now);
        if (FileAt(path) != nullptr) Signals->ShowGrowing(path, now.Signals);
    });
    Progress->Begin(info.fileName(), static_cast<std::uint64_t>(file.Size));
    const auto result = std::make_shared<std::shared_ptr<const ImportedFile>>();
    const auto read = [this, path, result, progress,
                       settings = file.Settings](const std::atomic<bool>& cancel) {
        ImportOrder order{FromQt(path), settings};
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

void MainWindow::TakeFile(std::shared_ptr<const ImportedFile> anew) {
    OpenFile* const file = FileAt(ToQt(anew->Path));
    if (file == nullptr) return;  // closed meanwhile
    const std::shared_ptr<const ImportedFile> old = std::exchange(file->Data, anew);
    const bool isFirst = Plotted.IsEmpty();
    if (old != nullptr) KeepLook(*old, *anew);
    if (isFirst && old == nullptr && !anew->Signals.empty()) {
        Plotted.Times = ClockFor(anew->IsRelative);
        PlotAll(Plotted, FirstSignals(anew->Signals, FirstPlotted));
    }
    Signals->ShowFile(anew, Plotted);
    PlotLook();
    ShowCurrent();
    const QString name = QFileInfo(file->Path).fileName();
    if (!anew->Failure.empty()) {
        Tell(name + ": " + InWindow(anew->Failure));
    } else {
        Tell(name + ": " + InWindow(Phrase("{} signals, {} lines", anew->Signals.size(), anew->LinesRead)) +
             (anew->IsInterrupted ? " " + InWindow(Phrase("(read in part)")) : QString()));
    }
}

// Signals of the same name take the place of those that were read before.
void MainWindow::KeepLook(const ImportedFile& old, const ImportedFile& anew) {
    for (const auto& before : old.Signals) {
        if (!Plotted.Has(*before)) continue;
        const auto same = std::find_if(anew.Signals.begin(), anew.Signals.end(),
                                       [&](const auto& signal) { return signal->Name() == before->Name(); });
        if (same == anew.Signals.end()) {
            Plotted.Remove(*before);
            continue;
        }
        const bool showsEnd = Follow->isChecked() && Plotted.Visible().To >= before->Times().Range().To;
        const TimeRange visible = Plotted.Visible();
        Plotted.Replace(*before, *same);
        const std::int64_t end = (*same)->Times().Range().To;
        if (showsEnd && end > visible.To) Plotted.ShowTimes({visible.From, end});
    }
}

void MainWindow::Close(const QString& path) {
    OpenFile* const file = FileAt(path);
    if (file == nullptr) return;
    if (file->Data != nullptr) {
        for (const auto& signal : file->Data->Signals) Plotted.Remove(*signal);
    }
    Signals->RemoveFile(path);
    std::erase_if(Files, [&](const auto& other) { return other.get() == file; });
    PlotLook();
    ShowCurrent();
}

void MainWindow::ShowCurrent() {
    const OpenFile* const file = Current();
    const ImportedFile* const shown = file == nullptr ? nullptr : file->Data.get();
    Assumed->Show(shown);
    Findings->Show(shown);
    setWindowTitle(file == nullptr ? "kelvarin-view" : QFileInfo(file->Path).fileName() + " – kelvarin-view");
    if (shown == nullptr) {
        Text->Show({}, 0);
    } else if (Text->FirstLine() == 0) {
        ShowLine(1);
    }
}

void MainWindow::ShowLine(std::uint64_t line) {
    constexpr std::uint64_t Before = 100;
    constexpr std::size_t MostShown = 300;
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
    const auto lines = std::make_shared<std::vector<FileLine>>();
    const std::uint64_t first = line > Before ? line - Before : 1;
    const QString path = file->Path;
    const auto read = [shown, lines, first](const std::atomic<bool>&) {
        *lines = LinesOf(shown->Path, shown->Format, first, MostShown);
    };
    Later(read, [this, path, lines, line] {
        if (Current() != nullptr && Current()->Path == path) Text->Show(*lines, line);
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
            Read(*file);
            return;
        }
        if (file->IsTold) continue;
        file->IsTold = true;
        Tell(InWindow(isGone ? Phrase("{} is no longer there", info.fileName().toStdString())
                             : Phrase("{} has changed; F5 reads it again", info.fileName().toStdString())));
    }
}

// The module's dialog over what is assumed. OK reads the file anew: what the user has changed is chosen, and
// the rest is found under it.
void MainWindow::ChangeSettings() {
    OpenFile* const file = Current();
    if (file == nullptr) return;
    if (IsBusy()) {
        Tell(InWindow(Phrase("a file is being read")));
        return;
    }
    constexpr std::int64_t Ok = 1;
    const std::u16string path = FromQt(file->Path);
    {
        const FileReading reading(Module, path, file->Settings, {});
        HostSession session(Module, path, RunOptions());
        const CCsvImportSettings* const settings = SettingsOf(session.Filter());
        if (settings == nullptr) return;
        const SettingList before = SettingsAsText(*settings);
        QtDialogDriver driver(this);
        SetDialogDriver(&driver);
        const std::int64_t result = session.Filter().ShowOptionDialog();
        SetDialogDriver(nullptr);
        if (result != Ok) return;
        TakeChoices(file->Settings, before, SettingsAsText(*settings));
    }
    Read(*file);
}

void MainWindow::KeepBeside() {
    const OpenFile* const file = Current();
    if (file == nullptr || file->Data == nullptr) return;
    const auto guess = std::make_shared<std::optional<plan::Guess>>();
    const auto save = [this, guess, path = file->Data->Path,
                       settings = file->Settings](const std::atomic<bool>&) {
        ReadingOptions options;
        options.Save = true;
        const FileReading reading(Module, path, settings, options);
        if (reading.Guess() != nullptr) *guess = *reading.Guess();
    };
    Later(save, [this, guess] {
        const bool isSaved = *guess && !(*guess)->Saved.empty();
        if (isSaved) Assumed->hide();
        Tell(isSaved  ? InWindow(Phrase("kept in {}", (*guess)->Saved))
             : *guess ? InWindow((*guess)->SaveFailure)
                      : InWindow(Phrase("nothing was assumed")));
    });
}
}  // namespace kelvarin::view
