// Copying rows of a table or a tree by its key.
#pragma once

#include <QAbstractItemView>

namespace kelvarin::view {
// While the view has the focus and a selection, the key for copying puts the selected cells into the
// clipboard as text, with tabs between cells and a line for each row, and reaches nothing else. The view owns
// it.
class RowCopier : public QObject {
  public:
    explicit RowCopier(QAbstractItemView& view);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QString SelectedText() const;

    QAbstractItemView& View;
};
}  // namespace kelvarin::view
