// The widgets of a dialog's controls.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "platform/framework/portable/NativeWindow.h"

namespace kelvarin::view {

// Runs the steps of the user.
class StepRunner {
  public:
    virtual ~StepRunner() = default;

    // Runs a step, then shows the state of all controls. A step within a step, such as a widget's signal
    // while it is being changed, is dropped.
    virtual void Do(const std::function<void()>& step) = 0;
};

// What a widget is made for. All of it outlives the widget.
struct ControlParts {
    CDialog& Page;
    NativeWindow& Control;
    NativeWindow* Spin;  // that steps the control, or null
    StepRunner& Steps;
    QWidget* Parent;  // of the widget
};

// One control and its widget: what the user does to the widget is done to the control, and what the control
// then is the widget shows.
class ControlWidget {
  public:
    // The widget goes with it: nothing of Qt may reach a control that is gone.
    virtual ~ControlWidget();
    ControlWidget(const ControlWidget&) = delete;
    ControlWidget& operator=(const ControlWidget&) = delete;

    // Puts the widget where the control is.
    void Place();

    // Makes the widget look as the control is.
    void Show();

    // True if the user can move the focus to it.
    bool TakesFocus() const;

    QWidget& Widget() const { return *Drawn; }
    CDialog& Page() const { return Parts.Page; }
    NativeWindow& Control() const { return Parts.Control; }

  protected:
    ControlWidget(const ControlParts& parts, QWidget* drawn);

    // Where the widget is in its parent.
    virtual QRect Room() const;

    // Text and all else that this kind of control has.
    virtual void ShowContent() = 0;

    void Do(const std::function<void()>& step) const { Parts.Steps.Do(step); }

    const ControlParts Parts;

  private:
    QWidget* const Drawn;
};

// The widget of a control by its kind, with the control's number as its object's name; null for a spin, which
// is a part of what it steps.
std::unique_ptr<ControlWidget> MakeControlWidget(const ControlParts& parts);

// By kind; the files of the same names hold them.
std::unique_ptr<ControlWidget> MakeButton(const ControlParts& parts);
std::unique_ptr<ControlWidget> MakeCaption(const ControlParts& parts);
std::unique_ptr<ControlWidget> MakeTextEdit(const ControlParts& parts);
std::unique_ptr<ControlWidget> MakeSpinEdit(const ControlParts& parts);
std::unique_ptr<ControlWidget> MakeComboBox(const ControlParts& parts);
std::unique_ptr<ControlWidget> MakePicker(const ControlParts& parts);
std::unique_ptr<ControlWidget> MakeList(const ControlParts& parts);

}  // namespace kelvarin::view
