#include "view/dialog/Appearance.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QFontMetricsF>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <algorithm>
#include <cmath>

#include "platform/framework/Module.h"
#include "view/dialog/QtText.h"

namespace kelvarin::view {
namespace {

DialogUnits UnitsOfFont() {
    constexpr const char* Letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    constexpr double Count = 52;
    const QFontMetricsF metrics(QApplication::font());
    return {metrics.horizontalAdvance(Letters) / Count, metrics.height()};
}

// A box with its text needs no air above and below: what is next to it keeps away.
template <class Widget>
QSize BoxHint(const ControlTemplate& control) {
    Widget widget;
    widget.setText(ToQt(control.Text));
    widget.ensurePolished();
    const int box = widget.style()->pixelMetric(QStyle::PM_IndicatorHeight);
    return {widget.sizeHint().width(), std::max(box, widget.fontMetrics().height())};
}

QSize ButtonHint(const ControlTemplate& control) {
    QPushButton widget;
    widget.setText(ToQt(control.Text));
    widget.ensurePolished();
    return widget.sizeHint();
}

// A letter is marked by "&", which a label of its own would show.
QSize LabelHint(const ControlTemplate& control) {
    QLabel label;
    label.setText(ToQt(control.Text).remove('&'));
    return label.sizeHint() + QSize(1, 0);
}

// A box has the width of its items; one with free text of any.
QSize ComboHint(const ControlTemplate& control) {
    QComboBox combo;
    combo.setEditable(control.Kind == ControlKind::ComboBox);
    combo.addItems(ToQt(control.Items).split('|'));
    const QSize hint = combo.sizeHint();
    return combo.isEditable() ? QSize(0, hint.height()) : hint;
}

// The least size of a control; 0 for whatever its place decides.
QSize LeastSize(const ControlTemplate& control) {
    switch (control.Kind) {
        case ControlKind::Label:
            return LabelHint(control);
        case ControlKind::CheckBox:
            return BoxHint<QCheckBox>(control);
        case ControlKind::RadioButton:
            return BoxHint<QRadioButton>(control);
        case ControlKind::PushButton:
        case ControlKind::DefaultButton:
            return ButtonHint(control);
        case ControlKind::Edit:
            return (control.Style & ControlMultiLine) != 0 ? QSize()
                                                           : QSize(0, QLineEdit().sizeHint().height());
        case ControlKind::ComboBox:
        case ControlKind::DropDownList:
            return ComboHint(control);
        case ControlKind::DatePicker:
            return QDateTimeEdit(QDate(2000, 12, 31)).sizeHint();
        case ControlKind::TimePicker:
            return QDateTimeEdit(QTime(12, 0)).sizeHint();
        default:
            return {};
    }
}

std::uint32_t ToSystemColor(const QColor& color) {
    return static_cast<std::uint32_t>(color.red() | color.green() << 8 | color.blue() << 16);
}

}  // namespace

DialogUnits MeasureDialogs(const ModuleState& module) {
    constexpr short ComboHeight = 13;
    DialogUnits units = UnitsOfFont();
    for (std::size_t i = 0; i < module.Dialogs.Count; ++i) {
        const DialogTemplate& dialog = *module.FindDialog(module.Dialogs.Entries[i].Id);
        for (std::size_t k = 0; k < dialog.Count; ++k) {
            const ControlTemplate& control = dialog.Controls[k];
            const QSize least = LeastSize(control);
            const bool isCombo =
                control.Kind == ControlKind::ComboBox || control.Kind == ControlKind::DropDownList;
            const short height = isCombo ? ComboHeight : control.Place.Height;
            units.Width = std::max(units.Width, least.width() * 4.0 / control.Place.Width);
            units.Height = std::max(units.Height, least.height() * 8.0 / height);
        }
    }
    return units;
}

void UseColorsOfPalette() {
    const QPalette palette = QApplication::palette();
    SetSystemColors(ToSystemColor(palette.color(QPalette::Base)),
                    ToSystemColor(palette.color(QPalette::Button)));
}

}  // namespace kelvarin::view
