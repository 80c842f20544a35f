// Lists in report view.
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTreeView>

#include "platform/framework/CellEditor.h"
#include "platform/framework/UserInput.h"
#include "platform/framework/portable/DialogFront.h"
#include "view/dialog/CellEditors.h"
#include "view/dialog/ControlWidget.h"
#include "view/dialog/ListModel.h"

namespace kelvarin::view {
namespace {

// A view that takes the focus without moving to a row: no key was pressed.
class ReportView : public QTreeView {
  public:
    using QTreeView::QTreeView;

  protected:
    void focusInEvent(QFocusEvent* event) override {
        QAbstractScrollArea::focusInEvent(event);
        viewport()->update();
    }
};

class ListWidget : public ControlWidget, public QObject {
  public:
    explicit ListWidget(const ControlParts& parts)
        : ControlWidget(parts, new ReportView(parts.Parent)),
          Model(parts.Control, this),
          Editors(View(), parts.Control, [this](const std::u16string* text) { EndEditor(text); }) {
        View().setModel(&Model);
        View().setRootIsDecorated(false);
        View().setUniformRowHeights(true);
        View().setAllColumnsShowFocus(true);
        View().setEditTriggers(QAbstractItemView::NoEditTriggers);
        View().setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
        QHeaderView& header = *View().header();
        header.setMinimumSectionSize(0);
        header.setStretchLastSection(false);
        header.setSectionsMovable(false);
        View().installEventFilter(this);
        View().viewport()->installEventFilter(this);
        Connect();
    }
    ~ListWidget() override { View().setModel(nullptr); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress && watched == &View())
            return TakeKey(*static_cast<QKeyEvent*>(event));
        if (watched != View().viewport()) return false;
        if (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseButtonDblClick)
            return false;
        return TakePress(*static_cast<QMouseEvent*>(event));
    }

  protected:
    void ShowContent() override {
        Model.Refresh();
        for (int column = 0; column < Model.columnCount(); ++column) {
            const int width = Parts.Control.Columns[static_cast<std::size_t>(column)].Width;
            if (View().header()->sectionSize(column) != width) View().header()->resizeSection(column, width);
        }
        View().horizontalScrollBar()->setValue(Parts.Control.ScrollPos);
        ShowMarks();
        Editors.Show();
    }

  private:
    QTreeView& View() const { return static_cast<QTreeView&>(Widget()); }
    int Id() const { return Parts.Control.Id; }

    void Connect() {
        connect(View().header(), &QHeaderView::sectionResized, this, [this](int column, int, int width) {
            Do([&] { UserDragColumn(Parts.Page, Id(), column, width); });
        });
        connect(View().horizontalScrollBar(), &QScrollBar::valueChanged, this,
                [this](int value) { Parts.Control.ScrollPos = value; });
        connect(View().selectionModel(), &QItemSelectionModel::currentRowChanged, this,
                [this](const QModelIndex& current) {
                    if (current.isValid()) Do([&] { EnterRow(Parts.Page, Id(), current.row()); });
                });
    }

    // The row with a mark, or -1.
    int MarkedRow(unsigned mark) const {
        const auto& rows = Parts.Control.Rows;
        for (std::size_t row = 0; row < rows.size(); ++row) {
            if ((rows[row].State & mark) != 0) return static_cast<int>(row);
        }
        return -1;
    }

    void ShowMarks() {
        QItemSelectionModel& selection = *View().selectionModel();
        const QModelIndex focused = Model.index(MarkedRow(CListCtrl::Focused), 0);
        if (selection.currentIndex().row() != focused.row())
            selection.setCurrentIndex(focused, QItemSelectionModel::NoUpdate);
        const QModelIndex selected = Model.index(MarkedRow(CListCtrl::Selected), 0);
        selection.select(selected, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }

    bool TakeKey(const QKeyEvent& key) {
        const int row = MarkedRow(CListCtrl::Focused);
        const bool isDropDown = key.key() == Qt::Key_F4 ||
                                (key.key() == Qt::Key_Down && key.modifiers().testFlag(Qt::AltModifier));
        if (key.key() == Qt::Key_Space) {
            Do([this] { PressListKey(Parts.Page, Id(), ListKey::Space); });
        } else if (key.key() == Qt::Key_F2) {
            Do([&] { OpenCell(Parts.Page, Id(), row, 0); });
        } else if (isDropDown) {
            Do([&] { OpenCell(Parts.Page, Id(), row, 1); });
        } else {
            return false;
        }
        return true;
    }

    bool TakePress(const QMouseEvent& press) {
        if (press.button() != Qt::LeftButton) return true;
        const QModelIndex cell = View().indexAt(press.position().toPoint());
        if (!cell.isValid()) return true;
        const int x = press.position().toPoint().x() - View().visualRect(cell).left();
        const bool onCheckBox = cell.column() == 0 && x < CheckBoxWidth(View());
        if (press.type() == QEvent::MouseButtonDblClick && !onCheckBox) {
            Do([&] { OpenCell(Parts.Page, Id(), cell.row(), cell.column()); });
        } else {
            Do([&] { UserClickRow(Parts.Page, Id(), cell.row(), onCheckBox); });
        }
        return true;
    }

    void EndEditor(const std::u16string* text) {
        CListCtrl list(&Parts.Control);
        Do([&] { text != nullptr ? UserEnterCell(list, *text) : GiveUpCell(Parts.Control); });
    }

    ListModel Model;
    CellEditors Editors;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeList(const ControlParts& parts) {
    return std::make_unique<ListWidget>(parts);
}

}  // namespace kelvarin::view
