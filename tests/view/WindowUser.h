// A user at the dialog's window: mouse and keys as real events.
#pragma once

#include <QPoint>
#include <QString>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "view/dialog/QtDialogDriver.h"

class QWidget;
class QWindow;

// Opens dialogs as the program does, lets a function work the open window, and answers messages by Enter and
// questions for a file by typing. A dialog that is left open is closed.
class WindowUser : public kelvarin::view::QtDialogDriver {
  public:
    explicit WindowUser(std::function<void(CDialog&)> work) : Work(std::move(work)) { SetDialogDriver(this); }
    ~WindowUser() override { SetDialogDriver(nullptr); }

    void RunModal(CDialog& dialog) override;
    int ShowMessage(const std::u16string& text, unsigned type) override;
    std::optional<std::u16string> ChooseFile(const FileQuestion& question) override;

    std::vector<std::string> Messages;  // since they were last taken
    std::optional<std::string> NextFile;

  private:
    const std::function<void(CDialog&)> Work;
};

// The window in front: a dialog's, a message's, a list that is dropped down.
QWidget* FrontWindow();

// The widget of a control, or null; only one that is seen.
QWidget* WidgetOf(int id);

// The number of the control that has the focus; 0 for the tabs or none.
int FocusedId();

void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
void TypeText(const QString& text);

// A click on a point of a widget, through its window.
void ClickAt(QWidget& widget, QPoint point, bool isDouble = false);

// What a user does by mouse and keyboard for a step of a script, such as "type 1015 2"; `dump` and `load` are
// not among them. False if it is no such step or can't be done.
bool DoStep(const std::string& step);
