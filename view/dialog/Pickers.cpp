// Pickers of a date and of a time of day.
#include <QDateTimeEdit>
#include <QLocale>

#include "platform/framework/Locale.h"
#include "platform/framework/UserInput.h"
#include "view/dialog/ControlWidget.h"

namespace kelvarin::view {
namespace {

// The user's format of dates, all in digits so that one can be typed through, with the whole year.
QString DateFormat() {
    QString format = QLocale().dateFormat(QLocale::ShortFormat);
    if (format.contains("MMM") || !format.contains('y')) return "yyyy-MM-dd";
    format.replace(QRegularExpression("y+"), "yyyy");
    format.replace(QRegularExpression("M+"), "MM");
    format.replace(QRegularExpression("d+"), "dd");
    return format;
}

QString TimeFormat() {
    const QString format = QLocale().timeFormat(QLocale::ShortFormat);
    return format.contains("ap", Qt::CaseInsensitive) ? "hh:mm:ss AP" : "HH:mm:ss";
}

class PickerWidget : public ControlWidget {
  public:
    explicit PickerWidget(const ControlParts& parts) : ControlWidget(parts, new QDateTimeEdit(parts.Parent)) {
        // What is shown is a date and a time of day: no zone skips or repeats an hour of it.
        Picker().setTimeSpec(Qt::UTC);
        if (parts.Control.Kind == ControlKind::DatePicker) {
            Picker().setDateRange(QDate(1601, 1, 1), QDate(9999, 12, 31));
            Picker().setDisplayFormat(DateFormat());
            Picker().setCalendarPopup(true);
            QObject::connect(&Picker(), &QDateTimeEdit::dateChanged, &Picker(), [this](QDate date) {
                Do([&] { UserSetDate(Parts.Page, Parts.Control.Id, date.year(), date.month(), date.day()); });
            });
        } else {
            Picker().setDisplayFormat(TimeFormat());
            QObject::connect(&Picker(), &QDateTimeEdit::timeChanged, &Picker(), [this](QTime time) {
                Do([&] {
                    UserSetTime(Parts.Page, Parts.Control.Id, time.hour(), time.minute(), time.second());
                });
            });
        }
    }

  protected:
    void ShowContent() override {
        LocalTime local{};
        if (!ToLocalTime(Parts.Control.Seconds, local)) return;
        const QDate date(local.Year, local.Month, local.Day);
        const QTime time(local.Hour, local.Minute, local.Second);
        if (Picker().date() == date && Picker().time() == time) return;
        const QDateTimeEdit::Section section = Picker().currentSection();
        Picker().setDateTime(QDateTime(date, time, Qt::UTC));
        Picker().setCurrentSection(section);
    }

  private:
    QDateTimeEdit& Picker() const { return static_cast<QDateTimeEdit&>(Widget()); }
};

}  // namespace

std::unique_ptr<ControlWidget> MakePicker(const ControlParts& parts) {
    return std::make_unique<PickerWidget>(parts);
}

}  // namespace kelvarin::view
