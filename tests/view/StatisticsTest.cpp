// What the statistics say of a part of a signal, and how a user gets them.
#include <QApplication>
#include <QClipboard>
#include <QDockWidget>

#include "tests/view/SignalKit.h"
#include "view/WindowKit.h"
#include "view/model/Statistics.h"

namespace window_tests {

constexpr std::atomic<bool> Never = false;

std::string Shortened(const Statistics& s) {
    char text[200];
    std::snprintf(text, sizeof text, "%d of %d: %.10g to %.10g, mean %.10g, deviation %.6g, rms %.10g",
                  static_cast<int>(s.Numbers), static_cast<int>(s.Samples), s.Lowest, s.Highest, s.Mean,
                  s.Deviation, s.Rms);
    return text;
}

TEST(ViewStatistics, AreOfTheFiniteValues) {
    constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    const struct {
        std::vector<double> Values;
        const char* Wanted;
    } cases[] = {
        {{5}, "1 of 1: 5 to 5, mean 5, deviation 0, rms 5"},
        {{-3, 3}, "2 of 2: -3 to 3, mean 0, deviation 4.24264, rms 3"},
        {{1, 2, 3, 4}, "4 of 4: 1 to 4, mean 2.5, deviation 1.29099, rms 2.738612788"},
        {{NaN, 1, Infinity, 3, -Infinity}, "2 of 5: 1 to 3, mean 2, deviation 1.41421, rms 2.236067977"},
        // The difference of two sums of squares would be 0 here.
        {{1e9, 1e9 + 0.5, 1e9 + 1},
         "3 of 3: 1000000000 to 1000000001, mean 1000000000, deviation 0.5, rms 1000000000"},
    };
    for (const auto& test : cases) {
        const auto signal = view_tests::SignalOf(view_tests::EvenTimes(test.Values.size(), 10), test.Values);
        EXPECT_EQ(Shortened(StatisticsOf({signal, 0, test.Values.size()}, Never)), test.Wanted);
    }
    const auto none = view_tests::SignalOf({0, 10}, {NaN, Infinity});
    EXPECT_EQ(StatisticsOf({none, 0, 2}, Never).Numbers, 0u);
}

// Many blocks of samples give what the formulas give for all of them at once.
TEST(ViewStatistics, JoinBlocksOfSamples) {
    constexpr std::size_t Count = 100'001;
    std::vector<double> values(Count);
    double sum = 0;
    for (std::size_t i = 0; i < Count; ++i) sum += values[i] = 1000 + std::sin(static_cast<double>(i)) * 2;
    const double mean = sum / Count;
    double squares = 0;
    for (const double value : values) squares += (value - mean) * (value - mean);
    const auto signal = view_tests::SignalOf(view_tests::EvenTimes(Count, 10), values);
    const Statistics all = StatisticsOf({signal, 0, Count}, Never);
    EXPECT_EQ(all.Numbers, Count);
    EXPECT_NEAR(all.Mean, mean, 1e-9);
    EXPECT_NEAR(all.Deviation, std::sqrt(squares / (Count - 1)), 1e-9);
    const Statistics part = StatisticsOf({signal, 4095, 4098}, Never);
    EXPECT_EQ(part.Samples, 3u);
    EXPECT_NEAR(part.Mean, (values[4095] + values[4096] + values[4097]) / 3, 1e-12);
}

class StatisticsWindow : public ViewWindow {
  protected:
    // The row of a signal once the part that is looked at has been counted.
    std::string Row(int row) {
        QTest::qWait(150);
        Wait();
        QString text;
        for (int column = 0; column < Table().columnCount(); ++column)
            text += Table().item(row, column)->text() + " | ";
        return text.toStdString();
    }

    QTableWidget& Table() { return Shown->Summaries().Table(); }
    std::string Part() { return Shown->Summaries().Part().toStdString(); }
};

// Of all, of what is zoomed to, and between the cursors.
TEST_F(StatisticsWindow, FollowsWhatIsLookedAt) {
    Open(Write("lauf.csv", GermanFile(5)));
    QTest::keyClick(Shown.get(), Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(Row(0), "Drehzahl | U/min | 5 | 800.25 | 804.25 | 802.25 | 1.58113883 | 802.251246 | ");
    EXPECT_EQ(Row(1), "Druck | bar | 5 | 1.5 | 1.5 | 1.5 | 0 | 1.5 | ");
    EXPECT_EQ(Part(), "What is visible: 2024-01-31 08:00:00.5 to 2024-01-31 08:00:04.5, 4 s");
    PlotArea& plots = Shown->Plots();
    const QRect rect = plots.PlotRect();
    const QPoint middle(rect.center().x(), rect.top() + 20);
    QWheelEvent wheel(middle, plots.mapToGlobal(middle), {}, {0, 120 * 3}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&plots, &wheel);
    EXPECT_EQ(Row(0), "Drehzahl | U/min | 3 | 801.25 | 803.25 | 802.25 | 1 | 802.250415 | ");
    QTest::keyClick(Shown.get(), Qt::Key_0, Qt::ControlModifier);
    Row(0);
    const auto click = [&](double second, Qt::KeyboardModifiers keys) {
        const int x = rect.left() + static_cast<int>(rect.width() * second / 4);
        QTest::mouseClick(&plots, Qt::LeftButton, keys, {x, rect.top() + 20});
    };
    click(2.5, {});
    click(0.5, Qt::ShiftModifier);
    EXPECT_EQ(Row(0), "Drehzahl | U/min | 2 | 801.25 | 802.25 | 801.75 | 0.707106781 | 801.750156 | ");
    EXPECT_EQ(Part().substr(0, 20), "Between the cursors:");
    QTest::keyClick(Shown.get(), Qt::Key_Escape);
    EXPECT_EQ(Row(0).substr(0, 24), "Drehzahl | U/min | 5 | 8");
}

TEST_F(StatisticsWindow, AreCopiedAsASpreadsheetTakesThem) {
    Open(Write("lauf.csv", GermanFile(7)));
    QApplication::clipboard()->clear();
    QTest::keyClick(Shown.get(), Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier);
    Row(0);
    EXPECT_EQ(QApplication::clipboard()->text().section('\n', 1),
              "Signal\tUnit\tSamples\tLowest\tHighest\tMean\tStandard deviation\tRMS\n"
              "Drehzahl\tU/min\t7\t800.25\t806.25\t803.25\t2.1602469\t803.25249\n"
              "Druck\tbar\t7\t1.5\t1.5\t1.5\t0\t1.5\n");
}

// Nothing is counted while nobody sees it.
TEST_F(StatisticsWindow, AreNotCountedWhileHidden) {
    Open(Write("lauf.csv", GermanFile(5)));
    QTest::qWait(150);
    Wait();
    EXPECT_EQ(Table().rowCount(), 0);
    Shown->findChild<QDockWidget*>("statistics")->raise();
    Row(0);
    EXPECT_EQ(Table().rowCount(), 2);
    QTest::keyClick(Shown.get(), Qt::Key_Backspace, Qt::ControlModifier);
    QTest::qWait(150);
    Wait();
    EXPECT_EQ(Table().rowCount(), 0);
    EXPECT_EQ(Part(), "");
}

}  // namespace window_tests
