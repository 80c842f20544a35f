// Push buttons, check boxes, radio buttons; labels and frames around groups.
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "platform/framework/UserInput.h"
#include "platform/framework/portable/DialogFront.h"
#include "view/dialog/ControlWidget.h"
#include "view/dialog/QtText.h"

namespace kelvarin::view {
namespace {

QAbstractButton* NewButton(const ControlParts& parts) {
    switch (parts.Control.Kind) {
        case ControlKind::CheckBox:
            return new QCheckBox(parts.Parent);
        case ControlKind::RadioButton: {
            auto* const radio = new QRadioButton(parts.Parent);
            radio->setAutoExclusive(false);  // groups are the dialog's
            return radio;
        }
        default: {
            auto* const button = new QPushButton(parts.Parent);
            // The dialog itself presses it at Enter.
            button->setAutoDefault(false);
            button->setDefault(parts.Control.Kind == ControlKind::DefaultButton);
            return button;
        }
    }
}

class ButtonWidget : public ControlWidget {
  public:
    explicit ButtonWidget(const ControlParts& parts) : ButtonWidget(parts, NewButton(parts)) {}

  protected:
    void ShowContent() override {
        if (const QString text = ToQt(Parts.Control.Text); Button->text() != text) Button->setText(text);
        if (Button->isCheckable()) Button->setChecked(Parts.Control.Checked);
    }

  private:
    ButtonWidget(const ControlParts& parts, QAbstractButton* button)
        : ControlWidget(parts, button), Button(button) {
        QObject::connect(button, &QAbstractButton::clicked, button,
                         [this] { Do([this] { UserClick(Parts.Page, Parts.Control.Id); }); });
    }

    QAbstractButton* const Button;
};

class LabelWidget : public ControlWidget {
  public:
    explicit LabelWidget(const ControlParts& parts) : ControlWidget(parts, new QLabel(parts.Parent)) {
        Label().setTextFormat(Qt::PlainText);
        Label().setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    }

  protected:
    void ShowContent() override {
        if (const QString text = ToQt(Parts.Control.Text); Label().text() != text) Label().setText(text);
    }

  private:
    QLabel& Label() const { return static_cast<QLabel&>(Widget()); }
};

class GroupWidget : public ControlWidget {
  public:
    explicit GroupWidget(const ControlParts& parts) : ControlWidget(parts, new QGroupBox(parts.Parent)) {}

  protected:
    // Some styles draw the title above the frame: it takes the gap to the group before, so that the frame
    // stays clear of the controls in it.
    QRect Room() const override {
        constexpr short Gap = 3;  // dialog units
        return ControlWidget::Room().adjusted(0, -GetDialogUnits().ToPixels({0, 0, 0, Gap}).Height(), 0, 0);
    }

    void ShowContent() override { static_cast<QGroupBox&>(Widget()).setTitle(ToQt(Parts.Control.Text)); }
};

}  // namespace

std::unique_ptr<ControlWidget> MakeButton(const ControlParts& parts) {
    return std::make_unique<ButtonWidget>(parts);
}

std::unique_ptr<ControlWidget> MakeCaption(const ControlParts& parts) {
    if (parts.Control.Kind == ControlKind::GroupBox) return std::make_unique<GroupWidget>(parts);
    return std::make_unique<LabelWidget>(parts);
}

}  // namespace kelvarin::view
