// The values of all plotted signals at the cursors, and their differences.
#pragma once

#include <QTableWidget>

#include "view/model/PlotModel.h"

namespace kelvarin::view {
class CursorTable : public QTableWidget {
  public:
    explicit CursorTable(QWidget* parent = nullptr);

    void Show(const PlotModel& model);
};
}  // namespace kelvarin::view
