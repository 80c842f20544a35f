// How axes look, and what part of the numbers they have.
#pragma once

#include "view/plot/CustomPlot.h"

#include "view/model/PlotModel.h"

namespace kelvarin::view {
// A range with some room at both ends, within what axes can show.
QCPRange Padded(ValueRange range);

// Gives an axis a colour, with the fonts and the pale grid of a widget.
void StyleAxis(QCPAxis& axis, const QWidget& look, const QColor& color);
}  // namespace kelvarin::view
