#include "platform/framework/Dialog.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/framework/DialogDriver.h"
#include "platform/framework/PropertySheet.h"
#include "platform/framework/win32/NativeWindow.h"

namespace {

BOOL CALLBACK ForwardNewColors(HWND window, LPARAM) {
    SendMessageW(window, WM_SYSCOLORCHANGE, 0, 0);
    return TRUE;
}

INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, l);
        return FALSE;  // the dialog says itself who gets the focus
    }
    auto* const dialog = reinterpret_cast<CDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (dialog == nullptr || !dialog->IsCreated() || dialog->GetNative().Closing) return FALSE;
    if (message == WM_COMMAND) return AnswerCommand(*dialog, w, l) ? TRUE : FALSE;
    // The system reports a new colour scheme to the frame alone, and controls keep copies of its colours.
    if (message == WM_SYSCOLORCHANGE && window == GetAncestor(window, GA_ROOT))
        EnumChildWindows(window, ForwardNewColors, 0);
    if (message != WM_NOTIFY) return FALSE;
    const auto& header = *reinterpret_cast<const NMHDR*>(l);
    if (header.idFrom == TabsId && header.code == TCN_SELCHANGE && dialog->Sheet != nullptr) {
        const int index = TabCtrl_GetCurSel(header.hwndFrom);
        if (!dialog->Sheet->SetActivePage(index))
            TabCtrl_SetCurSel(header.hwndFrom, dialog->Sheet->GetActiveIndex());
        return TRUE;
    }
    LRESULT result = 0;
    if (!AnswerNotify(*dialog, header, result)) return FALSE;
    SetWindowLongPtrW(window, DWLP_MSGRESULT, result);
    return TRUE;
}

HWND modalWindow = nullptr;

void InitControls() {
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES | ICC_DATE_CLASSES};
    InitCommonControlsEx(&classes);
}

void AddItems(HWND combo, std::u16string_view items) {
    while (!items.empty()) {
        const std::size_t end = std::min(items.find(u'|'), items.size());
        const std::u16string item(items.substr(0, end));
        SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(W(item)));
        items.remove_prefix(std::min(end + 1, items.size()));
    }
}

// The record of one control of a dialog just made. A window without a number can't be asked for by it.
std::unique_ptr<NativeWindow> RecordControl(CDialog& parent, const ControlTemplate& description,
                                            HWND window) {
    auto control = std::make_unique<NativeWindow>();
    control->Parent = &parent;
    control->Id = description.Id;
    control->Kind = description.Kind;
    control->Style = description.Style;
    control->Window = window;
    AttachControl(*control);
    AddItems(window, description.Items);
    return control;
}

// Ctrl+Tab and Ctrl+PageDown show the next page; with Shift, and Ctrl+PageUp, the one before. False for any
// other message.
bool TurnPage(const CDialog& dialog, const MSG& message) {
    if (message.message != WM_KEYDOWN || dialog.Sheet == nullptr || GetKeyState(VK_CONTROL) >= 0 ||
        !IsChild(dialog.GetNative().Window, message.hwnd)) {
        return false;
    }
    int step = 0;
    if (message.wParam == VK_NEXT) step = 1;
    if (message.wParam == VK_PRIOR) step = -1;
    if (message.wParam == VK_TAB) step = GetKeyState(VK_SHIFT) < 0 ? -1 : 1;
    if (step == 0) return false;
    CPropertySheet& sheet = *dialog.Sheet;
    sheet.SetActivePage((sheet.GetActiveIndex() + step + sheet.GetPageCount()) % sheet.GetPageCount());
    return true;
}

// The window that a click on `clicked` gives the focus to, or null: a control or the tabs, but no part of a
// control such as the header of a list.
HWND FocusByClick(const CDialog& dialog, HWND clicked) {
    const NativeWindow* const control = ControlOf(clicked);
    if (control == nullptr) return clicked == dialog.GetNative().Tabs ? clicked : nullptr;
    return control->TakesFocus() && (clicked == control->Window || control->IsCombo()) ? control->Window
                                                                                       : nullptr;
}

// True for a click that would take the focus from an edit if the edit takes it back, since its content is
// refused. The click is lost then: the control would capture the mouse when its button has long come up.
bool IsLostClick(const CDialog& dialog, const MSG& message) {
    if (message.message != WM_LBUTTONDOWN) return false;
    const NativeWindow* const left = ControlOf(::GetFocus());
    const HWND next = FocusByClick(dialog, message.hwnd);
    if (left == nullptr || left->Kind != ControlKind::Edit || next == nullptr || next == left->Window)
        return false;
    // A radio button that a program gives the focus to checks itself; it takes it by the click.
    const NativeWindow* const control = ControlOf(next);
    const bool isRadio = control != nullptr && control->Kind == ControlKind::RadioButton;
    ::SetFocus(isRadio ? nullptr : next);
    return ::GetFocus() == left->Window;
}

// The user works the dialog until it ends. Its owner rests meanwhile.
void RunLoop(const CDialog& dialog, HWND owner) {
    const CDialog::NativeDialog& native = dialog.GetNative();
    if (owner != nullptr) ::EnableWindow(owner, FALSE);
    MSG message;
    while (!dialog.IsEnded() && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (TurnPage(dialog, message) || IsLostClick(dialog, message) ||
            IsDialogMessageW(native.Window, &message)) {
            continue;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    // Before the dialog goes, or another program's window would come to the front.
    if (owner != nullptr) ::EnableWindow(owner, TRUE);
}

}  // namespace

HWND ModalWindow() {
    return modalWindow;
}

void RunPendingMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

NativeWindow* CDialog::NativeDialog::Find(int id) const {
    for (const auto& control : Controls) {
        if (control->Id == id && id > 0) return control.get();
    }
    return nullptr;
}

std::vector<NativeWindow*> CDialog::NativeDialog::Group(int firstId) const {
    std::vector<NativeWindow*> group;
    for (const auto& control : Controls) {
        const bool isFirst = control->Id == firstId;
        if (group.empty() && !isFirst) continue;
        if (control->Kind != ControlKind::RadioButton) continue;
        if (!isFirst && (control->Style & ControlGroup) != 0) break;
        group.push_back(control.get());
    }
    return group;
}

CDialog::CDialog(int templateId) : TemplateId(templateId) {}

CDialog::~CDialog() {
    if (Native == nullptr) return;
    Native->Closing = true;
    if (IsWindow(Native->Window)) DestroyWindow(Native->Window);
}

int CDialog::DoModal() {
    const HWND owner = GetActiveWindow();
    DialogDriver* const driver = GetDialogDriver();
    if (driver != nullptr) driver->PrepareDialog();
    CreateControls();
    const HWND outer = std::exchange(modalWindow, Native->Window);
    OnInitDialog();
    // Driven, it stays hidden: shown, it and other programs would take the focus from each other.
    if (driver != nullptr) {
        RunPendingMessages();
        driver->RunModal(*this);
        if (!IsEnded()) OnCancel();
    } else {
        ShowWindow(Native->Window, SW_SHOW);
        SetForegroundWindow(Native->Window);
        RunLoop(*this, owner);
    }
    // What the windows tell while they go must not reach the fields any more.
    Native->Closing = true;
    for (int page = 0; Sheet != nullptr && page < Sheet->GetPageCount(); ++page) {
        if (Sheet->GetPage(page).IsCreated()) Sheet->GetPage(page).GetNative().Closing = true;
    }
    DestroyWindow(Native->Window);
    modalWindow = outer;
    return Native->Result;
}

void CDialog::EndDialog(int result) {
    Native->Ended = true;
    Native->Result = result;
    PostMessageW(Native->Window, WM_NULL, 0, 0);  // wakes the loop
}

bool CDialog::IsEnded() const {
    return Native->Ended;
}

void CDialog::CreateControls() {
    InitControls();
    Native = std::make_unique<NativeDialog>();
    const DialogTemplate& description = GetTemplate();
    CDialog* const parent = GetParent();
    const HWND owner = parent == nullptr ? GetActiveWindow() : parent->GetNative().Window;
    const std::vector<WORD> words = WriteTemplate(description, parent != nullptr);
    const HWND window = CreateDialogIndirectParamW(GetModuleHandleW(nullptr),
                                                   reinterpret_cast<const DLGTEMPLATE*>(words.data()), owner,
                                                   DialogProcedure, reinterpret_cast<LPARAM>(this));
    Native->Window = window;
    // The windows come in the order of the table.
    HWND child = GetWindow(window, GW_CHILD);
    for (std::size_t i = 0; i < description.Count && child != nullptr; ++i) {
        Native->Controls.push_back(RecordControl(*this, description.Controls[i], child));
        child = GetWindow(child, GW_HWNDNEXT);
    }
}

CWnd CDialog::GetDlgItem(int id) const {
    return CWnd(IsCreated() ? Native->Find(id) : nullptr);
}

bool CDialog::IsDlgButtonChecked(int id) const {
    return ::IsDlgButtonChecked(Native->Window, id) == BST_CHECKED;
}

void CDialog::CheckDlgButton(int id, bool checked) {
    ::CheckDlgButton(Native->Window, id, checked ? BST_CHECKED : BST_UNCHECKED);
}

int CDialog::GetCheckedRadio(int firstId) const {
    const std::vector<NativeWindow*> group = Native->Group(firstId);
    const auto checked = std::find_if(group.begin(), group.end(), [](const NativeWindow* radio) {
        return radio->Send(BM_GETCHECK) == BST_CHECKED;
    });
    return checked == group.end() ? -1 : static_cast<int>(checked - group.begin());
}

void CDialog::CheckRadio(int firstId, int index) {
    const std::vector<NativeWindow*> group = Native->Group(firstId);
    for (std::size_t i = 0; i < group.size(); ++i)
        group[i]->Send(BM_SETCHECK, static_cast<int>(i) == index ? BST_CHECKED : BST_UNCHECKED);
}
