#include "view/window/LookFollower.h"

#include <utility>

namespace kelvarin::view {
LookFollower::LookFollower(QDockWidget& dock, QCustomPlot& plots, std::function<void()> work)
    : QObject(&dock) {
    constexpr int Rest = 100;  // ms
    Timer.setSingleShot(true);
    Timer.setInterval(Rest);
    QObject::connect(&Timer, &QTimer::timeout, this, std::move(work));
    QObject::connect(&dock, &QDockWidget::visibilityChanged, this, [this](bool isSeen) {
        IsSeen = isSeen;
        Await();
    });
    // Whatever changes in the plots is drawn.
    QObject::connect(&plots, &QCustomPlot::afterReplot, this, [this] { Await(); });
}

void LookFollower::Await() {
    if (IsSeen) Timer.start();
}
}  // namespace kelvarin::view
