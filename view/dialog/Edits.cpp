// Edits, also with a spin beside them, and boxes with a list.
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRegularExpressionValidator>

#include "platform/framework/UserInput.h"
#include "platform/framework/portable/DialogFront.h"
#include "view/dialog/ControlWidget.h"
#include "view/dialog/QtText.h"

namespace kelvarin::view {
namespace {

const QRegularExpression& Digits() {
    static const QRegularExpression digits("[0-9]*");
    return digits;
}

// Gives an edit the text if it has another one, with the caret where it was.
void ShowText(QLineEdit& edit, const NativeWindow& control) {
    constexpr int Unlimited = 32767;
    edit.setMaxLength(control.TextLimit > 0 ? control.TextLimit : Unlimited);
    const QString text = ToQt(control.Text);
    if (edit.text() == text) return;
    const int caret = edit.cursorPosition();
    const bool wasAtEnd = caret == edit.text().size();
    edit.setText(text);
    edit.setCursorPosition(wasAtEnd ? static_cast<int>(text.size()) : caret);
}

class EditWidget : public ControlWidget {
  public:
    explicit EditWidget(const ControlParts& parts) : ControlWidget(parts, new QLineEdit(parts.Parent)) {
        if ((parts.Control.Style & ControlDigits) != 0)
            Edit().setValidator(new QRegularExpressionValidator(Digits(), &Edit()));
        if ((parts.Control.Style & ControlReadOnly) != 0) MakeReadOnly();
        QObject::connect(&Edit(), &QLineEdit::textEdited, &Edit(), [this](const QString& text) {
            Do([&] { EnterText(Parts.Page, Parts.Control.Id, FromQt(text)); });
        });
    }

  protected:
    void ShowContent() override { ShowText(Edit(), Parts.Control); }

  private:
    // In the colour of the window, so that nobody tries to type there.
    void MakeReadOnly() {
        Edit().setReadOnly(true);
        QPalette palette = Edit().palette();
        palette.setBrush(QPalette::Base, palette.window());
        Edit().setPalette(palette);
    }

    QLineEdit& Edit() const { return static_cast<QLineEdit&>(Widget()); }
};

class TextWidget : public ControlWidget {
  public:
    explicit TextWidget(const ControlParts& parts) : ControlWidget(parts, new QPlainTextEdit(parts.Parent)) {
        Edit().setTabChangesFocus(true);
        QObject::connect(&Edit(), &QPlainTextEdit::textChanged, &Edit(), [this] {
            Do([this] { EnterText(Parts.Page, Parts.Control.Id, FromQt(Edit().toPlainText())); });
        });
    }

  protected:
    void ShowContent() override {
        if (const QString text = ToQt(Parts.Control.Text); Edit().toPlainText() != text)
            Edit().setPlainText(text);
    }

  private:
    QPlainTextEdit& Edit() const { return static_cast<QPlainTextEdit&>(Widget()); }
};

// A box of digits with two arrows. Any number can be typed; the dialog says which ones it takes.
class SpinBox : public QAbstractSpinBox {
  public:
    SpinBox(QWidget* parent, std::function<void(int)> step)
        : QAbstractSpinBox(parent), Step(std::move(step)) {
        setKeyboardTracking(false);
    }

    void stepBy(int steps) override { Step(steps); }
    QValidator::State validate(QString& text, int&) const override {
        const QRegularExpressionMatch match = Digits().match(text, 0, QRegularExpression::NormalMatch,
                                                             QRegularExpression::AnchorAtOffsetMatchOption);
        return match.capturedLength() == text.size() ? QValidator::Acceptable : QValidator::Invalid;
    }
    using QAbstractSpinBox::lineEdit;

  protected:
    StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }

  private:
    const std::function<void(int)> Step;
};

class SpinWidget : public ControlWidget {
  public:
    explicit SpinWidget(const ControlParts& parts)
        : ControlWidget(parts, new SpinBox(parts.Parent, [this](int steps) {
                            Do([&] { UserSpin(Parts.Page, Parts.Spin->Id, steps); });
                        })) {
        QObject::connect(&Edit(), &QLineEdit::textEdited, &Edit(), [this](const QString& text) {
            Do([&] { EnterText(Parts.Page, Parts.Control.Id, FromQt(text)); });
        });
    }

  protected:
    void ShowContent() override { ShowText(Edit(), Parts.Control); }

  private:
    QLineEdit& Edit() const { return *static_cast<SpinBox&>(Widget()).lineEdit(); }
};

class ComboWidget : public ControlWidget {
  public:
    explicit ComboWidget(const ControlParts& parts) : ControlWidget(parts, new QComboBox(parts.Parent)) {
        if (parts.Control.Kind == ControlKind::ComboBox) MakeEditable();
        QObject::connect(&Combo(), &QComboBox::activated, &Combo(), [this](int index) {
            if (index == Parts.Control.Selected) return;
            Do([&] { UserSelect(Parts.Page, Parts.Control.Id, index); });
        });
    }

  protected:
    void ShowContent() override {
        const NativeWindow& control = Parts.Control;
        if (!HoldsItems()) {
            Combo().clear();
            for (const std::u16string& item : control.Items) Combo().addItem(ToQt(item));
        }
        if (Combo().currentIndex() != control.Selected) Combo().setCurrentIndex(control.Selected);
        if (Combo().isEditable()) ShowText(*Combo().lineEdit(), control);
    }

  private:
    // The text is the control's: neither is it completed, nor does it select the entry that equals it.
    void MakeEditable() {
        Combo().setEditable(true);
        Combo().setInsertPolicy(QComboBox::NoInsert);
        Combo().setCompleter(nullptr);
        QLineEdit* const edit = Combo().lineEdit();
        QObject::disconnect(edit, &QLineEdit::editingFinished, &Combo(), nullptr);
        QObject::disconnect(edit, &QLineEdit::returnPressed, &Combo(), nullptr);
        QObject::connect(edit, &QLineEdit::textEdited, edit, [this](const QString& text) {
            Do([&] { EnterText(Parts.Page, Parts.Control.Id, FromQt(text)); });
        });
    }

    bool HoldsItems() const {
        const auto& items = Parts.Control.Items;
        if (static_cast<std::size_t>(Combo().count()) != items.size()) return false;
        for (int i = 0; i < Combo().count(); ++i) {
            if (FromQt(Combo().itemText(i)) != items[static_cast<std::size_t>(i)]) return false;
        }
        return true;
    }

    QComboBox& Combo() const { return static_cast<QComboBox&>(Widget()); }
};

}  // namespace

std::unique_ptr<ControlWidget> MakeTextEdit(const ControlParts& parts) {
    if ((parts.Control.Style & ControlMultiLine) != 0) return std::make_unique<TextWidget>(parts);
    return std::make_unique<EditWidget>(parts);
}

std::unique_ptr<ControlWidget> MakeSpinEdit(const ControlParts& parts) {
    return std::make_unique<SpinWidget>(parts);
}

std::unique_ptr<ControlWidget> MakeComboBox(const ControlParts& parts) {
    return std::make_unique<ComboWidget>(parts);
}

}  // namespace kelvarin::view
