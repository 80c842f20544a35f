// What controls tell their dialogs, from the system's messages into the dialogs' own terms.
#include <algorithm>

#include "platform/framework/Controls.h"
#include "platform/framework/win32/NativeWindow.h"

namespace {

constexpr const wchar_t* RecordProperty = L"kelvarin.control";

// A list tells its header's changes to nobody else on some systems, to its parent on others; here they are
// taken before either.
LRESULT CALLBACK WatchHeader(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR, DWORD_PTR) {
    const LRESULT result = DefSubclassProc(window, message, w, l);
    if (message != WM_NOTIFY) return result;
    const auto& header = *reinterpret_cast<const NMHEADERW*>(l);
    const NativeWindow* const list = ControlOf(window);
    if (header.hdr.code != static_cast<UINT>(HeaderItemChanged) || list == nullptr ||
        header.pitem == nullptr || (header.pitem->mask & HDI_WIDTH) == 0) {
        return result;
    }
    HeaderChange change{header.iItem, header.pitem->cxy};
    // The header is a window of its own, numbered 0.
    list->Parent->Notify(0, HeaderItemChanged, &change);
    return result;
}

LRESULT AnswerDispInfo(NativeWindow& list, NMLVDISPINFOW& asked) {
    LVITEMW& item = asked.item;
    ListDispInfo info;
    info.WantsText = (item.mask & LVIF_TEXT) != 0;
    info.WantsState = (item.mask & LVIF_STATE) != 0;
    info.ItemData = item.lParam;
    info.Column = item.iSubItem;
    info.State = item.state;
    list.Tell(ListGetDispInfo, &info);
    if (info.WantsText) {
        list.AnsweredText = info.Text;
        item.pszText = W(list.AnsweredText.data());
    }
    if (info.WantsState) item.state = info.State;
    return 0;
}

LRESULT AnswerCustomDraw(NativeWindow& list, NMLVCUSTOMDRAW& painting) {
    ListCustomDraw draw{painting.nmcd.dwDrawStage, painting.iSubItem, painting.clrTextBk};
    const LRESULT result = list.Tell(CustomDraw, &draw);
    painting.clrTextBk = draw.CellBackground;
    return result;
}

LRESULT AnswerList(NativeWindow& list, const NMHDR& header) {
    void* const data = const_cast<NMHDR*>(&header);
    switch (static_cast<int>(header.code)) {
        case ListGetDispInfo:
            return AnswerDispInfo(list, *static_cast<NMLVDISPINFOW*>(data));
        case ListItemChanging: {
            const auto& item = *static_cast<NMLISTVIEW*>(data);
            ListItemChange change{(item.uChanged & LVIF_STATE) != 0, item.uNewState};
            return list.Tell(ListItemChanging, &change);
        }
        case ListClicked:
        case ListDoubleClicked: {
            const POINT point = static_cast<NMITEMACTIVATE*>(data)->ptAction;
            ListClick click{{point.x, point.y}};
            return list.Tell(static_cast<int>(header.code), &click);
        }
        case ListKeyPressed: {
            ListKey key{static_cast<NMLVKEYDOWN*>(data)->wVKey};
            return list.Tell(ListKeyPressed, &key);
        }
        case CustomDraw:
            return AnswerCustomDraw(list, *static_cast<NMLVCUSTOMDRAW*>(data));
        default:
            return 0;
    }
}

}  // namespace

NativeWindow* ControlOf(HWND window) {
    for (int depth = 0; window != nullptr && depth < 3; ++depth, window = ::GetParent(window)) {
        if (auto* const control = static_cast<NativeWindow*>(GetPropW(window, RecordProperty)))
            return control;
    }
    return nullptr;
}

void AttachControl(NativeWindow& control) {
    SetPropW(control.Window, RecordProperty, &control);
    if (control.Kind == ControlKind::ListView) SetWindowSubclass(control.Window, WatchHeader, 1, 0);
}

bool AnswerCommand(CDialog& dialog, WPARAM w, LPARAM l) {
    const int id = LOWORD(w);
    const int code = HIWORD(w);
    if (code == BN_CLICKED && (id == IDOK || id == IDCANCEL)) {
        if (id == IDOK) {
            dialog.OnOK();
        } else {
            dialog.OnCancel();
        }
        return true;
    }
    if (l == 0) return false;
    // Enter sends the click on a page's button to the frame.
    const NativeWindow* const sender = ControlOf(reinterpret_cast<HWND>(l));
    CDialog& owner = sender == nullptr ? dialog : *sender->Parent;
    owner.Notify(id, code);
    return true;
}

bool AnswerNotify(CDialog& dialog, const NMHDR& header, LRESULT& result) {
    NativeWindow* const control = ControlOf(header.hwndFrom);
    if (control == nullptr || control->Parent != &dialog || control->Window != header.hwndFrom) return false;
    if (control->Kind == ControlKind::ListView) {
        result = AnswerList(*control, header);
        return true;
    }
    if (!control->IsPicker() || static_cast<int>(header.code) != DateTimeChanged) return false;
    result = control->Tell(DateTimeChanged);
    return true;
}
