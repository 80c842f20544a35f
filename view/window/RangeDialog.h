// The ranges of the value axes as numbers.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <cstddef>
#include <vector>

#include "view/plot/PlotArea.h"

namespace kelvarin::view {
// Shows for each value axis its lowest and highest number, and for each plot whether it fits what is visible.
// OK is there only while all numbers are such and each range has a size.
class RangeDialog : public QDialog {
  public:
    // The ranges at first are those that the area shows of the model.
    RangeDialog(const PlotModel& model, const PlotArea& area, QWidget* parent);

    // Makes what was chosen one step of the model.
    void Apply(PlotModel& model) const;

  private:
    // Owned by the dialog.
    struct PaneFields {
        std::size_t Pane = 0;
        QCheckBox* Fits = nullptr;
        std::vector<QLineEdit*> Bounds;  // the lowest and the highest of each axis
    };

    void Connect(const PaneFields& fields);
    void Check();

    std::vector<PaneFields> Fields;
    QPushButton* Ok;
};
}  // namespace kelvarin::view
