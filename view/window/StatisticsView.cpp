#include "view/window/StatisticsView.h"

#include <QHeaderView>
#include <QVBoxLayout>
#include <array>
#include <cstdio>

#include "host/Words.h"
#include "host/language/Phrase.h"
#include "platform/framework/VisibleText.h"

namespace kelvarin::view {
namespace {
QString InTable(const std::string& text) {
    return QString::fromStdString(text);
}

// A number that was calculated: without the digits that rounding left.
std::string Calculated(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.9g", value);
    return text.data();
}

// A duration without its sign.
std::string LengthText(std::int64_t nanoseconds) {
    const std::string text = DurationText(nanoseconds);
    return text.starts_with('+') ? text.substr(1) : text;
}

std::vector<std::string> CellsOf(const PlottedSignal& signal, const Statistics& result) {
    std::vector<std::string> cells = {signal.Name(), signal.Unit(), std::to_string(result.Samples)};
    if (result.Numbers == 0) {
        cells.resize(8);
        return cells;
    }
    cells.push_back(ShortestText(result.Lowest));
    cells.push_back(ShortestText(result.Highest));
    for (const double value : {result.Mean, result.Deviation, result.Rms}) cells.push_back(Calculated(value));
    return cells;
}
}  // namespace

StatisticsView::StatisticsView(QWidget* parent)
    : QWidget(parent), Caption(new QLabel), Rows(new QTableWidget) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(Caption);
    column->addWidget(Rows, 1);
    Caption->setMargin(4);
    Caption->setTextInteractionFlags(Qt::TextSelectableByMouse);
    const QStringList headers = {InTable(Phrase("Signal")),
                                 InTable(Phrase("Unit")),
                                 InTable(Phrase("Samples")),
                                 InTable(Phrase("Lowest")),
                                 InTable(Phrase("Highest")),
                                 InTable(Phrase("Mean")),
                                 InTable(Phrase("Standard deviation")),
                                 InTable(Phrase("RMS"))};
    Rows->setColumnCount(static_cast<int>(headers.size()));
    Rows->setHorizontalHeaderLabels(headers);
    Rows->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Rows->verticalHeader()->hide();
    Rows->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    Rows->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

void StatisticsView::Show(const PlotModel& model, const TimeRange& range,
                          const std::vector<SignalPart>& parts, const std::vector<Statistics>& results) {
    const bool hasBoth = model.Cursor && model.Second;
    const std::int64_t last = range.To - 1;
    const std::string from = MomentText(model.Times, range.From);
    const std::string to = MomentText(model.Times, last);
    const std::string length = LengthText(last - range.From);
    Caption->setText(InTable(parts.empty() ? std::string()
                             : hasBoth     ? Phrase("Between the cursors: {} to {}, {}", from, to, length)
                                           : Phrase("What is visible: {} to {}, {}", from, to, length)));
    Rows->setRowCount(static_cast<int>(parts.size()));
    for (int row = 0; row < Rows->rowCount(); ++row) {
        const auto number = static_cast<std::size_t>(row);
        const std::vector<std::string> cells = CellsOf(*parts[number].Signal, results[number]);
        for (int column = 0; column < Rows->columnCount(); ++column) {
            auto* const cell =
                new QTableWidgetItem(InTable(MakeVisible(cells[static_cast<std::size_t>(column)])));
            if (column >= 2) cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            Rows->setItem(row, column, cell);
        }
    }
}

QString StatisticsView::AsText() const {
    QString text = Caption->text() + "\n";
    for (int row = -1; row < Rows->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < Rows->columnCount(); ++column)
            cells += row < 0 ? Rows->horizontalHeaderItem(column)->text() : Rows->item(row, column)->text();
        text += cells.join(u'\t') + "\n";
    }
    return text;
}
}  // namespace kelvarin::view
