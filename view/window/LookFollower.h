// What is worked out of the part that is looked at, once that has stopped changing and somebody sees it.
#pragma once

#include <QDockWidget>
#include <QTimer>
#include <functional>

#include "view/plot/CustomPlot.h"

namespace kelvarin::view {
class LookFollower : public QObject {
  public:
    // Calls `work` a tenth of a second after the last change of the plots, while the dock is seen. The dock
    // owns this.
    LookFollower(QDockWidget& dock, QCustomPlot& plots, std::function<void()> work);

    // After a change that the plots don't draw, such as one of the cursors.
    void Await();

  private:
    QTimer Timer;
    bool IsSeen = false;
};
}  // namespace kelvarin::view
