// The editors over the cells of a list.
#pragma once

#include <QPointer>
#include <QTreeView>
#include <functional>

#include "platform/framework/portable/NativeWindow.h"

namespace kelvarin::view {

// Shows the editor that a list has open, an edit box in the cell or a list below it, and none if it has none.
// Return, Tab or leaving the edit box enters its text; Return, Tab or a click the entry of the list; Escape
// gives up, as does leaving the list. The view and the list outlive it.
class CellEditors : public QObject {
  public:
    // `end` is called with what was entered, or with null for giving up.
    using End = std::function<void(const std::u16string* text)>;

    CellEditors(QTreeView& view, NativeWindow& list, End end)
        : View(view), List(list), OnEnd(std::move(end)) {}

    void Show();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void OpenEdit(const NativeCellEditor& editor);
    void OpenList(const NativeCellEditor& editor);
    void Close();
    void Finish(bool enters);
    QRect CellPlace(int row, int column) const;

    QTreeView& View;
    NativeWindow& List;
    const End OnEnd;
    QPointer<QWidget> Shown;
    bool IsEnding = false;
};

// The part of a row's first cell that its check box takes.
int CheckBoxWidth(const QTreeView& view);

}  // namespace kelvarin::view
