// One signal over another, both chosen among those that are plotted.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "view/plot/CrossArea.h"

namespace kelvarin::view {
// What is drawn over what, and of which part of time.
struct CrossOrder {
    SignalPointer X, Y;  // null without two signals of numbers
    TimeRange Range;

    bool operator==(const CrossOrder&) const = default;
};

class CrossView : public QWidget {
  public:
    explicit CrossView(QWidget* parent = nullptr);

    // The user has chosen another signal.
    std::function<void()> OnChosen;

    // Offers the plotted signals of numbers, and says what is to be shown. The signals that were chosen stay,
    // by their names, as long as they are plotted; the first two are chosen at first.
    CrossOrder Offer(const PlotModel& model);

    // Shows the pairs, or takes away what is shown if there are none of `order`.
    void Show(const CrossOrder& order, std::shared_ptr<const CrossPlot> plot);
    void ShowCursors(const PlotModel& model, const CrossOrder& order);

    CrossArea& Area() { return *Plot; }
    QComboBox& UpChoice() { return *Up; }
    QComboBox& AcrossChoice() { return *Across; }
    QString Told() const { return Said->text(); }

  private:
    SignalPointer ChosenOf(const QComboBox& choice) const;
    void Fill(QComboBox& choice, int first);

    std::vector<SignalPointer> Offered;

    // Owned by the view.
    QComboBox* Up;
    QComboBox* Across;
    QLabel* Said;
    CrossArea* Plot;
};
}  // namespace kelvarin::view
