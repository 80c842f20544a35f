#include "view/dialog/CellEditors.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QStyle>
#include <algorithm>

#include "view/dialog/ListModel.h"
#include "view/dialog/QtText.h"

namespace kelvarin::view {

int CheckBoxWidth(const QTreeView& view) {
    const auto* const model = static_cast<const ListModel*>(view.model());
    if (!model->HasCheckBoxes()) return 0;
    const QStyle& style = *view.style();
    return style.pixelMetric(QStyle::PM_IndicatorWidth) +
           2 * style.pixelMetric(QStyle::PM_FocusFrameHMargin) + 2;
}

void CellEditors::Show() {
    if (!List.Editor) return Close();
    if (Shown != nullptr) return;
    if (List.Editor->IsList) {
        OpenList(*List.Editor);
    } else {
        OpenEdit(*List.Editor);
    }
}

QRect CellEditors::CellPlace(int row, int column) const {
    const QModelIndex cell = View.model()->index(row, column);
    View.scrollTo(cell);
    QRect place = View.visualRect(cell);
    if (column == 0) place.setLeft(place.left() + CheckBoxWidth(View));
    return place;
}

void CellEditors::OpenEdit(const NativeCellEditor& editor) {
    auto* const edit = new QLineEdit(ToQt(editor.Text), View.viewport());
    QRect place = CellPlace(editor.Row, editor.Column);
    const int missing = std::max(0, edit->sizeHint().height() - place.height());
    place.adjust(0, -(missing / 2), 0, missing - missing / 2);
    edit->setGeometry(place);
    edit->setObjectName("cell-edit");
    edit->selectAll();
    edit->installEventFilter(this);
    Shown = edit;
    edit->show();
    edit->setFocus();
}

void CellEditors::OpenList(const NativeCellEditor& editor) {
    auto* const list = new QListWidget(&View);
    list->setWindowFlag(Qt::Popup);
    list->setObjectName("cell-list");
    for (const std::u16string& entry : editor.Entries) list->addItem(ToQt(entry));
    list->setCurrentRow(editor.Selected);
    const QRect cell = CellPlace(editor.Row, editor.Column);
    const int rows = std::max(1, list->count());
    const int height = rows * std::max(1, list->sizeHintForRow(0)) + 2 * list->frameWidth();
    QRect place(View.viewport()->mapToGlobal(cell.bottomLeft()), QSize(cell.width(), height));
    // Above the cell where the screen ends below it.
    if (place.bottom() > View.screen()->availableGeometry().bottom())
        place.moveBottom(View.viewport()->mapToGlobal(cell.topLeft()).y());
    list->setGeometry(place);
    list->installEventFilter(this);
    QObject::connect(list, &QListWidget::itemClicked, this, [this] { Finish(true); });
    Shown = list;
    list->show();
    list->setFocus();
}

void CellEditors::Close() {
    if (Shown == nullptr) return;
    QWidget* const closed = Shown;
    Shown = nullptr;
    closed->removeEventFilter(this);
    closed->hide();
    closed->deleteLater();
}

void CellEditors::Finish(bool enters) {
    if (IsEnding || Shown == nullptr || !List.Editor) return;
    IsEnding = true;
    std::u16string text;
    if (const auto* const edit = dynamic_cast<QLineEdit*>(Shown.data())) text = FromQt(edit->text());
    if (const auto* const list = dynamic_cast<QListWidget*>(Shown.data());
        list != nullptr && list->currentItem())
        text = FromQt(list->currentItem()->text());
    // The focus goes back to the list before the editor is gone.
    if (enters || List.Editor->IsList || Shown->hasFocus()) View.setFocus();
    OnEnd(enters ? &text : nullptr);
    IsEnding = false;
}

bool CellEditors::eventFilter(QObject* watched, QEvent* event) {
    if (watched != Shown.data() || !List.Editor) return false;
    const bool isList = List.Editor->IsList;
    switch (event->type()) {
        case QEvent::KeyPress: {
            const int key = static_cast<QKeyEvent*>(event)->key();
            const bool enters =
                key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab || key == Qt::Key_Backtab;
            if (!enters && key != Qt::Key_Escape) return false;
            Finish(enters);
            return true;
        }
        case QEvent::ShortcutOverride:
            // Before Escape closes the dialog, and letters reach what bears them.
            event->accept();
            return false;
        case QEvent::FocusOut: {
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            // Its own menu, and a change to another program.
            if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason && !isList)
                Finish(true);
            return false;
        }
        case QEvent::Hide:
            if (isList) Finish(false);
            return false;
        default:
            return false;
    }
}

}  // namespace kelvarin::view
