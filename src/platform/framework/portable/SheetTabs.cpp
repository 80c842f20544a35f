#include "platform/framework/PropertySheet.h"
#include "platform/framework/portable/NativeWindow.h"

// Nothing is drawn here: the page in front is the active one.
void CPropertySheet::CreateTabs() {}

// Keys must not reach a page that nobody sees: the focus goes to the first control of the page in front.
void CPropertySheet::BringToFront(CPropertyPage& page) {
    const CDialog* const focused = focusedWindow == nullptr ? nullptr : focusedWindow->Parent;
    if (focused == nullptr || focused == &page || focused == Frame) return;
    for (const auto& control : page.GetNative().Controls) {
        const bool takesFocus = control->Kind != ControlKind::Label && control->Kind != ControlKind::GroupBox;
        if (control->Enabled && takesFocus) return CWnd(control.get()).SetFocus();
    }
}
