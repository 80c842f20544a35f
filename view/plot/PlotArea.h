// The plots of a model, drawn one below the other, and what the mouse and the keys do in them.
#pragma once

#include "view/plot/CustomPlot.h"

#include <functional>
#include <optional>
#include <vector>

#include "view/model/PlotModel.h"
#include "view/plot/AxisLook.h"
#include "view/plot/SignalDrawing.h"
#include "view/plot/TimeTicker.h"

namespace kelvarin::view {
class PlotArea : public QCustomPlot {
  public:
    // The model outlives the area.
    explicit PlotArea(PlotModel& model, QWidget* parent = nullptr);

    // Called after the mouse or a key has changed the model.
    std::function<void()> OnLookChanged, OnCursorChanged;

    // Signals dropped on a pane, or below all with the number of panes; the names that SignalMimeType
    // carries.
    std::function<void(const QByteArray& names, std::size_t pane)> OnDropped;
    static constexpr const char* SignalMimeType = "application/x-kelvarin-signals";

    // After signals have come or gone, or the palette is another.
    void Rebuild();

    // After another part is to be seen. `now` draws before it returns.
    void ShowLook(bool now = false);

    // After the cursors or the mark have moved.
    void ShowCursors() { update(); }

    // A moment that is marked beside the cursors, such as that of a finding; none takes it away.
    void Mark(std::optional<std::int64_t> time);

    // The pane at a place of the widget; the number of panes where there is none.
    std::size_t PaneAt(const QPoint& place) const;

    // The moment at a place of the widget, and where a moment is.
    std::int64_t TimeAt(double x) const;
    double PlaceOf(std::int64_t time) const;

    // The range that a value axis of a pane shows, both by their numbers.
    ValueRange ShownRange(std::size_t pane, std::size_t axis) const;

    // Where all plots are, without their axes; empty without a plot.
    QRect PlotRect() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

    // PlotMouse.cpp
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    struct PaneDrawing {
        QCPAxisRect* Rect = nullptr;
        std::vector<QCPAxis*> ValueAxes;  // by unit
        std::vector<SignalDrawing*> Signals;
    };
    enum class Drag { None, Pan, Band };

    void AddPane(const Pane& pane, std::size_t& color);
    void StyleAxis(QCPAxis* axis, const QColor& color) const;
    void NameLanes(const PaneDrawing& drawing, const Pane& pane);
    void ScaleValues(const Pane& pane, PaneDrawing& drawing) const;
    void DrawCursor(QPainter& painter, std::int64_t time, Qt::PenStyle style, const QColor& color) const;

    // PlotMouse.cpp
    void ZoomValues(std::size_t pane, double factor, double y);
    void ShowBand(const QRect& band);

    PlotModel& Model;
    std::vector<PaneDrawing> Drawings;
    QSharedPointer<TimeTicker> Ticker;
    std::optional<std::int64_t> Marked;

    Drag Dragging = Drag::None;
    QPoint DragStart, DragLast;
};

// A colour that is told from its neighbours, on a light or a dark ground.
QColor SignalColor(std::size_t number, bool isDark);
}  // namespace kelvarin::view
