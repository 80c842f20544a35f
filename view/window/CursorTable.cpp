#include "view/window/CursorTable.h"

#include <QHeaderView>

#include "host/Words.h"
#include "host/language/Phrase.h"
#include "view/dialog/QtText.h"
#include "view/window/RowCopier.h"

namespace kelvarin::view {
namespace {
QString Worded2(const std::string& text) {
    return QString::fromStdString(text);
}

std::string ValueDifference(const CursorRow& row) {
    const bool areNumbers = row.First && row.Second && row.First->Number && row.Second->Number &&
                            row.Signal->Kind() == SignalKind::Number;
    return areNumbers ? ShortestText(*row.Second->Number - *row.First->Number) : std::string();
}
}  // namespace

CursorTable::CursorTable(QWidget* parent) : QTableWidget(parent) {
    const QStringList headers = {Worded2(Phrase("Signal")),         Worded2(Phrase("Value")),
                                 Worded2(Phrase("Time")),           Worded2(Phrase("Second value")),
                                 Worded2(Phrase("Second time")),    Worded2(Phrase("Difference")),
                                 Worded2(Phrase("Time difference"))};
    setColumnCount(static_cast<int>(headers.size()));
    setHorizontalHeaderLabels(headers);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    new RowCopier(*this);
}

void CursorTable::Show(const PlotModel& model) {
    const std::vector<CursorRow> rows = model.AtCursors();
    setRowCount(static_cast<int>(rows.size()));
    for (int i = 0; i < rowCount(); ++i) {
        const CursorRow& row = rows[static_cast<std::size_t>(i)];
        const std::string unit = row.Signal->Unit().empty() ? "" : " " + row.Signal->Unit();
        const auto value = [&](const std::optional<SampleAt>& sample) {
            return !sample ? std::string() : sample->Text.empty() ? "–" : sample->Text + unit;
        };
        const auto time = [&](const std::optional<SampleAt>& sample) {
            return sample ? MomentText(model.Times, sample->Time) : std::string();
        };
        const std::string difference = ValueDifference(row);
        const std::string cells[] = {
            row.Signal->Name(),
            value(row.First),
            time(row.First),
            value(row.Second),
            time(row.Second),
            difference.empty() ? difference : difference + unit,
            row.First && row.Second ? DurationText(row.Second->Time - row.First->Time) : std::string()};
        for (int column = 0; column < columnCount(); ++column)
            setItem(i, column, new QTableWidgetItem(ShownText(cells[column])));
    }
}
}  // namespace kelvarin::view
