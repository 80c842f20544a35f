// The statistics of the plotted signals as a table, and of which part of time they are.
#pragma once

#include <QLabel>
#include <QTableWidget>
#include <vector>

#include "view/model/Statistics.h"

namespace kelvarin::view {
class StatisticsView : public QWidget {
  public:
    explicit StatisticsView(QWidget* parent = nullptr);

    // Shows one row for each part; the model says how times are shown.
    void Show(const PlotModel& model, const TimeRange& range, const std::vector<SignalPart>& parts,
              const std::vector<Statistics>& results);

    // The table with its headers, as spreadsheets paste it.
    QString AsText() const;

    QTableWidget& Table() { return *Rows; }
    QString Part() const { return Caption->text(); }

  private:
    // Owned by the view.
    QLabel* Caption;
    QTableWidget* Rows;
};
}  // namespace kelvarin::view
