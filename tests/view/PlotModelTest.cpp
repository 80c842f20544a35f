// What is plotted and where one looks, without a window.
#include <gtest/gtest.h>

#include "tests/view/SignalKit.h"
#include "view/model/PlotModel.h"

namespace plot_model_tests {

using namespace kelvarin::view;
using namespace view_tests;

constexpr std::int64_t Start = 1'706'684'400'000'000'000;

std::vector<SignalPointer> Signals(std::size_t count) {
    std::vector<std::int64_t> times;
    for (std::int64_t i = 0; i < 11; ++i) times.push_back(Start + i);
    std::vector<std::vector<double>> values(count, std::vector<double>(11));
    for (std::size_t i = 0; i < 11; ++i) values[0][i] = static_cast<double>(i) * 1.5;
    return SignalsOf(DeviceOf(times, values));
}

TEST(PlotModel, ShowsAllOfTheFirstSignals) {
    PlotModel model;
    const auto signals = Signals(2);
    model.Add(signals[0], 0);
    EXPECT_EQ(model.Visible(), (TimeRange{Start, Start + 11}));
    model.Add(SignalOf({Start + 100}, {1}), 1);
    EXPECT_EQ(model.Visible(), (TimeRange{Start, Start + 101}));
    EXPECT_EQ(model.Panes().size(), 2u);
    model.ShowTimes({Start, Start + 5});
    model.Add(SignalOf({Start + 200}, {1}), 1);
    EXPECT_EQ(model.Visible(), (TimeRange{Start, Start + 5}));
    EXPECT_EQ(model.Panes()[1].Signals.size(), 2u);
}

// The panes after signals were brought together, by number.
TEST(PlotModel, GathersSignalsInAPane) {
    const struct {
        std::vector<std::size_t> Some;
        std::size_t Pane;
        const char* Panes;
    } cases[] = {{{0}, 0, "0|1|2|"},   {{0, 2}, 1, "1 0 2|"}, {{2, 1}, 3, "0|2 1|"},   {{1}, 2, "0|2 1|"},
                 {{3}, 1, "0|1 3|2|"}, {{}, 3, "0|1|2|"},     {{0, 1, 2}, 0, "0 1 2|"}};
    for (const auto& test : cases) {
        PlotModel model;
        const auto signals = Signals(4);
        for (std::size_t i = 0; i < 3; ++i) model.Add(signals[i], i);
        std::vector<SignalPointer> some;
        for (const std::size_t number : test.Some) some.push_back(signals[number]);
        model.Gather(some, test.Pane);
        std::string panes;
        for (const Pane& pane : model.Panes()) {
            for (const SignalPointer& signal : pane.Signals)
                panes += (&signal == &pane.Signals.front() ? "" : " ") + signal->Name().substr(1);
            panes += "|";
        }
        EXPECT_EQ(panes, test.Panes);
    }
}

// A signal takes the place of a shorter one, as while a file is read.
TEST(PlotModel, GoesAlongWithSignalsThatGrow) {
    const struct {
        TimeRange Before;
        bool ShowsEnd;
        TimeRange After;
    } cases[] = {
        {{Start, Start + 11}, false, {Start, Start + 51}},          // all is visible
        {{Start, Start + 11}, true, {Start, Start + 51}},           //
        {{Start + 2, Start + 8}, true, {Start + 2, Start + 8}},     // a part
        {{Start + 2, Start + 11}, false, {Start + 2, Start + 11}},  // the end
        {{Start + 2, Start + 11}, true, {Start + 2, Start + 51}},
    };
    for (const auto& test : cases) {
        PlotModel model;
        const SignalPointer old = Signals(1)[0];
        model.Add(old, 0);
        model.ShowTimes(test.Before);
        model.Replace(*old, SignalOf({Start, Start + 50}, {1, 2}), test.ShowsEnd);
        EXPECT_EQ(model.Visible(), test.After)
            << test.Before.From - Start << " to " << test.Before.To - Start;
        model.Undo();
        EXPECT_FALSE(model.CanUndo()) << "a step of its own";
    }
}

TEST(PlotModel, TakesBackAndDoesAgain) {
    PlotModel model;
    model.Add(Signals(1)[0], 0);
    const TimeRange all = model.Visible();
    model.ShowTimes({Start + 2, Start + 8});
    model.ShowValues(0, {{1, 2}});
    model.BeginMovement();
    for (int i = 0; i < 10; ++i) model.Pan(0.1);
    EXPECT_EQ(model.Visible(), (TimeRange{Start + 12, Start + 18}));
    model.Undo();
    EXPECT_EQ(model.Visible(), (TimeRange{Start + 2, Start + 8}));
    EXPECT_EQ(model.Panes()[0].FixedRanges, (std::vector<ValueRange>{{1, 2}}));
    model.Undo();
    EXPECT_TRUE(model.Panes()[0].FixedRanges.empty());
    model.Undo();
    EXPECT_EQ(model.Visible(), all);
    EXPECT_FALSE(model.CanUndo());
    model.Redo();
    EXPECT_EQ(model.Visible(), (TimeRange{Start + 2, Start + 8}));
    model.FitAll();
    EXPECT_EQ(model.Visible(), all);
    EXPECT_FALSE(model.CanRedo());
}

TEST(PlotModel, ZoomsToTheNanosecondAndNoFurther) {
    PlotModel model;
    model.Add(Signals(1)[0], 0);
    model.ShowTimes({Start, Start + 4'000'000'000});
    for (int i = 0; i < 100; ++i) model.Zoom(0.5, 0.5);
    EXPECT_EQ(model.Visible().To - model.Visible().From, 1);
    EXPECT_NEAR(static_cast<double>(model.Visible().From - Start), 2e9, 8);
    for (int i = 0; i < 200; ++i) model.Zoom(2, 0.25);
    for (int i = 0; i < 10; ++i) model.Pan(1);
    EXPECT_GT(model.Visible().To, model.Visible().From);
}

TEST(PlotModel, GivesSamplesAtTheCursors) {
    PlotModel model;
    const auto signals = Signals(1);
    model.Add(signals[0], 0);
    const struct {
        std::int64_t Cursor;
        const char* Text;
        std::int64_t Time;
    } cases[] = {{Start - 1, "none", 0},
                 {Start, "0", Start},
                 {Start + 3, "4.5", Start + 3},
                 {Start + 99, "15", Start + 10}};
    for (const auto& test : cases) {
        model.Cursor = test.Cursor;
        const std::vector<CursorRow> rows = model.AtCursors();
        ASSERT_EQ(rows.size(), 1u);
        EXPECT_EQ(rows[0].First ? rows[0].First->Text : "none", test.Text);
        EXPECT_EQ(rows[0].First ? rows[0].First->Time : 0, test.Time);
        EXPECT_FALSE(rows[0].Second);
    }
    model.Cursor = Start + 3;
    EXPECT_EQ(model.NextSample(true), Start + 4);
    EXPECT_EQ(model.NextSample(false), Start + 2);
    model.Cursor = Start + 10;
    EXPECT_EQ(model.NextSample(true), Start + 10);
}

TEST(PlotModel, KeepsItsLookWhenAFileIsReadAnew) {
    PlotModel model;
    const auto old = Signals(2);
    const auto anew = Signals(2);
    model.Add(old[0], 0);
    model.Add(old[1], 0);
    model.ShowTimes({Start + 1, Start + 2});
    model.Replace(*old[1], anew[1]);
    EXPECT_TRUE(model.Has(*anew[1]));
    EXPECT_FALSE(model.Has(*old[1]));
    EXPECT_EQ(model.Visible(), (TimeRange{Start + 1, Start + 2}));
    model.Remove(*old[0]);
    model.Remove(*anew[1]);
    EXPECT_TRUE(model.IsEmpty());
}

}  // namespace plot_model_tests
