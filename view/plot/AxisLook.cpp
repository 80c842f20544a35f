#include "view/plot/AxisLook.h"

#include <algorithm>
#include <cmath>

namespace kelvarin::view {
QCPRange Padded(ValueRange range) {
    constexpr double Most = 1e240;
    double lowest = std::clamp(range.Lowest, -Most, Most);
    double highest = std::clamp(range.Highest, -Most, Most);
    const double size = highest - lowest;
    const double least = std::max(std::abs(lowest), std::abs(highest)) * 1e-12;
    const double room = size <= least ? std::max(std::abs(highest) * 0.05, 0.5) : size * 0.06;
    return {lowest - room, highest + room};
}

void StyleAxis(QCPAxis& axis, const QWidget& look, const QColor& color) {
    axis.setBasePen(QPen(color));
    axis.setTickPen(QPen(color));
    axis.setSubTickPen(QPen(color));
    axis.setTickLabelColor(color);
    axis.setLabelColor(color);
    axis.setTickLabelFont(look.font());
    axis.setLabelFont(look.font());
    QColor grid = look.palette().color(QPalette::Text);
    grid.setAlpha(40);
    axis.grid()->setPen(QPen(grid, 0, Qt::SolidLine));
    axis.grid()->setZeroLinePen(QPen(grid, 0, Qt::SolidLine));
}
}  // namespace kelvarin::view
