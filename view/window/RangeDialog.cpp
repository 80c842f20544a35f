#include "view/window/RangeDialog.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <optional>

#include "host/language/Phrase.h"
#include "platform/framework/VisibleText.h"

namespace kelvarin::view {
namespace {
QString InDialog(const std::string& text) {
    return QString::fromStdString(text);
}

constexpr const char* ExactValue = "exact";  // of a field that the user hasn't changed

// A number with a point or a comma that an axis can have.
std::optional<double> NumberIn(const QLineEdit& field) {
    constexpr double Most = 1e240;
    if (!field.isModified()) return field.property(ExactValue).toDouble();
    bool isNumber = false;
    const double number = field.text().trimmed().replace(u',', u'.').toDouble(&isNumber);
    if (!isNumber || !(std::abs(number) <= Most)) return std::nullopt;
    return number;
}

// The signals of an axis.
std::string NamesOf(const Pane& pane, const std::string& unit) {
    std::string names;
    for (const SignalPointer& signal : pane.Signals) {
        if (signal->Kind() == SignalKind::Number && signal->Unit() == unit)
            names += (names.empty() ? "" : ", ") + signal->Name();
    }
    return unit.empty() ? names : names + " [" + unit + "]";
}

QLineEdit* BoundField(double value) {
    auto* const field = new QLineEdit(QString::number(value, 'g', 7));
    field->setProperty(ExactValue, value);
    field->setAlignment(Qt::AlignRight);
    return field;
}
}  // namespace

RangeDialog::RangeDialog(const PlotModel& model, const PlotArea& area, QWidget* parent) : QDialog(parent) {
    setWindowTitle(InDialog(Phrase("Value ranges")));
    auto* const column = new QVBoxLayout(this);
    auto* const grid = new QGridLayout;
    column->addLayout(grid);
    column->addStretch(1);
    grid->addWidget(new QLabel(InDialog(Phrase("Lowest"))), 0, 1);
    grid->addWidget(new QLabel(InDialog(Phrase("Highest"))), 0, 2);
    for (std::size_t number = 0; number < model.Panes().size(); ++number) {
        const Pane& pane = model.Panes()[number];
        const std::vector<std::string> units = pane.Units();
        if (units.empty()) continue;
        // In the order in which Tab goes through them.
        PaneFields fields;
        fields.Pane = number;
        const int first = grid->rowCount();
        for (std::size_t axis = 0; axis < units.size(); ++axis) {
            const int row = first + static_cast<int>(axis);
            const ValueRange range = area.ShownRange(number, axis);
            auto* const names = new QLabel(InDialog(MakeVisible(NamesOf(pane, units[axis]))));
            names->setTextFormat(Qt::PlainText);
            grid->addWidget(names, row, 0);
            grid->addWidget(fields.Bounds.emplace_back(BoundField(range.Lowest)), row, 1);
            grid->addWidget(fields.Bounds.emplace_back(BoundField(range.Highest)), row, 2);
        }
        fields.Fits = new QCheckBox(InDialog(Phrase("fits what is visible")));
        fields.Fits->setChecked(pane.FixedRanges.empty());
        grid->addWidget(fields.Fits, first, 3);
        Connect(fields);
        Fields.push_back(std::move(fields));
    }
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    column->addWidget(buttons);
    Ok = buttons->button(QDialogButtonBox::Ok);
    QObject::connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    if (!Fields.empty()) {
        Fields.front().Bounds.front()->setFocus();
        Fields.front().Bounds.front()->selectAll();
    }
    Check();
}

void RangeDialog::Connect(const PaneFields& fields) {
    QObject::connect(fields.Fits, &QCheckBox::toggled, this, [this] { Check(); });
    for (const QLineEdit* const field : fields.Bounds) {
        QObject::connect(field, &QLineEdit::textEdited, this, [this, fits = fields.Fits] {
            fits->setChecked(false);  // who types a range wants it
            Check();
        });
    }
}

void RangeDialog::Check() {
    bool areRanges = true;
    for (const PaneFields& fields : Fields) {
        for (std::size_t i = 0; i + 1 < fields.Bounds.size() && !fields.Fits->isChecked(); i += 2) {
            const std::optional<double> lowest = NumberIn(*fields.Bounds[i]);
            const std::optional<double> highest = NumberIn(*fields.Bounds[i + 1]);
            areRanges = areRanges && lowest && highest && *lowest < *highest;
        }
    }
    Ok->setEnabled(areRanges);
}

void RangeDialog::Apply(PlotModel& model) const {
    bool joins = false;
    for (const PaneFields& fields : Fields) {
        std::vector<ValueRange> ranges;
        for (std::size_t i = 0; i + 1 < fields.Bounds.size() && !fields.Fits->isChecked(); i += 2)
            ranges.push_back({NumberIn(*fields.Bounds[i]).value(), NumberIn(*fields.Bounds[i + 1]).value()});
        if (ranges == model.Panes()[fields.Pane].FixedRanges) continue;
        model.ShowValues(fields.Pane, std::move(ranges), joins);
        joins = true;
    }
}
}  // namespace kelvarin::view
