// The marks of a time axis whose coordinates are nanoseconds from the start of what is visible.
#pragma once

#include "view/plot/CustomPlot.h"

#include "view/model/TimeTicks.h"

namespace kelvarin::view {
class TimeTicker : public QCPAxisTicker {
  public:
    // What the axis shows from now on; `most` marks at most.
    void Show(const Clock& clock, const TimeRange& range, int most) {
        Range = range;
        Ticks = TicksOf(clock, range, most);
    }

    // The moment that labels count from; empty for labels that are moments themselves.
    const std::string& Base() const { return Ticks.Base; }

    void generate(const QCPRange&, const QLocale&, QChar, int, QVector<double>& ticks,
                  QVector<double>* subTicks, QVector<QString>* tickLabels) override {
        ticks.clear();
        for (const TimeTick& mark : Ticks.Marks) ticks.push_back(Range.OffsetOf(mark.At));
        if (subTicks != nullptr) {
            subTicks->clear();
            for (const std::int64_t at : Ticks.Between) subTicks->push_back(Range.OffsetOf(at));
        }
        if (tickLabels != nullptr) {
            tickLabels->clear();
            for (const TimeTick& mark : Ticks.Marks)
                tickLabels->push_back(QString::fromStdString(mark.Label));
        }
    }

  private:
    TimeRange Range;
    TimeTicks Ticks;
};
}  // namespace kelvarin::view
