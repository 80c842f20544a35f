// One signal over another: its pairs, and how a user chooses and follows them.
#include <QDockWidget>

#include "tests/view/SignalKit.h"
#include "view/WindowKit.h"
#include "view/model/CrossPlot.h"

namespace cross_plot_tests {

using namespace kelvarin::view;
using namespace view_tests;

constexpr std::atomic<bool> Never = false;
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr TimeRange Always{-1000, 1'000'000'000'000};

// "x,y" for each pair, with a bar where no line leads to it.
std::string Shortened(const CrossPlot& plot) {
    std::string text;
    for (const CrossPoint& point : plot.Points) {
        char pair[60];
        std::snprintf(pair, sizeof pair, "%s%g,%g ", point.IsAfterGap ? "|" : "", point.X, point.Y);
        text += pair;
    }
    return text;
}

TEST(CrossPlot, HasThePairsOfOneTimeAxis) {
    const std::vector<std::int64_t> times = {0, 10, 20, 30, 200, 210};
    const auto made = SignalsOf(DeviceOf(times, {{1, 2, NaN, 4, 5, 6}, {10, 20, 30, 40, 50, 60}}));
    const CrossPlot plot = CrossPlotOf(*made[0], *made[1], Always, Never);
    EXPECT_EQ(Shortened(plot), "|1,10 2,20 |4,40 |5,50 6,60 ");
    EXPECT_EQ(plot.Pairs, 5u);
    EXPECT_EQ(plot.X, (ValueRange{1, 6}));
    EXPECT_EQ(plot.Y, (ValueRange{10, 60}));
    EXPECT_EQ(Shortened(CrossPlotOf(*made[0], *made[1], {10, 200}, Never)), "|2,20 |4,40 ");
    EXPECT_EQ(Shortened(CrossPlotOf(*made[0], *made[1], {500, 600}, Never)), "");
    EXPECT_EQ(CrossPointAt(*made[0], *made[1], 35)->Y, 40);
    EXPECT_FALSE(CrossPointAt(*made[0], *made[1], 25));
    EXPECT_FALSE(CrossPointAt(*made[0], *made[1], -1));
}

// The other file's sample that is not later, none before its first.
TEST(CrossPlot, PairsSignalsOfTwoFilesByTime) {
    const auto slow = SignalOf({5, 25}, {1, 2});
    const auto fast = SignalOf({0, 10, 20, 30}, {10, 20, 30, 40});
    EXPECT_EQ(Shortened(CrossPlotOf(*slow, *fast, Always, Never)), "|1,20 1,30 2,40 ");
    EXPECT_EQ(Shortened(CrossPlotOf(*fast, *slow, Always, Never)), "|10,1 30,2 ");
    EXPECT_EQ(CrossPointAt(*slow, *fast, 29)->X, 1);
}

// A pair that stands out among very many keeps a cell of its own, also where sums of numbers end.
TEST(CrossPlot, HidesNoPairAmongMany) {
    const struct { double Low, High; } cases[] = {{0, 1}, {-1.5e308, 1.5e308}, {1e9, 1e9 + 1}, {3, 3}};
    for (const auto& test : cases) {
        constexpr std::size_t Count = 120'000;
        std::vector<double> values(Count, test.Low);
        values[77'777] = test.High;
        const auto made = SignalsOf(DeviceOf(EvenTimes(Count, 10), {values, values}));
        const CrossPlot plot = CrossPlotOf(*made[0], *made[1], Always, Never);
        EXPECT_EQ(plot.Pairs, Count);
        EXPECT_TRUE(plot.Points.empty());
        EXPECT_EQ(plot.Cells.size(), CrossPlot::CellsAcross * CrossPlot::CellsAcross);
        EXPECT_EQ(std::count(plot.Cells.begin(), plot.Cells.end(), true), test.Low == test.High ? 1 : 2);
        EXPECT_TRUE(plot.Cells.front());
        EXPECT_EQ(plot.Cells.back(), test.Low != test.High) << test.Low;
    }
}

// How many pixels have the colour of the pairs.
int Ink(CrossArea& area) {
    const QImage image = area.toPixmap(400, 300).toImage();
    int ink = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ink += image.pixel(x, y) == SignalColor(0, false).rgb() ? 1 : 0;
    }
    return ink;
}

TEST(CrossArea, DrawsPointsLinesAndCells) {
    const auto draw = [](const std::vector<double>& x, const std::vector<double>& y) {
        const auto made = SignalsOf(DeviceOf(EvenTimes(x.size(), 10), {x, y}));
        CrossArea area;
        area.resize(400, 300);
        area.Show(std::make_shared<const CrossPlot>(CrossPlotOf(*made[0], *made[1], Always, Never)), "x",
                  "y");
        area.replot(QCustomPlot::rpImmediateRefresh);
        return Ink(area);
    };
    EXPECT_EQ(draw({}, {}), 0);
    EXPECT_GT(draw({1}, {1}), 5);
    EXPECT_GT(draw({0, 1}, {5, 5}), 200);
    EXPECT_GT(draw({-1e308, 1e308}, {5, 5}), 200);
    const std::vector<double> same(100'000, 7);
    EXPECT_GT(draw(same, same), 0);
}

class CrossWindow : public window_tests::ViewWindow {
  protected:
    CrossView& View() { return Shown->Crossing(); }

    // What is shown, once it has been worked out.
    std::string Told() {
        QTest::qWait(150);
        Wait();
        const std::string titles = View().Area().yAxis->label().toStdString() + " over " +
                                   View().Area().xAxis->label().toStdString();
        return titles + ", " + View().Told().toStdString();
    }
};

TEST_F(CrossWindow, ShowsWhatIsChosenAndFollowsTheTimes) {
    Open(Write("lauf.csv", window_tests::GermanFile(100)));
    QTest::keyClick(Shown.get(), Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(Told(), "Druck [bar] over Drehzahl [U/min], 98 pairs");
    View().UpChoice().setFocus();
    QTest::keyClick(&View().UpChoice(), Qt::Key_Up);
    EXPECT_EQ(Told(), "Drehzahl [U/min] over Drehzahl [U/min], 99 pairs");
    View().AcrossChoice().setFocus();
    QTest::keyClick(&View().AcrossChoice(), Qt::Key_Down);
    EXPECT_EQ(Told(), "Drehzahl [U/min] over Druck [bar], 98 pairs");
    PlotArea& plots = Shown->Plots();
    const QRect rect = plots.PlotRect();
    QTest::mouseClick(&plots, Qt::LeftButton, {}, {rect.left() + rect.width() / 4, rect.top() + 20});
    QTest::mouseClick(&plots, Qt::LeftButton, Qt::ShiftModifier,
                      {rect.left() + rect.width() / 2, rect.top() + 20});
    EXPECT_EQ(Told(), "Drehzahl [U/min] over Druck [bar], 25 pairs");
    QTest::keyClick(Shown.get(), Qt::Key_Escape);
    EXPECT_EQ(Told(), "Drehzahl [U/min] over Druck [bar], 98 pairs");
}

TEST_F(CrossWindow, KeepsTheChoiceWhenTheFileIsReadAnewAndEndsWithIt) {
    const QString path = Write("lauf.csv", window_tests::GermanFile(100));
    Open(path);
    QTest::keyClick(Shown.get(), Qt::Key_E, Qt::ControlModifier);
    Told();
    View().UpChoice().setFocus();
    QTest::keyClick(&View().UpChoice(), Qt::Key_Up);
    Write("lauf.csv", window_tests::GermanFile(50));
    QTest::keyClick(Shown.get(), Qt::Key_F5);
    Wait();
    QTest::keyClick(Shown.get(), Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(Told(), "Drehzahl [U/min] over Drehzahl [U/min], 49 pairs");
    Shown->Close(path);
    EXPECT_EQ(Told(), " over , plot two signals of numbers");
    EXPECT_EQ(View().Area().Shown(), nullptr);
}

TEST_F(CrossWindow, ZoomsByTheWheelAndShowsAllByADoubleClick) {
    Open(Write("lauf.csv", window_tests::GermanFile(100)));
    QTest::keyClick(Shown.get(), Qt::Key_E, Qt::ControlModifier);
    Told();
    CrossArea& area = View().Area();
    const QCPRange before = area.xAxis->range();
    const QPoint middle = area.axisRect()->center();
    QWheelEvent wheel(middle, area.mapToGlobal(middle), {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(&area, &wheel);
    EXPECT_LT(area.xAxis->range().size(), before.size());
    QTest::mouseDClick(&area, Qt::LeftButton, {}, middle);
    EXPECT_EQ(area.xAxis->range().lower, before.lower);
    EXPECT_EQ(area.xAxis->range().upper, before.upper);
}

}  // namespace cross_plot_tests
