#include "platform/framework/CellEditor.h"

#include <utility>

#include "platform/framework/win32/NativeWindow.h"

namespace {

constexpr UINT_PTR EditorSubclass = 2;
constexpr UINT_PTR ListSubclass = 3;

std::u16string TextOf(HWND editor, bool isList) {
    constexpr int Capacity = 4096;
    std::u16string text(Capacity, u'\0');
    if (!isList) {
        GetWindowTextW(editor, W(text.data()), Capacity);
    } else if (const int selected = ListBox_GetCurSel(editor); selected >= 0) {
        SendMessageW(editor, LB_GETTEXT, static_cast<WPARAM>(selected),
                     reinterpret_cast<LPARAM>(text.data()));
    }
    return text.c_str();
}

// Ends the editor of a list. Its window loses the focus as it goes, so the record is cleared before.
void Finish(NativeWindow& list, bool enters) {
    const HWND editor = std::exchange(list.Editor, nullptr);
    if (editor == nullptr) return;
    const CellDone done = std::exchange(list.EditorDone, nullptr);
    const std::u16string text = TextOf(editor, list.EditorIsList);
    const bool hadFocus = ::GetFocus() == editor;
    DestroyWindow(editor);
    if (hadFocus) ::SetFocus(list.Window);
    if (enters) done(text);
}

LRESULT CALLBACK EditorProcedure(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR, DWORD_PTR data) {
    auto& list = *reinterpret_cast<NativeWindow*>(data);
    switch (message) {
        case WM_GETDLGCODE:
            return DLGC_WANTALLKEYS;  // or Return would close the dialog
        case WM_KEYDOWN:
            if (w != VK_RETURN && w != VK_TAB && w != VK_ESCAPE) break;
            Finish(list, w != VK_ESCAPE);
            return 0;
        case WM_CHAR:
            if (w == VK_RETURN || w == VK_TAB || w == VK_ESCAPE) return 0;  // no beep
            break;
        case WM_LBUTTONUP: {
            const LRESULT result = DefSubclassProc(window, message, w, l);
            if (list.EditorIsList) Finish(list, true);
            return result;
        }
        case WM_KILLFOCUS: {
            const LRESULT result = DefSubclassProc(window, message, w, l);
            Finish(list, !list.EditorIsList);
            return result;
        }
        default:
            break;
    }
    return DefSubclassProc(window, message, w, l);
}

// Opens the editor of the focused row.
void OpenEditorByKey(const NativeWindow& list, int column) {
    const auto row =
        static_cast<int>(list.Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LPARAM{LVNI_FOCUSED}));
    if (row >= 0) list.OpenEditor(row, column);
}

LRESULT CALLBACK ListProcedure(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR, DWORD_PTR data) {
    auto& list = *reinterpret_cast<NativeWindow*>(data);
    const LRESULT result = DefSubclassProc(window, message, w, l);
    if (message == WM_LBUTTONDBLCLK) {
        LVHITTESTINFO hit{};
        hit.pt = {GET_X_LPARAM(l), GET_Y_LPARAM(l)};
        list.Send(LVM_SUBITEMHITTEST, 0, &hit);
        if (hit.iItem >= 0 && (hit.flags & LVHT_ONITEMSTATEICON) == 0)
            list.OpenEditor(hit.iItem, hit.iSubItem);
    }
    if (message == WM_KEYDOWN && w == VK_F2) OpenEditorByKey(list, 0);
    if ((message == WM_KEYDOWN && w == VK_F4) || (message == WM_SYSKEYDOWN && w == VK_DOWN))
        OpenEditorByKey(list, 1);
    // The editor would stay where its cell was.
    if (message == WM_VSCROLL || message == WM_HSCROLL || message == WM_MOUSEWHEEL) Finish(list, true);
    return result;
}

RECT CellPlace(const NativeWindow& list, int row, int column) {
    RECT place{};
    place.left = LVIR_LABEL;
    place.top = column;
    list.Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), LPARAM{FALSE});
    list.Send(LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), &place);
    return place;
}

void Begin(NativeWindow& list, HWND editor, bool isList, CellDone done) {
    list.Editor = editor;
    list.EditorIsList = isList;
    list.EditorDone = std::move(done);
    SendMessageW(editor, WM_SETFONT, static_cast<WPARAM>(list.Send(WM_GETFONT)), 0);
    SetWindowSubclass(editor, EditorProcedure, EditorSubclass, reinterpret_cast<DWORD_PTR>(&list));
}

}  // namespace

void WatchCells(CListCtrl& list, std::function<void(int row, int column)> open) {
    list.Handle->OpenEditor = std::move(open);
    SetWindowSubclass(list.Handle->Window, ListProcedure, ListSubclass,
                      reinterpret_cast<DWORD_PTR>(list.Handle));
}

CEdit OpenCellEdit(CListCtrl& list, int row, int column, const std::u16string& text, CellDone done) {
    NativeWindow& native = *list.Handle;
    Finish(native, true);
    const RECT place = CellPlace(native, row, column);
    const HWND edit =
        CreateWindowExW(0, L"Edit", W(text), WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL, place.left,
                        place.top, place.right - place.left, place.bottom - place.top, native.Window, nullptr,
                        GetModuleHandleW(nullptr), nullptr);
    Begin(native, edit, false, std::move(done));
    native.EditorRecord = std::make_unique<NativeWindow>();
    native.EditorRecord->Kind = ControlKind::Edit;
    native.EditorRecord->Window = edit;
    SendMessageW(edit, EM_SETSEL, 0, -1);
    ::SetFocus(edit);
    return CEdit(native.EditorRecord.get());
}

void OpenCellList(CListCtrl& list, int row, int column, const std::vector<std::u16string>& entries,
                  CellDone done) {
    NativeWindow& native = *list.Handle;
    Finish(native, true);
    RECT place = CellPlace(native, row, column);
    const int width = place.right - place.left;
    const int height = static_cast<int>(entries.size() + 1) * (place.bottom - place.top);
    MapWindowPoints(native.Window, nullptr, reinterpret_cast<POINT*>(&place), 2);
    const HWND box = CreateWindowExW(
        WS_EX_TOOLWINDOW, L"ListBox", L"", WS_POPUP | WS_VISIBLE | WS_BORDER | WS_VSCROLL | LBS_NOTIFY,
        place.left, place.bottom, width, height, native.Window, nullptr, GetModuleHandleW(nullptr), nullptr);
    for (const std::u16string& entry : entries)
        SendMessageW(box, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(W(entry)));
    Begin(native, box, true, std::move(done));
    ::SetFocus(box);
}

void SelectInCellList(CListCtrl& list, int index) {
    if (list.Handle->Editor != nullptr && list.Handle->EditorIsList)
        SendMessageW(list.Handle->Editor, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void UserEnterCell(CListCtrl& list, const std::u16string& text) {
    NativeWindow& native = *list.Handle;
    if (native.Editor == nullptr) return;
    if (native.EditorIsList) {
        const LRESULT found = SendMessageW(native.Editor, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                           reinterpret_cast<LPARAM>(W(text)));
        if (found == LB_ERR && !text.empty()) {
            const CellDone done = native.EditorDone;
            Finish(native, false);
            return done(text);
        }
        SelectInCellList(list, static_cast<int>(found));
    } else {
        SendMessageW(native.Editor, EM_SETSEL, 0, -1);
        if (text.empty()) SendMessageW(native.Editor, WM_CLEAR, 0, 0);
        for (const char16_t c : text) SendMessageW(native.Editor, WM_CHAR, c, 1);
    }
    SendMessageW(native.Editor, WM_KEYDOWN, VK_RETURN, 1);
    RunPendingMessages();
}
