#include "view/window/RowCopier.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <algorithm>

namespace kelvarin::view {
RowCopier::RowCopier(QAbstractItemView& view) : QObject(&view), View(view) {
    view.installEventFilter(this);
}

// The window's shortcut of the same key is refused at first; the key then comes here.
bool RowCopier::eventFilter(QObject*, QEvent* event) {
    const bool isShortcut = event->type() == QEvent::ShortcutOverride;
    if (!isShortcut && event->type() != QEvent::KeyPress) return false;
    if (!static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) return false;
    if (!View.selectionModel()->hasSelection()) return false;
    event->accept();
    if (!isShortcut) QApplication::clipboard()->setText(SelectedText());
    return true;
}

// In the order in which they are seen.
QString RowCopier::SelectedText() const {
    QModelIndexList cells = View.selectionModel()->selectedIndexes();
    const auto place = [this](const QModelIndex& cell) {
        const QPoint corner = View.visualRect(cell).topLeft();
        return std::pair(corner.y(), corner.x());
    };
    std::sort(cells.begin(), cells.end(),
              [&](const QModelIndex& one, const QModelIndex& other) { return place(one) < place(other); });
    QString text;
    for (qsizetype i = 0; i < cells.size(); ++i) {
        if (i != 0) text += place(cells[i]).first == place(cells[i - 1]).first ? u'\t' : u'\n';
        text += cells[i].data().toString();
    }
    return text;
}
}  // namespace kelvarin::view
