// The widgets of one dialog or page.
#pragma once

#include <vector>

#include "view/dialog/ControlWidget.h"

namespace kelvarin::view {

// Made of a dialog whose controls exist, in a widget of the size that its template says.
class PageView {
  public:
    // `area` gets the widgets and outlives them.
    PageView(CDialog& page, StepRunner& steps, QWidget& area);
    ~PageView();
    PageView(const PageView&) = delete;
    PageView& operator=(const PageView&) = delete;

    void Show();

    // Puts all widgets where their controls are.
    void Place();

    // The control's widget, or null.
    ControlWidget* Find(const NativeWindow* control) const;

    // The control to which a widget or one of its parents belongs, or null.
    ControlWidget* OwnerOf(const QWidget* widget) const;

    // What the letter of a label reaches: the next control that takes the focus, of radio buttons the one
    // that is checked. Null if there is none.
    ControlWidget* AfterLabel(const ControlWidget& label) const;

    // The radio button that an arrow key reaches from another one of its group.
    ControlWidget* NextRadio(const ControlWidget& radio, int step) const;

    // In the order of tabbing.
    const std::vector<std::unique_ptr<ControlWidget>>& Controls() const { return Widgets; }

  private:
    // The radio buttons of a group, of which one is given.
    std::vector<ControlWidget*> GroupOf(const ControlWidget& radio) const;
    void LinkLabels();
    void LimitTabbing();

    std::vector<std::unique_ptr<ControlWidget>> Widgets;
};

}  // namespace kelvarin::view
