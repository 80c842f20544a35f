#include "view/plot/CrossArea.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "view/plot/AxisLook.h"
#include "view/plot/PlotArea.h"

namespace kelvarin::view {
// What is drawn between the axes.
class CrossArea::Drawing : public QCPAbstractPlottable {
  public:
    explicit Drawing(CrossArea& area) : QCPAbstractPlottable(area.xAxis, area.yAxis), Area(area) {
        setSelectable(QCP::stNone);
    }

    double selectTest(const QPointF&, bool, QVariant*) const override { return -1; }
    QCPRange getKeyRange(bool& foundRange, QCP::SignDomain) const override {
        foundRange = false;
        return {};
    }
    QCPRange getValueRange(bool& foundRange, QCP::SignDomain, const QCPRange&) const override {
        foundRange = false;
        return {};
    }

  protected:
    void draw(QCPPainter* painter) override {
        if (Area.Plot == nullptr) return;
        const QColor ink = SignalColor(0, Area.palette().color(QPalette::Base).lightness() < 128);
        if (Area.Plot->Cells.empty()) {
            DrawPoints(*painter, ink);
        } else {
            DrawCells(*painter, ink);
        }
    }

    void drawLegendIcon(QCPPainter*, const QRectF&) const override {}

  private:
    // Beyond the plot a value may be anywhere: a painter's numbers are limited.
    QPointF PlaceOf(double x, double y) const {
        constexpr double Far = 30'000;
        const QPointF center = mKeyAxis->axisRect()->rect().center();
        return {std::clamp(mKeyAxis->coordToPixel(x), center.x() - Far, center.x() + Far),
                std::clamp(mValueAxis->coordToPixel(y), center.y() - Far, center.y() + Far)};
    }

    void DrawPoints(QCPPainter& painter, const QColor& ink) const {
        constexpr std::size_t MostMarked = 500;
        painter.setAntialiasing(true);
        painter.setPen(QPen(ink, 1.3));
        const std::vector<CrossPoint>& points = Area.Plot->Points;
        QVector<QPointF> run;
        const auto end = [&] {
            if (run.size() > 1) painter.drawPolyline(run.data(), static_cast<int>(run.size()));
            run.clear();
        };
        for (const CrossPoint& point : points) {
            if (point.IsAfterGap) end();
            run.push_back(PlaceOf(point.X, point.Y));
        }
        end();
        painter.setPen(Qt::NoPen);
        painter.setBrush(ink);
        for (std::size_t i = 0; i < points.size(); ++i) {
            const bool isAlone = points[i].IsAfterGap && (i + 1 == points.size() || points[i + 1].IsAfterGap);
            if (points.size() <= MostMarked || isAlone)
                painter.drawEllipse(PlaceOf(points[i].X, points[i].Y), 2.5, 2.5);
        }
        painter.setBrush(Qt::NoBrush);
    }

    void DrawCells(QCPPainter& painter, const QColor& ink) const {
        constexpr std::size_t Across = CrossPlot::CellsAcross;
        painter.setAntialiasing(false);
        const CrossPlot& plot = *Area.Plot;
        const auto edge = [](const ValueRange& range, double cell) {
            return range.Lowest + (range.Highest - range.Lowest) * (cell - 0.5) / (Across - 1);
        };
        for (std::size_t line = 0; line < Across; ++line) {
            for (std::size_t cell = 0; cell < Across; ++cell) {
                if (!plot.Cells[line * Across + cell]) continue;
                std::size_t last = cell;
                while (last + 1 < Across && plot.Cells[line * Across + last + 1]) ++last;
                const QPointF low =
                    PlaceOf(edge(plot.X, static_cast<double>(cell)), edge(plot.Y, static_cast<double>(line)));
                const QPointF high = PlaceOf(edge(plot.X, static_cast<double>(last) + 1),
                                             edge(plot.Y, static_cast<double>(line) + 1));
                const QRectF box(low.x(), high.y(), std::max(high.x() - low.x(), 1.0),
                                 std::max(low.y() - high.y(), 1.0));
                painter.fillRect(box, ink);
                cell = last;
            }
        }
    }

    const CrossArea& Area;
};

CrossArea::CrossArea(QWidget* parent) : QCustomPlot(parent), Pairs(new Drawing(*this)) {
    setMinimumSize(160, 100);
    setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
    xAxis->ticker()->setTickCount(5);
    yAxis->ticker()->setTickCount(4);
    TakeColors();
}

void CrossArea::TakeColors() {
    setBackground(palette().color(QPalette::Base));
    for (QCPAxis* const axis : {xAxis, yAxis}) StyleAxis(*axis, *this, palette().color(QPalette::Text));
}

void CrossArea::Show(std::shared_ptr<const CrossPlot> plot, const QString& titleX, const QString& titleY) {
    Plot = std::move(plot);
    xAxis->setLabel(titleX);
    yAxis->setLabel(titleY);
    FitAll();
}

void CrossArea::FitAll() {
    const bool hasPairs = Plot != nullptr && Plot->Pairs != 0;
    xAxis->setRange(hasPairs ? Padded(Plot->X) : QCPRange(0, 1));
    yAxis->setRange(hasPairs ? Padded(Plot->Y) : QCPRange(0, 1));
    replot(rpQueuedReplot);
}

void CrossArea::Mark(std::optional<CrossPoint> first, std::optional<CrossPoint> second) {
    First = first;
    Second = second;
    update();
}

void CrossArea::DrawMark(QPainter& painter, const CrossPoint& point, Qt::PenStyle style) const {
    constexpr double Radius = 6;
    const QPointF place(xAxis->coordToPixel(point.X), yAxis->coordToPixel(point.Y));
    if (!axisRect()->rect().contains(place.toPoint())) return;
    painter.setPen(QPen(palette().color(QPalette::Text), 1.5, style));
    painter.drawEllipse(place, Radius, Radius);
}

void CrossArea::paintEvent(QPaintEvent* event) {
    QCustomPlot::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (First) DrawMark(painter, *First, Qt::SolidLine);
    if (Second) DrawMark(painter, *Second, Qt::DotLine);
}

void CrossArea::mouseDoubleClickEvent(QMouseEvent*) {
    FitAll();
}

void CrossArea::changeEvent(QEvent* event) {
    QCustomPlot::changeEvent(event);
    if (event->type() != QEvent::PaletteChange && event->type() != QEvent::FontChange) return;
    TakeColors();
    replot(rpQueuedReplot);
}
}  // namespace kelvarin::view
