// One signal drawn over another, with marks where the cursors are.
#pragma once

#include "view/plot/CustomPlot.h"

#include <memory>
#include <optional>

#include "view/model/CrossPlot.h"

namespace kelvarin::view {
// The wheel zooms and dragging moves; a double click shows all pairs again.
class CrossArea : public QCustomPlot {
  public:
    explicit CrossArea(QWidget* parent = nullptr);

    // Shows pairs, all of them; null shows none. The titles are those of the axes.
    void Show(std::shared_ptr<const CrossPlot> plot, const QString& titleX, const QString& titleY);

    // The pairs at the cursors.
    void Mark(std::optional<CrossPoint> first, std::optional<CrossPoint> second);

    const CrossPlot* Shown() const { return Plot.get(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    class Drawing;

    void TakeColors();
    void FitAll();
    void DrawMark(QPainter& painter, const CrossPoint& point, Qt::PenStyle style) const;

    std::shared_ptr<const CrossPlot> Plot;
    std::optional<CrossPoint> First, Second;
    Drawing* Pairs;  // owned by the plot
};
}  // namespace kelvarin::view
