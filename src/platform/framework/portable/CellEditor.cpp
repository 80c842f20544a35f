#include "platform/framework/CellEditor.h"

#include <utility>

#include "platform/framework/portable/NativeWindow.h"

// An editor shows nothing without a display; what matters is what is entered.

void WatchCells(CListCtrl&, std::function<void(int row, int column)>) {}

CEdit OpenCellEdit(CListCtrl& list, int, int, const std::u16string&, CellDone done) {
    list.Handle->EditorDone = std::move(done);
    return {};
}

void OpenCellList(CListCtrl& list, int, int, const std::vector<std::u16string>&, CellDone done) {
    list.Handle->EditorDone = std::move(done);
}

void SelectInCellList(CListCtrl&, int) {}

void UserEnterCell(CListCtrl& list, const std::u16string& text) {
    if (const CellDone done = std::exchange(list.Handle->EditorDone, nullptr)) done(text);
}
