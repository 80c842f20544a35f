// What stands behind a handle on a control: its window, and what the window itself doesn't keep.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/framework/Dialog.h"
#include "platform/framework/DialogTemplate.h"
#include "platform/framework/win32/Api.h"

struct NativeWindow {
    CDialog* Parent = nullptr;
    int Id = 0;
    ControlKind Kind = ControlKind::Label;
    unsigned Style = 0;
    HWND Window = nullptr;
    void* UserData = nullptr;

    // Of a picker: the moment it was given last and how that looks. A local time that the zone has twice
    // would otherwise come back as the other moment.
    std::int64_t GivenSeconds = 0;
    SYSTEMTIME GivenTime{};

    // Of a list: the text that it was answered last, to which it still refers; the editor over a cell.
    std::u16string AnsweredText;
    HWND Editor = nullptr;
    bool EditorIsList = false;
    std::unique_ptr<NativeWindow> EditorRecord;
    std::function<void(const std::u16string&)> EditorDone;
    std::function<void(int row, int column)> OpenEditor;

    bool IsButton() const {
        return Kind == ControlKind::CheckBox || Kind == ControlKind::RadioButton ||
               Kind == ControlKind::PushButton || Kind == ControlKind::DefaultButton;
    }
    bool IsCombo() const { return Kind == ControlKind::ComboBox || Kind == ControlKind::DropDownList; }
    bool IsPicker() const { return Kind == ControlKind::DatePicker || Kind == ControlKind::TimePicker; }
    bool TakesFocus() const {
        return Kind != ControlKind::Label && Kind != ControlKind::GroupBox && Kind != ControlKind::Spin;
    }
    std::intptr_t Tell(int code, void* data = nullptr) { return Parent->Notify(Id, code, data); }
    LRESULT Send(UINT message, WPARAM w = 0, LPARAM l = 0) const {
        return SendMessageW(Window, message, w, l);
    }
    LRESULT Send(UINT message, WPARAM w, const void* l) const {
        return SendMessageW(Window, message, w, reinterpret_cast<LPARAM>(l));
    }
};

struct CDialog::NativeDialog {
    HWND Window = nullptr;
    HWND Tabs = nullptr;  // of a frame
    std::vector<std::unique_ptr<NativeWindow>> Controls;
    bool Ended = false;
    bool Closing = false;  // its windows are going; their notifications count no more
    int Result = 2;

    NativeWindow* Find(int id) const;

    // The radio buttons of the group that begins with a control.
    std::vector<NativeWindow*> Group(int firstId) const;
};

constexpr int TabsId = 0x3020;

// The control that a window is or is part of, as an edit is of its combo; null for any other window.
NativeWindow* ControlOf(HWND window);

// The window of the innermost modal dialog, or null.
HWND ModalWindow();

// Lets the messages run that have come meanwhile.
void RunPendingMessages();

// The record of a window, by which ControlOf finds it. A list's also tells of its header.
void AttachControl(NativeWindow& control);

// Answers a dialog's WM_COMMAND and WM_NOTIFY. The result of WM_NOTIFY goes into `result`; false if nobody
// wants it.
bool AnswerCommand(CDialog& dialog, WPARAM w, LPARAM l);
bool AnswerNotify(CDialog& dialog, const NMHDR& header, LRESULT& result);

// The template of a dialog as the system takes it.
std::vector<WORD> WriteTemplate(const DialogTemplate& dialog, bool isPage);
