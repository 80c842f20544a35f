#include "platform/framework/CellEditor.h"

#include <utility>

#include "platform/framework/portable/NativeWindow.h"

// An editor is a record here, for a front that draws it; what matters is what is entered.

void WatchCells(CListCtrl& list, std::function<void(int row, int column)> open) {
    list.Handle->OpenEditor = std::move(open);
}

CEdit OpenCellEdit(CListCtrl& list, int row, int column, const std::u16string& text, CellDone done) {
    list.Handle->Editor = {row, column, false, text, {}, -1, std::move(done)};
    return {};
}

void OpenCellList(CListCtrl& list, int row, int column, const std::vector<std::u16string>& entries,
                  CellDone done) {
    list.Handle->Editor = {row, column, true, {}, entries, -1, std::move(done)};
}

void SelectInCellList(CListCtrl& list, int index) {
    if (list.Handle->Editor) list.Handle->Editor->Selected = index;
}

void UserEnterCell(CListCtrl& list, const std::u16string& text) {
    if (const auto editor = std::exchange(list.Handle->Editor, std::nullopt)) editor->Done(text);
}
