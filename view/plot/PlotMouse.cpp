// What the mouse does in the plots: the wheel and dragging move along the times, with Ctrl along the values;
// dragging with Ctrl or the right button draws a rubber band; a click sets the cursor, with Shift the second.
#include <algorithm>
#include <cmath>

#include "view/plot/PlotArea.h"

namespace kelvarin::view {
namespace {
constexpr int ClickRadius = 4;

void Tell(const std::function<void()>& listener) {
    if (listener) listener();
}
}  // namespace

void PlotArea::ZoomValues(std::size_t pane, double factor, double y) {
    if (pane >= Drawings.size()) return;
    const std::size_t units = Model.Panes()[pane].Units().size();
    std::vector<ValueRange> ranges;
    for (std::size_t i = 0; i < units; ++i) {
        QCPAxis* const axis = Drawings[pane].ValueAxes[i];
        const double center = axis->pixelToCoord(y);
        const QCPRange range = axis->range();
        ranges.push_back(
            {center + (range.lower - center) * factor, center + (range.upper - center) * factor});
    }
    Model.ShowValues(pane, std::move(ranges));
}

void PlotArea::wheelEvent(QWheelEvent* event) {
    const QRect rect = PlotRect();
    if (rect.isEmpty()) return;
    const double steps =
        (event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x()) / 120.0;
    const double factor = std::pow(0.8, steps);
    const double share = std::clamp((event->position().x() - rect.left()) / rect.width(), 0.0, 1.0);
    if (event->modifiers() & Qt::ControlModifier) {
        ZoomValues(PaneAt(event->position().toPoint()), factor, event->position().y());
    } else if ((event->modifiers() & Qt::ShiftModifier) || event->angleDelta().y() == 0) {
        Model.Pan(-0.1 * steps);
    } else {
        Model.Zoom(factor, share);
    }
    event->accept();
    ShowLook();
    Tell(OnLookChanged);
}

void PlotArea::mousePressEvent(QMouseEvent* event) {
    DragStart = DragLast = event->pos();
    if (Drawings.empty()) return;
    const bool isBand = event->button() == Qt::RightButton || (event->modifiers() & Qt::ControlModifier) != 0;
    if (isBand) {
        Dragging = Drag::Band;
    } else if (event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton) {
        Dragging = Drag::Pan;
    }
}

void PlotArea::mouseMoveEvent(QMouseEvent* event) {
    if (Dragging == Drag::None) return;
    const bool isFirst = DragLast == DragStart;
    const QPoint before = DragLast;
    if (isFirst && (event->pos() - DragStart).manhattanLength() <= ClickRadius) return;
    DragLast = event->pos();
    if (Dragging == Drag::Band) {
        update();
        return;
    }
    if (isFirst) Model.BeginMovement();
    Model.Pan(static_cast<double>(before.x() - DragLast.x()) / std::max(PlotRect().width(), 1));
    ShowLook();
    Tell(OnLookChanged);
}

void PlotArea::mouseReleaseEvent(QMouseEvent* event) {
    const Drag ended = Dragging;
    Dragging = Drag::None;
    if (ended == Drag::None) return;
    const bool isClick = DragLast == DragStart;
    if (ended == Drag::Band && !isClick) {
        ShowBand(QRect(DragStart, event->pos()).normalized());
    } else if (isClick && event->button() == Qt::LeftButton && PlotRect().contains(event->pos())) {
        const bool isSecond = (event->modifiers() & Qt::ShiftModifier) != 0;
        (isSecond ? Model.Second : Model.Cursor) = TimeAt(event->position().x());
        Tell(OnCursorChanged);
    }
    update();
}

// Times always; values too if the band is more than a strip.
void PlotArea::ShowBand(const QRect& band) {
    constexpr int Strip = 20;
    constexpr int Narrow = 3;
    if (band.width() < Narrow) return;
    const std::size_t pane = PaneAt(band.center());
    const TimeRange range{TimeAt(band.left()), TimeAt(band.right())};
    Model.ShowTimes({range.From, std::max(range.To, range.From + 1)});
    if (band.height() > Strip && pane < Drawings.size()) {
        std::vector<ValueRange> ranges;
        for (std::size_t i = 0; i < Model.Panes()[pane].Units().size(); ++i) {
            const QCPAxis* const axis = Drawings[pane].ValueAxes[i];
            ranges.push_back({axis->pixelToCoord(band.bottom()), axis->pixelToCoord(band.top())});
        }
        Model.ShowValues(pane, std::move(ranges), true);
    }
    ShowLook();
    Tell(OnLookChanged);
}

void PlotArea::mouseDoubleClickEvent(QMouseEvent*) {
    Model.FitAll();
    ShowLook();
    Tell(OnLookChanged);
}

void PlotArea::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasFormat(SignalMimeType)) event->acceptProposedAction();
}

void PlotArea::dropEvent(QDropEvent* event) {
    const QByteArray names = event->mimeData()->data(SignalMimeType);
    if (OnDropped) OnDropped(names, PaneAt(event->position().toPoint()));
    event->acceptProposedAction();
}
}  // namespace kelvarin::view
