// How one signal is drawn in a plot.
#pragma once

#include "view/plot/CustomPlot.h"

#include <memory>
#include <vector>

#include "view/model/PlottedSignal.h"

namespace kelvarin::view {
// The part of a pane's height in which bands are drawn: lane `Index` of `Count`, from the top; the axes are
// those of the signal's pane.
struct Lane {
    int Index = 0, Count = 1;
    bool IsAtBottom = false;  // narrow lanes, with lines above them
};

// The name of a signal with its unit, as legends have it.
QString TitleOf(const PlottedSignal& signal);

// Draws what Load has last taken from the signal. Its key axis has nanoseconds from the start of the range.
class SignalDrawing : public QCPAbstractPlottable {
  public:
    SignalDrawing(QCPAxis* keyAxis, QCPAxis* valueAxis, std::shared_ptr<const PlottedSignal> signal,
                  QColor color, Lane lane);

    const PlottedSignal& Signal() const { return *Shown; }
    const QColor& Color() const { return Ink; }

    // Takes the signal's place for another one that is drawn alike, of which nothing is shown before Load.
    // False, with nothing done, if it isn't: another name, unit or kind.
    bool Replace(const std::shared_ptr<const PlottedSignal>& signal);

    // Takes what is to be drawn of a range in as many columns as the plot is wide.
    void Load(const TimeRange& range);

    // Of the values that are visible.
    const Peaks& Visible() const { return Seen; }

    double selectTest(const QPointF&, bool, QVariant*) const override { return -1; }
    QCPRange getKeyRange(bool& foundRange, QCP::SignDomain) const override;
    QCPRange getValueRange(bool& foundRange, QCP::SignDomain, const QCPRange&) const override;

  protected:
    void draw(QCPPainter* painter) override;
    void drawLegendIcon(QCPPainter* painter, const QRectF& rect) const override;

  private:
    double Left() const { return mKeyAxis->axisRect()->left(); }
    double PixelOf(const TraceColumn& column) const;
    double YOf(double value) const;
    QRectF LaneRect() const;

    void FindVisible(double length);
    void DrawColumns(QCPPainter* painter) const;
    void DrawPoints(QCPPainter* painter) const;
    void DrawBands(QCPPainter* painter) const;
    void DrawTexts(QCPPainter* painter) const;
    void DrawInfinity(QCPPainter* painter, double x, bool isAbove) const;

    std::shared_ptr<const PlottedSignal> Shown;
    const QColor Ink;
    const Lane Place;
    Trace Line;
    std::vector<TextTrace> Texts;
    Peaks Seen;
    double ColumnWidth = 1;  // in units of the painter
};
}  // namespace kelvarin::view
