// A list of the dialog as a model of rows and columns.
#pragma once

#include <QAbstractTableModel>

#include "platform/framework/Controls.h"

namespace kelvarin::view {

// Reads the list whenever something is shown: nothing is copied.
class ListModel : public QAbstractTableModel {
  public:
    ListModel(NativeWindow& list, QObject* parent) : QAbstractTableModel(parent), List(&list) {}

    // Says that the list may be another one now.
    void Refresh();

    bool HasCheckBoxes() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex&) const override {
        return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    }

  private:
    const CListCtrl List;
    int Rows = 0, Columns = 0;  // at the last refresh
};

}  // namespace kelvarin::view
