// How much is painted for a picture: it grows with the pixels, however many samples there are.
#include <gtest/gtest.h>

#include <QPaintEngine>
#include <cmath>
#include <random>

#include "tests/view/SignalKit.h"
#include "view/plot/PlotArea.h"

namespace painted_work_tests {

using namespace kelvarin::view;
using namespace view_tests;

// Paints nothing and counts the pixels.
class Counter : public QPaintEngine {
  public:
    Counter() : QPaintEngine(AllFeatures) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& now) override {
        if (now.state() & DirtyHints) IsSmooth = (now.renderHints() & QPainter::Antialiasing) != 0;
    }
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawTextItem(const QPointF&, const QTextItem&) override {}
    void drawPath(const QPainterPath&) override {}
    void drawRects(const QRectF* rects, int count) override {
        for (int i = 0; i < count; ++i) Filled += rects[i].width() * rects[i].height();
    }
    void drawLines(const QLineF* lines, int count) override {
        for (int i = 0; i < count; ++i) Add(lines[i].length());
    }
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
        if (mode != PolylineMode) return;
        for (int i = 1; i < count; ++i) Add(QLineF(points[i - 1], points[i]).length());
    }
    Type type() const override { return User; }

    double Filled = 0, Lines = 0, SmoothLines = 0;

  private:
    void Add(double length) { (IsSmooth ? SmoothLines : Lines) += length; }

    bool IsSmooth = false;
};

class CountingDevice : public QPaintDevice {
  public:
    explicit CountingDevice(QSize size) : Size(size) {}

    QPaintEngine* paintEngine() const override { return &Engine; }

    mutable Counter Engine;

  protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
            case PdmWidth:
                return Size.width();
            case PdmHeight:
                return Size.height();
            case PdmDevicePixelRatio:
                return 1;
            case PdmDevicePixelRatioScaled:
                return static_cast<int>(devicePixelRatioFScale());
            default:
                return 96;
        }
    }

  private:
    const QSize Size;
};

// Noise fills the plot from below to above: nothing takes more paint.
TEST(ViewPicture, PaintsEachPixelAboutOnceAtAnyZoom) {
    std::mt19937 random(3);
    std::vector<double> values;
    for (int i = 0; i < 100'000; ++i) values.push_back(static_cast<double>(random() % 1000));
    PlotModel model;
    PlotArea area(model);
    area.resize(900, 500);
    area.setViewport(area.rect());
    model.Add(SignalOf(EvenTimes(values.size(), 1'000'000), values), 0);
    area.Rebuild();
    const QRect plot = area.PlotRect();
    const double pixels = plot.width() * plot.height();
    double most = 0;
    for (; model.Visible().Length() > 1e7; model.Zoom(0.6, 0.4)) {
        area.ShowLook();
        CountingDevice device(area.size());
        QCPPainter painter(&device);
        area.toPainter(&painter, area.width(), area.height());
        painter.end();
        const Counter& work = device.Engine;
        most = std::max(most, work.Filled);
        // The ground is one of them, names and axes take a little more.
        EXPECT_LT(work.Filled, 2.2 * pixels + 2 * (900 * 500 - pixels)) << model.Visible().Length() << " ns";
        EXPECT_LT(work.Lines, 1.1 * pixels) << model.Visible().Length() << " ns";
        EXPECT_LT(work.SmoothLines, 0.3 * pixels) << model.Visible().Length() << " ns";
    }
    EXPECT_GT(most, 0.9 * pixels) << "the columns of noise were not counted";
}

}  // namespace painted_work_tests
