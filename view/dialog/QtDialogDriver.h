// The user at a display: dialogs, messages and questions as windows of Qt.
#pragma once

#include <vector>

#include "platform/framework/DialogDriver.h"

class QWidget;

namespace kelvarin::view {
class DialogWindow;

// Needs a QApplication. SetDialogDriver makes it the process's driver.
class QtDialogDriver : public DialogDriver {
  public:
    // Over `parent` the first window opens; it may be null.
    explicit QtDialogDriver(QWidget* parent = nullptr) : Parent(parent) {}

    void PrepareDialog() override;
    void RunModal(CDialog& dialog) override;
    int ShowMessage(const std::u16string& text, unsigned type) override;
    std::optional<std::u16string> ChooseFile(const FileQuestion& question) override;

  private:
    // The window in front.
    QWidget* Front() const;

    QWidget* const Parent;
    std::vector<DialogWindow*> Open;
};

}  // namespace kelvarin::view
