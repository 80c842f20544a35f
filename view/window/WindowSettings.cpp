// The settings of a file: the dialog over what is assumed, and the sidecar beside it.
#include <QFileInfo>
#include <QMessageBox>

#include "host/FileReading.h"
#include "host/HostSession.h"
#include "host/language/Phrase.h"
#include "host/sidecar/Sidecars.h"
#include "view/dialog/QtDialogDriver.h"
#include "view/dialog/QtText.h"
#include "view/model/DialogChoices.h"
#include "view/window/MainWindow.h"

namespace kelvarin::view {
namespace {
// Writes all settings into the sidecar. Empty, or why it is not written.
std::string WriteAll(const ModuleLoader& module, const std::u16string& path, const SettingList& settings) {
    SettingsLayer layer;
    for (const auto& [key, value] : settings) layer.Set(key, value);
    return sidecar::WriteSidecar(module, path);
}
}  // namespace

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
        const SettingList after = SettingsAsText(*settings);
        const bool isWritten = settings->SaveSidecarFile != 0;
        if (result != Ok || (!isWritten && before != after && !KeepInSidecar(path, after))) return;
        TakeChoices(file->Settings, before, after);
    }
    Read(*file);
}

// A sidecar says all of how its file is read: what is chosen counts once it stands there. False if it is to
// stay as it is, or can't be written.
bool MainWindow::KeepInSidecar(const std::u16string& path, const SettingList& settings) {
    const std::u16string sidecar = path + u".info";
    if (!sidecar::HasSidecar(path) || sidecar::CheckSidecar(Module, sidecar).Errors != 0) return true;
    const QString name = QFileInfo(ToQt(sidecar)).fileName();
    const auto answer = QMessageBox::question(
        this, "kelvarin-view",
        InWindow(Phrase("{} says how this file is read. Write what you have changed into it?",
                        name.toStdString())));
    if (answer != QMessageBox::Yes) {
        Tell(InWindow(Phrase("read as {} says", name.toStdString())));
        return false;
    }
    const std::string failure = WriteAll(Module, path, settings);
    if (!failure.empty()) Tell(InWindow(failure));
    return failure.empty();
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
