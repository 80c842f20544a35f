// Who stands in for the user where there is no display: tests, scripts, a front end.
#pragma once

#include <optional>
#include <string>

class CDialog;

class DialogDriver {
  public:
    virtual ~DialogDriver() = default;

    // Runs a dialog until it has ended; one that is left open is cancelled.
    virtual void RunModal(CDialog& dialog) = 0;

    // A message was shown; answers the button.
    virtual int ShowMessage(const std::u16string& text, unsigned type) = 0;

    // The file that the user chose, or nothing.
    virtual std::optional<std::u16string> ChooseFile(const std::u16string& title,
                                                     const std::u16string& filter) = 0;
};

// The process's driver; null means that dialogs are cancelled and messages go unseen.
void SetDialogDriver(DialogDriver* driver);
DialogDriver* GetDialogDriver();

constexpr unsigned MessageExclamation = 48;  // exclamation icon, OK button

// False if dialogs can't be shown to a user here, only driven.
bool HasDisplay();

// The file that the user or the driver chose, or nothing. `filter` is descriptions and patterns, separated by
// vertical bars.
std::optional<std::u16string> AskForFile(const std::u16string& title, const std::u16string& filter);

// Shows a message; answers the button, 1 for OK.
int AfxMessageBox(const std::u16string& text, unsigned type);
