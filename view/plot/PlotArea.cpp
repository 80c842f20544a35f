#include "view/plot/PlotArea.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "host/language/Phrase.h"

namespace kelvarin::view {
namespace {
constexpr int MarkDistance = 120;

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < 128;
}
}  // namespace

QColor SignalColor(std::size_t number, bool isDark) {
    constexpr std::array<QRgb, 8> Light = {0xFF1F6FB4, 0xFFC8501E, 0xFF2E8B3D, 0xFF8E44AD,
                                           0xFFB8860B, 0xFF0F8B8D, 0xFFC2185B, 0xFF5D6D7E};
    constexpr std::array<QRgb, 8> Dark = {0xFF6CB4F0, 0xFFF2915B, 0xFF79CF85, 0xFFC79BE0,
                                          0xFFE6C15A, 0xFF5FD0D2, 0xFFF27EAA, 0xFFB4C0CC};
    return QColor(isDark ? Dark[number % Dark.size()] : Light[number % Light.size()]);
}

PlotArea::PlotArea(PlotModel& model, QWidget* parent)
    : QCustomPlot(parent), Model(model), Ticker(new TimeTicker) {
    setAcceptDrops(true);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(240, 120);
    setAutoAddPlottableToLegend(false);
    setNoAntialiasingOnDrag(true);
    setPlottingHint(QCP::phFastPolylines, true);
    Rebuild();
}

void PlotArea::Rebuild() {
    clearPlottables();
    plotLayout()->clear();
    Drawings.clear();
    setBackground(palette().color(QPalette::Base));
    auto* const margins = new QCPMarginGroup(this);
    std::size_t color = 0;
    int row = 0;
    for (const Pane& pane : Model.Panes()) {
        AddPane(pane, color);
        QCPAxisRect* const rect = Drawings.back().Rect;
        rect->setMarginGroup(QCP::msLeft | QCP::msRight, margins);
        plotLayout()->addElement(row, 0, rect);
        if (pane.Units().empty()) {
            constexpr int LaneHeight = 34;
            const int lanes = static_cast<int>(pane.Signals.size());
            rect->setMaximumSize(QWIDGETSIZE_MAX, lanes * LaneHeight);
            rect->setSizeConstraintRect(QCPLayoutElement::scrInnerRect);
        }
        ++row;
    }
    plotLayout()->setRowSpacing(2);
    if (!Drawings.empty()) {
        QCPAxis* const last = Drawings.back().Rect->axis(QCPAxis::atBottom);
        last->setTickLabels(true);
        Drawings.back().Rect->setMinimumMargins({10, 7, 14, 4});
    }
    replot(rpImmediateRefresh);
    ShowLook();
}

void PlotArea::StyleAxis(QCPAxis* axis, const QColor& color) const {
    kelvarin::view::StyleAxis(*axis, *this, color);
}

void PlotArea::AddPane(const Pane& pane, std::size_t& color) {
    PaneDrawing drawing;
    drawing.Rect = new QCPAxisRect(this, false);
    drawing.Rect->setMinimumMargins({10, 7, 14, 2});
    QCPAxis* const times = drawing.Rect->addAxis(QCPAxis::atBottom);
    StyleAxis(times, palette().color(QPalette::Text));
    times->setTicker(Ticker);
    times->setTickLabels(false);
    const std::vector<std::string> units = pane.Units();
    for (std::size_t i = 0; i < std::max<std::size_t>(units.size(), 1); ++i) {
        QCPAxis* const axis = drawing.Rect->addAxis(i % 2 == 0 ? QCPAxis::atLeft : QCPAxis::atRight);
        StyleAxis(axis, palette().color(QPalette::Text));
        axis->ticker()->setTickCount(4);
        axis->grid()->setVisible(i == 0);
        if (i < units.size()) axis->setLabel(QString::fromStdString(units[i]));
        drawing.ValueAxes.push_back(axis);
    }
    const bool isDark = IsDark(palette());
    auto* const names = new QCPLegend;
    names->setFont(font());
    names->setTextColor(palette().color(QPalette::Text));
    names->setBorderPen(Qt::NoPen);
    QColor ground = palette().color(QPalette::Base);
    ground.setAlpha(200);
    names->setBrush(ground);
    names->setFillOrder(QCPLayoutGrid::foColumnsFirst);
    names->setMargins({4, 1, 4, 1});
    names->setIconSize(14, 10);
    drawing.Rect->insetLayout()->addElement(names, Qt::AlignTop | Qt::AlignLeft);
    names->setLayer("legend");
    const auto isLane = [](const SignalPointer& signal) { return signal->Kind() != SignalKind::Number; };
    Lane lane{0, static_cast<int>(std::count_if(pane.Signals.begin(), pane.Signals.end(), isLane)),
              !units.empty()};
    for (const SignalPointer& signal : pane.Signals) {
        const auto unit = std::find(units.begin(), units.end(), signal->Unit());
        const auto number = isLane(signal) ? 0 : static_cast<std::size_t>(unit - units.begin());
        const QColor ink = SignalColor(color++, isDark);
        QCPAxis* const axis = drawing.ValueAxes[number];
        auto* const line = new SignalDrawing(times, axis, signal, ink, lane);
        if (isLane(signal)) ++lane.Index;
        if (!units.empty()) line->addToLegend(names);
        // The first signal of a unit gives its axis the colour.
        const bool isFirst = std::none_of(drawing.Signals.begin(), drawing.Signals.end(),
                                          [axis](auto* other) { return other->valueAxis() == axis; });
        if (units.size() > 1 && !isLane(signal) && isFirst) StyleAxis(axis, ink);
        drawing.Signals.push_back(line);
    }
    if (units.empty()) NameLanes(drawing, pane);
    Drawings.push_back(std::move(drawing));
}

// The axis of a pane of bands has their names.
void PlotArea::NameLanes(const PaneDrawing& drawing, const Pane& pane) {
    const QSharedPointer<QCPAxisTickerText> names(new QCPAxisTickerText);
    const auto count = static_cast<double>(pane.Signals.size());
    for (std::size_t i = 0; i < pane.Signals.size(); ++i) {
        const QString name = QString::fromStdString(pane.Signals[i]->Name());
        names->addTick(count - static_cast<double>(i) - 0.5, name);
    }
    QCPAxis* const axis = drawing.ValueAxes.front();
    axis->setTicker(names);
    axis->setRange(0, count);
    axis->setTickLength(0);
    axis->setSubTicks(false);
    axis->grid()->setVisible(false);
}

void PlotArea::ScaleValues(const Pane& pane, PaneDrawing& drawing) const {
    const std::size_t units = pane.Units().size();
    for (std::size_t i = 0; i < units; ++i) {
        if (i < pane.FixedRanges.size()) {
            drawing.ValueAxes[i]->setRange(pane.FixedRanges[i].Lowest, pane.FixedRanges[i].Highest);
            continue;
        }
        Peaks all;
        for (const SignalDrawing* signal : drawing.Signals) {
            if (signal->valueAxis() == drawing.ValueAxes[i] && signal->Signal().Kind() == SignalKind::Number)
                all.Include(signal->Visible());
        }
        drawing.ValueAxes[i]->setRange(all.HasNumbers() ? Padded({all.Lowest, all.Highest}) : QCPRange(0, 1));
    }
}

void PlotArea::ShowLook(bool now) {
    if (Drawings.empty()) {
        replot(now ? rpImmediateRefresh : rpQueuedReplot);
        return;
    }
    const TimeRange& range = Model.Visible();
    const int width = Drawings.front().Rect->width();
    Ticker->Show(Model.Times, range, std::max(width / MarkDistance + 1, 2));
    for (std::size_t i = 0; i < Drawings.size(); ++i) {
        Drawings[i].Rect->axis(QCPAxis::atBottom)->setRange(0, range.Length());
        for (SignalDrawing* signal : Drawings[i].Signals) signal->Load(range);
        ScaleValues(Model.Panes()[i], Drawings[i]);
    }
    QCPAxis* const last = Drawings.back().Rect->axis(QCPAxis::atBottom);
    last->setLabel(QString::fromStdString(Ticker->Base()));
    replot(now ? rpImmediateRefresh : rpQueuedReplot);
}

ValueRange PlotArea::ShownRange(std::size_t pane, std::size_t axis) const {
    const QCPRange range = Drawings[pane].ValueAxes[axis]->range();
    return {range.lower, range.upper};
}

void PlotArea::Mark(std::optional<std::int64_t> time) {
    Marked = time;
    update();
}

QRect PlotArea::PlotRect() const {
    if (Drawings.empty()) return {};
    return Drawings.front().Rect->rect().united(Drawings.back().Rect->rect());
}

std::size_t PlotArea::PaneAt(const QPoint& place) const {
    const auto found = std::find_if(Drawings.begin(), Drawings.end(), [&](const PaneDrawing& drawing) {
        return drawing.Rect->outerRect().contains(place);
    });
    return static_cast<std::size_t>(found - Drawings.begin());
}

std::int64_t PlotArea::TimeAt(double x) const {
    const QRect rect = PlotRect();
    const double share = rect.width() <= 0 ? 0 : (x - rect.left()) / rect.width();
    const TimeRange& range = Model.Visible();
    return range.From + std::llround(range.Length() * std::clamp(share, -1.0, 2.0));
}

double PlotArea::PlaceOf(std::int64_t time) const {
    const QRect rect = PlotRect();
    return rect.left() + Model.Visible().OffsetOf(time) / Model.Visible().Length() * rect.width();
}

void PlotArea::DrawCursor(QPainter& painter, std::int64_t time, Qt::PenStyle style,
                          const QColor& color) const {
    const QRect rect = PlotRect();
    const double x = PlaceOf(time);
    if (x < rect.left() || x > rect.right()) return;
    painter.setPen(QPen(color, 0, style));
    painter.drawLine(QLineF(x, rect.top(), x, rect.bottom()));
}

void PlotArea::paintEvent(QPaintEvent* event) {
    QCustomPlot::paintEvent(event);
    QPainter painter(this);
    if (Drawings.empty()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap,
                         QString::fromStdString(Phrase("Tick a signal or drag it here")));
        return;
    }
    const QColor ink = palette().color(QPalette::Text);
    if (Marked) DrawCursor(painter, *Marked, Qt::SolidLine, QColor(0xD0, 0x30, 0x30));
    if (Model.Cursor) DrawCursor(painter, *Model.Cursor, Qt::SolidLine, ink);
    if (Model.Second) DrawCursor(painter, *Model.Second, Qt::DashLine, ink);
    if (Dragging != Drag::Band) return;
    QColor fill = palette().color(QPalette::Highlight);
    painter.setPen(fill);
    fill.setAlpha(50);
    painter.setBrush(fill);
    painter.drawRect(QRect(DragStart, DragLast).normalized());
}

void PlotArea::resizeEvent(QResizeEvent* event) {
    QCustomPlot::resizeEvent(event);
    ShowLook();
}

void PlotArea::changeEvent(QEvent* event) {
    QCustomPlot::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) Rebuild();
}
}  // namespace kelvarin::view
