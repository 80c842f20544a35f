// A dialog of the module as a window.
#pragma once

#include <QDialog>

#include "view/dialog/PageView.h"

class QKeyEvent;
class QMouseEvent;
class QScrollArea;
class QTabWidget;

namespace kelvarin::view {

// Shows a dialog whose controls exist, with the pages of its sheet behind tabs, until the dialog ends.
// Everything the user does goes to the controls first, as a step; then all widgets show what the controls
// are.
class DialogWindow : public QDialog, public StepRunner {
  public:
    DialogWindow(CDialog& frame, QWidget* parent);
    ~DialogWindow() override;

    // Shows the state of all controls, as before a message; the focus stays where it is.
    void ShowControls();

    void reject() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void Do(const std::function<void()>& step) override;
    void MakeTabs();
    void MakePages();
    void ArrangeFrame();
    void PlaceAnew();
    QSize RoomOfTabs() const;
    QScrollArea& AreaOf(int page) const;
    void OrderTabs();
    void ShowFocus();

    // Moves the dialog's focus to the control whose widget has it now.
    void Settle();
    void FocusOn(const ControlWidget& widget);

    // Before a press reaches its widget. True: it is lost.
    bool TakePress(const QWidget& pressed, const QMouseEvent& press);
    bool TakeTabPress(const QMouseEvent& press);
    bool TakeKey(const QWidget& receiver, const QKeyEvent& key);
    bool TakeMnemonic(const QWidget& widget);
    void TurnPage(int step);

    ControlWidget* OwnerOf(const QWidget* widget) const;
    ControlWidget* Find(const NativeWindow* control) const;
    PageView* ViewOf(const ControlWidget& widget) const;

    CDialog& Frame;
    QTabWidget* Tabs = nullptr;  // of the sheet, or null
    bool InStep = false;         // or while the widgets come and go
    std::unique_ptr<PageView> FrameView;
    std::vector<std::unique_ptr<PageView>> Pages;  // null: not made yet
};

}  // namespace kelvarin::view
