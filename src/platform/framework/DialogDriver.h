// Who stands in for the user where there is no display: tests, scripts, a front end.
#pragma once

#include <optional>
#include <string>

class CDialog;

// How the user is asked for a file to open.
struct FileQuestion {
    CDialog* Owner;                   // disabled while the question is open
    std::u16string Title;             // of the question's window
    std::u16string Filter;            // descriptions and patterns, separated by vertical bars
    std::u16string DefaultExtension;  // as a pattern, "*.info": for a name entered without extension
    std::u16string Folder;            // shown at first; if it is empty the system decides
};

class DialogDriver {
  public:
    virtual ~DialogDriver() = default;

    // Comes before the controls of a dialog are made, with its module in force.
    virtual void PrepareDialog() {}

    // Runs a dialog until it has ended; one that is left open is cancelled.
    virtual void RunModal(CDialog& dialog) = 0;

    // A message was shown; answers the button.
    virtual int ShowMessage(const std::u16string& text, unsigned type) = 0;

    // The file that the user chose, or nothing.
    virtual std::optional<std::u16string> ChooseFile(const FileQuestion& question) = 0;
};

// The export of a library that draws dialogs on a display. It makes a driver, which the caller deletes before
// the library goes, or returns null if there is no display.
constexpr const char* DialogFrontEntryName = "MakeKelvarinDialogFront";
using DialogFrontEntry = DialogDriver* (*)();

// The process's driver; null means that dialogs are cancelled and messages go unseen.
void SetDialogDriver(DialogDriver* driver);
DialogDriver* GetDialogDriver();

constexpr unsigned MessageExclamation = 48;  // exclamation icon, OK button

// False if dialogs can't be shown to a user here, only driven.
bool HasDisplay();

// The file that the user or the driver chose, or nothing.
std::optional<std::u16string> AskForFile(const FileQuestion& question);

// Shows a message; answers the button, 1 for OK.
int AfxMessageBox(const std::u16string& text, unsigned type);
