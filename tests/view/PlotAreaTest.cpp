// Plots worked with the mouse, and the pictures of them.
#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>
#include <fstream>

#include "tests/view/SignalKit.h"
#include "view/plot/Picture.h"
#include "view/plot/PlotArea.h"
#include "view/plot/SignalDrawing.h"
#include "view/program/Arguments.h"

namespace plot_area_tests {

using namespace kelvarin::view;
using namespace view_tests;

constexpr std::int64_t Start = 1'706'684'400'000'000'000;
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

// One area of 800 by 400 pixels with two panes of a signal each, one second long.
class Plots : public testing::Test {
  protected:
    Plots() : Area(Model) {
        std::vector<std::int64_t> times = EvenTimes(1001, 1'000'000);
        for (std::int64_t& time : times) time += Start;
        std::vector<double> values(1001);
        for (std::size_t i = 0; i < values.size(); ++i) values[i] = static_cast<double>(i);
        const auto made = SignalsOf(DeviceOf(times, {values, values}));
        Model.Add(made[0], 0);
        Model.Add(made[1], 1);
        Area.resize(800, 400);
        Area.show();
        Area.Rebuild();
        QTest::qWait(20);
        Area.OnLookChanged = [this] { ++Looks; };
        Area.OnCursorChanged = [this] { ++Cursors; };
    }

    QPoint At(double share) const {
        const QRect rect = Area.PlotRect();
        return {rect.left() + static_cast<int>(rect.width() * share), rect.top() + 30};
    }

    void Wheel(QPoint place, int steps, Qt::KeyboardModifiers keys) {
        QWheelEvent event(place, Area.mapToGlobal(place), {}, {0, 120 * steps}, Qt::NoButton, keys,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&Area, &event);
    }

    void Drag(QPoint from, QPoint to, Qt::MouseButton button, Qt::KeyboardModifiers keys = {}) {
        QTest::mousePress(&Area, button, keys, from);
        QMouseEvent move(QEvent::MouseMove, to, Area.mapToGlobal(to), Qt::NoButton, button, keys);
        QCoreApplication::sendEvent(&Area, &move);
        QTest::mouseRelease(&Area, button, keys, to);
    }

    double Length() const { return Model.Visible().Length(); }

    PlotModel Model;
    PlotArea Area;
    int Looks = 0, Cursors = 0;
};

TEST_F(Plots, ZoomAtTheMouseByTheWheel) {
    const std::int64_t before = Area.TimeAt(At(0.25).x());
    Wheel(At(0.25), 1, {});
    EXPECT_NEAR(Length(), 0.8e9, 2);
    EXPECT_NEAR(static_cast<double>(Area.TimeAt(At(0.25).x()) - before), 0, 2);
    EXPECT_EQ(Looks, 1);
    Wheel(At(0.25), 1, Qt::ControlModifier);
    EXPECT_NEAR(Length(), 0.8e9, 2);
    ASSERT_EQ(Model.Panes()[0].FixedRanges.size(), 1u);
    EXPECT_TRUE(Model.Panes()[1].FixedRanges.empty());
    Model.Undo();
    Model.Undo();
    EXPECT_EQ(Length(), 1e9 + 1);
}

TEST_F(Plots, MoveWithTheMouse) {
    Model.ShowTimes({Start + 100'000'000, Start + 200'000'000});
    Area.ShowLook(true);
    const std::int64_t under = Area.TimeAt(At(0.75).x());
    Drag(At(0.75), At(0.25), Qt::LeftButton);
    EXPECT_NEAR(static_cast<double>(Area.TimeAt(At(0.25).x()) - under), 0, 400'000);
    EXPECT_EQ(Length(), 1e8);
    Model.Undo();
    EXPECT_EQ(Model.Visible().From, Start + 100'000'000);
}

TEST_F(Plots, ShowWhatARubberBandEncloses) {
    const TimeRange wanted{Area.TimeAt(At(0.25).x()), Area.TimeAt(At(0.5).x())};
    Drag(At(0.25), At(0.5) + QPoint(0, 5), Qt::RightButton);
    EXPECT_EQ(Model.Visible(), wanted);
    EXPECT_TRUE(Model.Panes()[0].FixedRanges.empty());
    Drag(At(0.25), At(0.75) + QPoint(0, 60), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(Model.Panes()[0].FixedRanges.size(), 1u);
    QTest::mouseDClick(&Area, Qt::LeftButton, {}, At(0.5));
    EXPECT_EQ(Length(), 1e9 + 1);
    EXPECT_TRUE(Model.Panes()[0].FixedRanges.empty());
}

TEST_F(Plots, SetCursorsByClicks) {
    QTest::mouseClick(&Area, Qt::LeftButton, {}, At(0.5));
    QTest::mouseClick(&Area, Qt::LeftButton, Qt::ShiftModifier, At(0.75));
    ASSERT_TRUE(Model.Cursor && Model.Second);
    EXPECT_NEAR(static_cast<double>(*Model.Cursor - Start), 0.5e9, 2e6);
    EXPECT_NEAR(static_cast<double>(*Model.Second - Start), 0.75e9, 2e6);
    EXPECT_EQ(Cursors, 2);
    EXPECT_NEAR(Area.PlaceOf(*Model.Cursor), At(0.5).x(), 1);
    EXPECT_EQ(Length(), 1e9 + 1);
}

// The ink of a picture: how many pixels are no ground.
int Ink(const QImage& image) {
    const QRgb ground = image.pixel(image.width() - 2, 1);
    int ink = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) ink += image.pixel(x, y) != ground ? 1 : 0;
    }
    return ink;
}

TEST_F(Plots, BecomePictures) {
    const QByteArray png = PictureOf(Area, "png");
    const QImage image = QImage::fromData(png, "PNG");
    EXPECT_EQ(image.size(), QSize(800, 400));
    EXPECT_GT(Ink(image), 2000);
    EXPECT_TRUE(PictureOf(Area, "pdf").startsWith("%PDF"));
    const QByteArray svg = PictureOf(Area, "svg");
    EXPECT_TRUE(svg.contains("<svg") && svg.contains("polyline"));
}

// A spike of one sample among many is seen at any width.
TEST(PlotArea, DrawsASpikeOfOneSample) {
    for (const int width : {300, 801}) {
        std::vector<double> values(1'000'000, 0);
        values[123'456] = 1;
        PlotModel model;
        model.Add(SignalOf(EvenTimes(values.size(), 1000), values), 0);
        PlotArea area(model);
        area.resize(width, 300);
        area.setViewport(area.rect());
        area.Rebuild();
        area.ShowLook(true);
        const QImage image = area.toPixmap(width, 300).toImage();
        const QRgb ink = SignalColor(0, false).rgb();
        int high = 0;
        for (int x = 0; x < image.width(); ++x) high += image.pixel(x, 100) == ink ? 1 : 0;
        EXPECT_EQ(high, 1) << width;
    }
}

// Nothing to see, or values that no axis can have: drawn without a complaint.
TEST(PlotArea, DrawsOddValues) {
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    const std::vector<double> lists[] = {
        {},         {1}, {NaN}, {Infinity}, {NaN, NaN, 1, NaN}, {-Infinity, 0, Infinity}, {1e308, -1e308},
        {5e-324, 0}};
    for (const std::vector<double>& values : lists) {
        PlotModel model;
        model.Add(SignalOf(EvenTimes(values.size(), 10), values), 0);
        PlotArea area(model);
        area.resize(400, 200);
        area.setViewport(area.rect());
        area.Rebuild();
        area.ShowLook(true);
        EXPECT_GT(Ink(area.toPixmap(400, 200).toImage()), 100) << testing::PrintToString(values);
    }
}

// Where the ink of a signal is: at the upper edge, at the lower one, or between two samples that have values.
TEST(PlotArea, MarksInfinitiesAtTheEdgesAndLeavesGaps) {
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    const struct {
        double Middle;  // of five samples, whose others are 1, 2, 1, 2
        bool IsAbove, IsBelow, IsJoined;
    } cases[] = {{1.5, false, false, true},
                 {NaN, false, false, false},
                 {Infinity, true, false, false},
                 {-Infinity, false, true, false}};
    for (const auto& test : cases) {
        SCOPED_TRACE(test.Middle);
        PlotModel model;
        model.Add(SignalOf(EvenTimes(5, 10), {1, 2, test.Middle, 1, 2}), 0);
        PlotArea area(model);
        area.Arrange({600, 300});
        const QImage image = PixmapOf(area).toImage();
        const QRect rect = area.PlotRect();
        const auto hasInk = [&](double from, double to, int top, int bottom) {
            for (int x = static_cast<int>(from); x <= static_cast<int>(to); ++x) {
                for (int y = top; y <= bottom; ++y) {
                    if (image.pixel(x, y) == SignalColor(0, false).rgb()) return true;
                }
            }
            return false;
        };
        const double middle = area.PlaceOf(20);
        constexpr int Edge = 6;
        EXPECT_EQ(hasInk(middle - 3, middle + 3, rect.top(), rect.top() + Edge), test.IsAbove);
        EXPECT_EQ(hasInk(middle - 3, middle + 3, rect.bottom() - Edge, rect.bottom()), test.IsBelow);
        EXPECT_EQ(hasInk(area.PlaceOf(10) + 6, area.PlaceOf(30) - 6, rect.top() + 20, rect.bottom() - 20),
                  test.IsJoined);
    }
}

TEST(ViewArguments, AreTakenOrRefused) {
    const struct {
        std::vector<std::string> Words;
        const char* Outcome;
    } cases[] = {
        {{}, "0 files"},
        {{"a.csv", "b.csv"}, "2 files"},
        {{"--plot", "x.PNG", "a.csv"}, "1 files x.PNG 1200x800"},
        {{"--plot=x.svg", "--size", "300x200", "--", "--odd.csv"}, "1 files x.svg 300x200"},
        {{"--plot", "x.pdf", "--signals", "a,b c", "f"}, "1 files x.pdf 1200x800 a|b c|"},
        {{"--plot", "x.gif", "f"},
         "--plot: 'x.gif' is no picture that can be written; its name ends in .png, .svg or .pdf"},
        {{"--plot", "x.png"}, "--plot draws one file"},
        {{"--plot", "x.png", "a", "b"}, "--plot draws one file"},
        {{"--from", "1", "f"}, "--signals, --from and --to need --plot"},
        {{"--size", "10x10", "f"}, "--size: '10x10' is no size; allowed are 100x100 to 20000x20000"},
        {{"--size", "10", "f"}, "--size: '10' is no size; allowed are 100x100 to 20000x20000"},
        {{"--plot"}, "--plot needs a value"},
        {{"--plto", "x"}, "there is no option --plto"},
    };
    for (const auto& test : cases) {
        Arguments arguments;
        std::string outcome = ParseArguments(test.Words, arguments);
        if (outcome.empty()) {
            outcome = std::to_string(arguments.Files.size()) + " files";
            if (!arguments.Picture.empty())
                outcome += " " + arguments.Picture + " " + std::to_string(arguments.Width) + "x" +
                           std::to_string(arguments.Height);
            if (!arguments.Signals.empty()) outcome += " ";
            for (const std::string& name : arguments.Signals) outcome += name + "|";
        }
        EXPECT_EQ(outcome, test.Outcome);
    }
}

// The unit is named once, also if the header of the file has it.
TEST(PlotArea, NamesTheUnitOfASignalOnce) {
    const struct {
        const char16_t* Name;
        const char16_t* Unit;
        const char* Title;
    } cases[] = {{u"Druck", u"", "Druck"},
                 {u"Druck", u"bar", "Druck [bar]"},
                 {u"Druck [bar]", u"bar", "Druck [bar]"},
                 {u"Druck (bar), innen", u"bar", "Druck (bar), innen"},
                 {u"Moment", u"m", "Moment [m]"}};
    for (const auto& test : cases) {
        const auto device = std::make_shared<kelvarin::store::StoredDevice>(u"device", u"", 10);
        DM::SignalProxy* signal = nullptr;
        device->CreateSignal(signal, test.Name, KelvarinDouble, 8);
        signal->SetUnit(test.Unit);
        const double value = 1;
        signal->AddSample(&value, sizeof value, 0);
        device->Finish();
        EXPECT_EQ(TitleOf(*SignalsOf(device)[0]).toStdString(), test.Title);
    }
}

}  // namespace plot_area_tests
