#include "view/plot/SignalDrawing.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "view/dialog/QtText.h"

namespace kelvarin::view {
namespace {
// Points further apart than this are marked.
constexpr double MarkedAbove = 8;

// Lines between points closer than this are steep and many: smoothed ones would take most of a picture's
// time.
constexpr double SmoothAbove = 2;

QColor Pale(const QColor& color, int alpha) {
    QColor pale = color;
    pale.setAlpha(alpha);
    return pale;
}

// True for neighbours with a value in common.
bool DoTouch(const TraceColumn& one, const TraceColumn& next) {
    return one.Pixel + 1 == next.Pixel && one.All.Lowest <= next.All.Highest &&
           next.All.Lowest <= one.All.Highest;
}
}  // namespace

QString TitleOf(const PlottedSignal& signal) {
    const QString unit = ShownText(signal.Unit());
    const QString name = ShownText(signal.Name());
    // Many headers have it already: "Druck [bar]", "Druck (bar)".
    const bool isNamed = name.contains("[" + unit + "]") || name.contains("(" + unit + ")");
    return unit.isEmpty() || isNamed ? name : name + " [" + unit + "]";
}

SignalDrawing::SignalDrawing(QCPAxis* keyAxis, QCPAxis* valueAxis,
                             std::shared_ptr<const PlottedSignal> signal, QColor color, Lane lane)
    : QCPAbstractPlottable(keyAxis, valueAxis), Shown(std::move(signal)), Ink(std::move(color)), Place(lane) {
    setName(TitleOf(*Shown));
    setSelectable(QCP::stNone);
}

bool SignalDrawing::Replace(const std::shared_ptr<const PlottedSignal>& signal) {
    const bool isAlike =
        Shown->Name() == signal->Name() && Shown->Unit() == signal->Unit() && Shown->Kind() == signal->Kind();
    if (!isAlike) return false;
    Texts.clear();  // they belong to the old one
    Shown = signal;
    return true;
}

void SignalDrawing::Load(const TimeRange& range) {
    const double ratio = mParentPlot->bufferDevicePixelRatio();
    const int columns = std::max(1, static_cast<int>(mKeyAxis->axisRect()->width() * ratio));
    ColumnWidth = mKeyAxis->axisRect()->width() / static_cast<double>(columns);
    if (Shown->Kind() == SignalKind::Text) {
        Texts = Shown->TextsOf(range, columns);
        return;
    }
    Line = Shown->TraceOf(range, columns);
    FindVisible(range.Length());
}

void SignalDrawing::FindVisible(double length) {
    Seen = {};
    if (Line.IsDense) {
        Seen = Line.All();
        return;
    }
    for (const TracePoint& point : Line.Points) {
        if (point.Offset >= 0 && point.Offset <= length) Seen.Include(PeaksOf(std::span(&point.Value, 1)));
    }
    if (!Seen.HasNumbers()) Seen = Line.All();
}

QCPRange SignalDrawing::getKeyRange(bool& foundRange, QCP::SignDomain) const {
    foundRange = false;
    return {};
}

QCPRange SignalDrawing::getValueRange(bool& foundRange, QCP::SignDomain, const QCPRange&) const {
    foundRange = Seen.HasNumbers();
    return {Seen.Lowest, Seen.Highest};
}

double SignalDrawing::PixelOf(const TraceColumn& column) const {
    return Left() + (column.Pixel + 0.5) * ColumnWidth;
}

// Beyond the plot a value may be anywhere: a painter's numbers are limited.
double SignalDrawing::YOf(double value) const {
    constexpr double Far = 10'000;
    const double y = mValueAxis->coordToPixel(value);
    return std::clamp(y, mValueAxis->axisRect()->top() - Far, mValueAxis->axisRect()->bottom() + Far);
}

QRectF SignalDrawing::LaneRect() const {
    constexpr double Narrow = 16;
    const QRectF all = mKeyAxis->axisRect()->rect();
    const double height =
        Place.IsAtBottom ? std::min(Narrow, all.height() / (2 * Place.Count)) : all.height() / Place.Count;
    const double top = Place.IsAtBottom ? all.bottom() - height * (Place.Count - Place.Index)
                                        : all.top() + height * Place.Index;
    const double margin = std::min(3.0, height * 0.15);
    return {all.left(), top + margin, all.width(), height - 2 * margin};
}

void SignalDrawing::draw(QCPPainter* painter) {
    if (Shown->Kind() == SignalKind::Text) {
        DrawTexts(painter);
    } else if (Shown->Kind() == SignalKind::Truth) {
        DrawBands(painter);
    } else if (Line.IsDense) {
        DrawColumns(painter);
    } else {
        DrawPoints(painter);
    }
}

void SignalDrawing::drawLegendIcon(QCPPainter* painter, const QRectF& rect) const {
    painter->setAntialiasing(false);
    painter->fillRect(QRectF(rect.left(), rect.center().y() - 2, rect.width(), 4), Ink);
}

// Each pixel of a column is painted once: what leads from one column to the next is drawn only where the two
// don't touch. Rectangles of whole pixels are filled many times faster than lines are drawn.
void SignalDrawing::DrawColumns(QCPPainter* painter) const {
    const bool isVector = painter->modes().testFlag(QCPPainter::pmVectorized);
    const QRectF all = mKeyAxis->axisRect()->rect();
    painter->setAntialiasing(false);
    QVector<QLineF> lines;
    const TraceColumn* before = nullptr;
    for (const TraceColumn& column : Line.Columns) {
        const double x = PixelOf(column);
        if (column.All.HasInfinity) DrawInfinity(painter, x, true);
        if (column.All.HasMinusInfinity) DrawInfinity(painter, x, false);
        const bool isJoined = before != nullptr && !column.IsAfterGap && std::isfinite(before->Last) &&
                              std::isfinite(column.First) && !DoTouch(*before, column);
        if (isJoined) lines.push_back({PixelOf(*before), YOf(before->Last), x, YOf(column.First)});
        before = &column;
        if (!column.All.HasNumbers()) continue;
        const double low = YOf(column.All.Lowest);
        const double high = YOf(column.All.Highest);
        if (isVector) {
            // A line of no length is not drawn by every painter.
            lines.push_back({x, low, x, std::min(high, low - 0.5)});
            continue;
        }
        const double top = std::max(high - ColumnWidth / 2, all.top());
        const double bottom = std::min(low + ColumnWidth / 2, all.bottom() + 1);
        if (top < bottom) painter->fillRect(QRectF(x - ColumnWidth / 2, top, ColumnWidth, bottom - top), Ink);
    }
    painter->setPen(QPen(Ink, 0));
    painter->drawLines(lines);
}

void SignalDrawing::DrawPoints(QCPPainter* painter) const {
    const double width = mKeyAxis->axisRect()->width();
    const bool isSmooth = static_cast<double>(Line.Points.size()) * SmoothAbove < width;
    const QPen pen(Ink, isSmooth ? 1.3 : 0);
    painter->setAntialiasing(isSmooth);
    painter->setPen(pen);
    const auto isNumber = [](const TracePoint& point) { return std::isfinite(point.Value); };
    const auto place = [this](const TracePoint& point) {
        return QPointF(mKeyAxis->coordToPixel(point.Offset), YOf(point.Value));
    };
    QVector<QPointF> run;
    QVector<QPointF> marks;
    const auto end = [&] {
        if (run.size() > 1) painter->drawPolyline(run.data(), static_cast<int>(run.size()));
        if (run.size() == 1) marks.push_back(run.front());
        run.clear();
    };
    for (const TracePoint& point : Line.Points) {
        if (point.IsAfterGap || !isNumber(point)) end();
        if (std::isinf(point.Value))
            DrawInfinity(painter, mKeyAxis->coordToPixel(point.Offset), point.Value > 0);
        painter->setPen(pen);
        if (isNumber(point)) run.push_back(place(point));
    }
    end();
    if (static_cast<double>(Line.Points.size()) * MarkedAbove < width) {
        marks.clear();
        for (const TracePoint& point : Line.Points) {
            if (isNumber(point)) marks.push_back(place(point));
        }
    }
    painter->setBrush(Ink);
    painter->setPen(Qt::NoPen);
    for (const QPointF& mark : marks) painter->drawEllipse(mark, 2.5, 2.5);
    painter->setBrush(Qt::NoBrush);
}

void SignalDrawing::DrawInfinity(QCPPainter* painter, double x, bool isAbove) const {
    const QRectF all = mKeyAxis->axisRect()->rect();
    const double tip = isAbove ? all.top() + 1 : all.bottom() - 1;
    const double base = isAbove ? tip + 7 : tip - 7;
    painter->setPen(Qt::NoPen);
    painter->setBrush(Ink);
    painter->drawPolygon(QPolygonF({{x, tip}, {x - 4, base}, {x + 4, base}}));
    painter->setBrush(Qt::NoBrush);
}

void SignalDrawing::DrawBands(QCPPainter* painter) const {
    painter->setAntialiasing(false);
    const QRectF lane = LaneRect();
    const auto fill = [&](double from, double to, int alpha) {
        const double left = std::max(from, lane.left());
        const double right = std::min(to, lane.right());
        if (right > left)
            painter->fillRect(QRectF(left, lane.top(), right - left, lane.height()), Pale(Ink, alpha));
    };
    painter->setPen(QPen(Pale(Ink, 90), 0));
    painter->drawLine(QLineF(lane.left(), lane.bottom(), lane.right(), lane.bottom()));
    if (Line.IsDense) {
        for (const TraceColumn& column : Line.Columns) {
            if (!column.All.HasNumbers() || column.All.Highest == 0) continue;
            const double x = Left() + column.Pixel * ColumnWidth;
            fill(x, x + ColumnWidth, column.All.Lowest == 0 ? 130 : 220);
        }
        return;
    }
    // A value is true until the next sample; the last one shows where it is.
    for (std::size_t i = 0; i < Line.Points.size(); ++i) {
        if (Line.Points[i].Value != 1) continue;
        const double x = mKeyAxis->coordToPixel(Line.Points[i].Offset);
        const bool isHeld = i + 1 < Line.Points.size() && !Line.Points[i + 1].IsAfterGap;
        fill(x, isHeld ? mKeyAxis->coordToPixel(Line.Points[i + 1].Offset) : x + 2, 220);
    }
}

void SignalDrawing::DrawTexts(QCPPainter* painter) const {
    painter->setAntialiasing(false);
    const QRectF lane = LaneRect();
    const QFontMetricsF metrics(painter->font());
    bool isOdd = false;
    for (const TextTrace& span : Texts) {
        const double from = std::max(mKeyAxis->coordToPixel(span.Offset), lane.left());
        const double to = std::min(std::max(mKeyAxis->coordToPixel(span.End), from + 2), lane.right());
        isOdd = !isOdd;
        if (to <= from) continue;
        const QRectF box(from, lane.top(), to - from, lane.height());
        painter->fillRect(box, Pale(Ink, span.Text == nullptr ? 150 : isOdd ? 60 : 35));
        painter->setPen(QPen(Ink, 0));
        painter->drawLine(QLineF(from, lane.top(), from, lane.bottom()));
        if (span.Text == nullptr || box.width() < 12) continue;
        const QRectF inner = box.adjusted(4, 0, -2, 0);
        // Of a long text only what may have room is measured.
        const auto most = static_cast<std::size_t>(box.width());
        const QString text = ShownText(std::string_view(*span.Text).substr(0, most));
        painter->setPen(mParentPlot->palette().color(QPalette::Text));
        painter->drawText(inner, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                          metrics.elidedText(text, Qt::ElideRight, inner.width()));
    }
}
}  // namespace kelvarin::view
