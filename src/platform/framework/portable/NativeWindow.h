// The state of windows without a display: what a real control would remember.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/framework/Dialog.h"
#include "platform/framework/DialogTemplate.h"

struct NativeListColumn {
    std::u16string Heading;
    int Width = 0;
};

struct NativeListRow {
    std::vector<std::optional<std::u16string>> Cells;  // nothing: asked for
    std::int64_t Data = 0;
    unsigned State = 0;
};

// The editor over a cell of a list.
struct NativeCellEditor {
    int Row = 0, Column = 0;
    bool IsList = false;                  // a list to choose from; else an edit box
    std::u16string Text;                  // of the edit box at first
    std::vector<std::u16string> Entries;  // of the list, and the one that is selected at first; -1: none
    int Selected = -1;
    std::function<void(const std::u16string&)> Done;  // gets what the user entered
};

struct NativeWindow {
    CDialog* Parent = nullptr;
    int Id = 0;
    ControlKind Kind = ControlKind::Label;
    unsigned Style = 0;
    CRect Place;
    bool Enabled = true;
    void* UserData = nullptr;
    std::u16string Text;
    bool Checked = false;
    int TextLimit = 0;                  // 0: none
    std::vector<std::u16string> Items;  // of a list
    int Selected = -1;
    int Lowest = 0, Highest = 100;  // of a spin
    std::int64_t Position = 0;
    NativeWindow* Buddy = nullptr;
    std::int64_t Seconds = 0;                      // of a picker
    unsigned ExtendedStyle = 0, CallbackMask = 0;  // of a report list, and what follows
    std::vector<NativeListColumn> Columns;
    std::vector<NativeListRow> Rows;
    int ScrollPos = 0;
    std::function<void(int row, int column)> OpenEditor;  // of a cell; may be empty
    std::optional<NativeCellEditor> Editor;               // the one that is open

    bool IsButton() const {
        return Kind == ControlKind::CheckBox || Kind == ControlKind::RadioButton ||
               Kind == ControlKind::PushButton || Kind == ControlKind::DefaultButton;
    }
    bool IsCombo() const { return Kind == ControlKind::ComboBox || Kind == ControlKind::DropDownList; }
    bool IsPicker() const { return Kind == ControlKind::DatePicker || Kind == ControlKind::TimePicker; }
    std::intptr_t Tell(int code, void* data = nullptr) { return Parent->Notify(Id, code, data); }
};

struct CDialog::NativeDialog {
    std::vector<std::unique_ptr<NativeWindow>> Controls;
    bool Ended = false;
    int Result = 2;

    NativeWindow* Find(int id) const;

    // The radio buttons of the group that begins with a control.
    std::vector<NativeWindow*> Group(int firstId) const;
};

// The window with the focus, or null.
extern NativeWindow* focusedWindow;
