#include "view/dialog/ControlWidget.h"

#include <algorithm>

#include "platform/framework/portable/DialogFront.h"

namespace kelvarin::view {
namespace {

// The height of a list that is dropped down counts with its list.
constexpr short ComboHeight = 13;  // dialog units

}  // namespace

ControlWidget::ControlWidget(const ControlParts& parts, QWidget* drawn) : Parts(parts), Drawn(drawn) {
    Drawn->setObjectName(QString::number(parts.Control.Id));
}

ControlWidget::~ControlWidget() {
    delete Drawn;
}

QRect ControlWidget::Room() const {
    CRect place = Parts.Control.Place;
    if (Parts.Control.IsCombo())
        place.Bottom = place.Top + GetDialogUnits().ToPixels({0, 0, 0, ComboHeight}).Height();
    if (Parts.Spin != nullptr) place.Right = std::max(place.Right, Parts.Spin->Place.Right);
    return {place.Left, place.Top, place.Width(), place.Height()};
}

void ControlWidget::Place() {
    Drawn->setGeometry(Room());
}

void ControlWidget::Show() {
    if (Drawn->isEnabledTo(Parts.Parent) != Parts.Control.Enabled) Drawn->setEnabled(Parts.Control.Enabled);
    ShowContent();
}

bool ControlWidget::TakesFocus() const {
    const ControlKind kind = Parts.Control.Kind;
    return kind != ControlKind::Label && kind != ControlKind::GroupBox && Parts.Control.Enabled;
}

std::unique_ptr<ControlWidget> MakeControlWidget(const ControlParts& parts) {
    switch (parts.Control.Kind) {
        case ControlKind::Label:
        case ControlKind::GroupBox:
            return MakeCaption(parts);
        case ControlKind::CheckBox:
        case ControlKind::RadioButton:
        case ControlKind::PushButton:
        case ControlKind::DefaultButton:
            return MakeButton(parts);
        case ControlKind::Edit:
            return parts.Spin != nullptr ? MakeSpinEdit(parts) : MakeTextEdit(parts);
        case ControlKind::ComboBox:
        case ControlKind::DropDownList:
            return MakeComboBox(parts);
        case ControlKind::DatePicker:
        case ControlKind::TimePicker:
            return MakePicker(parts);
        case ControlKind::ListView:
            return MakeList(parts);
        case ControlKind::Spin:
            break;
    }
    return nullptr;
}

}  // namespace kelvarin::view
