#include "view/window/CrossView.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "host/language/Phrase.h"
#include "view/model/Statistics.h"
#include "view/plot/SignalDrawing.h"

namespace kelvarin::view {
CrossView::CrossView(QWidget* parent)
    : QWidget(parent), Up(new QComboBox), Across(new QComboBox), Said(new QLabel), Plot(new CrossArea) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* const row = new QHBoxLayout;
    row->setContentsMargins(4, 2, 4, 2);
    row->addWidget(Up, 2);
    row->addWidget(new QLabel(QString::fromStdString(Phrase("over"))));
    row->addWidget(Across, 2);
    row->addWidget(Said, 1);
    column->addLayout(row);
    column->addWidget(Plot, 1);
    for (QComboBox* const choice : {Up, Across}) {
        // Names may be long: what has no room is cut off.
        choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        choice->setMinimumContentsLength(10);
        QObject::connect(choice, &QComboBox::currentIndexChanged, this, [this] {
            if (OnChosen) OnChosen();
        });
    }
}

SignalPointer CrossView::ChosenOf(const QComboBox& choice) const {
    const int index = choice.currentIndex();
    return index < 0 ? nullptr : Offered[static_cast<std::size_t>(index)];
}

void CrossView::Fill(QComboBox& choice, int first) {
    const QSignalBlocker silence(choice);
    const QString chosen = choice.currentText();
    choice.clear();
    for (const SignalPointer& signal : Offered) choice.addItem(TitleOf(*signal));
    const int same = choice.findText(chosen);
    choice.setCurrentIndex(same >= 0 ? same : std::min(first, choice.count() - 1));
}

CrossOrder CrossView::Offer(const PlotModel& model) {
    std::vector<SignalPointer> numbers;
    for (const Pane& pane : model.Panes()) {
        std::copy_if(pane.Signals.begin(), pane.Signals.end(), std::back_inserter(numbers),
                     [](const SignalPointer& signal) { return signal->Kind() == SignalKind::Number; });
    }
    if (numbers != Offered) {
        Offered = std::move(numbers);
        Fill(*Up, 1);
        Fill(*Across, 0);
    }
    if (Offered.size() < 2) return {};
    return {ChosenOf(*Across), ChosenOf(*Up), LookedAt(model)};
}

void CrossView::Show(const CrossOrder& order, std::shared_ptr<const CrossPlot> plot) {
    const bool hasBoth = order.X != nullptr && order.Y != nullptr && plot != nullptr;
    Said->setText(QString::fromStdString(hasBoth ? Phrase("{} pairs", plot->Pairs)
                                                 : Phrase("plot two signals of numbers")));
    Plot->Show(hasBoth ? std::move(plot) : nullptr, hasBoth ? TitleOf(*order.X) : QString(),
               hasBoth ? TitleOf(*order.Y) : QString());
}

void CrossView::ShowCursors(const PlotModel& model, const CrossOrder& order) {
    const auto pairAt = [&order](const std::optional<std::int64_t>& time) {
        const bool isThere = time && order.X != nullptr && order.Y != nullptr;
        return isThere ? CrossPointAt(*order.X, *order.Y, *time) : std::nullopt;
    };
    Plot->Mark(pairAt(model.Cursor), pairAt(model.Second));
}
}  // namespace kelvarin::view
