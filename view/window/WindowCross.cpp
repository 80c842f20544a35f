// One signal over another, of the part of time that is looked at; worked out on the thread of the queue.
#include <utility>

#include "view/window/MainWindow.h"

namespace kelvarin::view {
void MainWindow::FollowCross() {
    if (IsCrossing) return;
    const CrossOrder order = Cross->Offer(Plotted);
    if (order == Crossed) {
        Cross->ShowCursors(Plotted, order);
        return;
    }
    IsCrossing = true;
    const auto result = std::make_shared<std::shared_ptr<const CrossPlot>>();
    const auto work = [order, result](const std::atomic<bool>& cancel) {
        if (order.X == nullptr || order.Y == nullptr) return;
        auto plot = std::make_shared<const CrossPlot>(CrossPlotOf(*order.X, *order.Y, order.Range, cancel));
        if (!cancel) *result = std::move(plot);
    };
    Later(work, [this, order, result] {
        IsCrossing = false;
        const bool isCancelled = *result == nullptr && order.X != nullptr;
        if (!isCancelled) {
            Crossed = order;
            Cross->Show(order, *result);
        }
        FollowCross();  // it may be another part by now
    });
}
}  // namespace kelvarin::view
