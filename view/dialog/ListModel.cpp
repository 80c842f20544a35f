#include "view/dialog/ListModel.h"

#include <QApplication>
#include <QColor>
#include <QFontMetrics>

#include "view/dialog/QtText.h"

namespace kelvarin::view {
namespace {

constexpr unsigned CheckBoxStyle = 4;
constexpr unsigned CheckedImage = 0x2000;

QVariant BackgroundOf(std::uint32_t color) {
    constexpr std::uint32_t Default = 0xFF000000;
    if (color == Default) return {};
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                  static_cast<int>(color >> 16 & 0xFF));
}

}  // namespace

void ListModel::Refresh() {
    if (Rows != List.GetItemCount() || Columns != List.GetColumnCount()) {
        beginResetModel();
        Rows = List.GetItemCount();
        Columns = List.GetColumnCount();
        endResetModel();
    } else if (Columns > 0) {
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, Columns - 1);
        if (Rows > 0) Q_EMIT dataChanged(index(0, 0), index(Rows - 1, Columns - 1));
    }
}

bool ListModel::HasCheckBoxes() const {
    return (List.GetExtendedStyle() & CheckBoxStyle) != 0;
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Rows;
}

int ListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Columns;
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    const int row = index.row();
    const int column = index.column();
    // A step that runs may have taken rows away that the view still has.
    if (row >= List.GetItemCount() || column >= List.GetColumnCount()) return {};
    switch (role) {
        case Qt::DisplayRole:
            return ToQt(List.GetItemText(row, column));
        case Qt::SizeHintRole: {
            constexpr int Gap = 5;  // pixels between the texts of two rows
            return QSize(0, QFontMetrics(QApplication::font()).height() + Gap);
        }
        case Qt::BackgroundRole:
            return BackgroundOf(List.GetColumnBackground(column));
        case Qt::CheckStateRole: {
            if (column != 0 || !HasCheckBoxes()) return {};
            const bool isChecked = List.GetItemState(row, CListCtrl::CheckBoxMask) == CheckedImage;
            return isChecked ? Qt::Checked : Qt::Unchecked;
        }
        default:
            return {};
    }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section >= List.GetColumnCount()) return {};
    if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    return role == Qt::DisplayRole ? ToQt(List.GetColumnHeading(section)) : QVariant();
}

}  // namespace kelvarin::view
