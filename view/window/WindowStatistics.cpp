// The statistics of what is looked at, counted on the thread of the queue.
#include <QApplication>
#include <QClipboard>
#include <utility>

#include "view/window/MainWindow.h"

namespace kelvarin::view {
void MainWindow::CountStatistics() {
    if (IsCounting) return;
    const TimeRange range = LookedAt(Plotted);
    std::vector<SignalPart> parts = PartsOf(Plotted, range);
    if (parts == CountedParts) {
        Summary->Show(Plotted, range, CountedParts, Counted);
        if (std::exchange(IsCopyAwaited, false)) QApplication::clipboard()->setText(Summary->AsText());
        return;
    }
    IsCounting = true;
    const auto results = std::make_shared<std::vector<Statistics>>();
    const auto count = [parts, results](const std::atomic<bool>& cancel) {
        for (const SignalPart& part : parts) {
            const Statistics result = StatisticsOf(part, cancel);
            if (cancel) return;
            results->push_back(result);
        }
    };
    Later(count, [this, parts, results] {
        IsCounting = false;
        if (results->size() == parts.size()) {
            CountedParts = parts;
            Counted = *results;
        }
        CountStatistics();  // it may be another part by now
    });
}

void MainWindow::CopyStatistics() {
    ShowDock("statistics");
    IsCopyAwaited = true;
    CountStatistics();
}
}  // namespace kelvarin::view
