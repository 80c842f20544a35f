#include "resources/DialogTemplates.h"

#include <iterator>

#include "platform/framework/DialogTemplate.h"
#include "resources/ResourceIds.h"

namespace {

using Kind = ControlKind;
constexpr int NoId = -1;

constexpr ControlTemplate OptionDialogControls[] = {
    {1, Kind::DefaultButton, u"OK", 0, {250, 346, 50, 14}},
    {2, Kind::PushButton, u"Abbrechen", 0, {306, 346, 50, 14}},
};

constexpr ControlTemplate SignalPageControls[] = {
    {NoId,
     Kind::Label,
     u"Folgende Signale mit dem angegebenen Namen und Datentyp importieren:",
     0,
     {7, 7, 340, 8}},
    {CtrlSignalList, Kind::ListView, u"", 0, {7, 19, 340, 276}},
    {CtrlResetSignals, Kind::PushButton, u"&Zurücksetzen", 0, {7, 300, 60, 14}},
};

constexpr ControlTemplate DescriptionPageControls[] = {
    {NoId,
     Kind::Label,
     u"Folgende Informationen über das importierte Dokument speichern:",
     0,
     {7, 7, 340, 8}},
    {CtrlDescription, Kind::Edit, u"", ControlMultiLine, {7, 19, 340, 294}},
};

// In the order of tabbing.
constexpr ControlTemplate OptionPageControls[] = {
    {NoId, Kind::GroupBox, u"Format", 0, {7, 4, 340, 84}},
    {CtrlAutoFormat, Kind::CheckBox, u"&Automatisch bestimmen", 0, {14, 15, 160, 10}},
    {CtrlSeparatorLabel, Kind::Label, u"&Trennzeichen:", 0, {14, 29, 53, 8}},
    {CtrlSemicolon, Kind::RadioButton, u"Semikolon", ControlGroup, {68, 28, 50, 10}},
    {CtrlComma, Kind::RadioButton, u"Komma", 0, {119, 28, 40, 10}},
    {CtrlTab, Kind::RadioButton, u"Tabulator", 0, {160, 28, 47, 10}},
    {CtrlSpace, Kind::RadioButton, u"Leerzeichen", 0, {208, 28, 56, 10}},
    {CtrlOther, Kind::RadioButton, u"Anderes:", 0, {265, 28, 54, 10}},
    {CtrlOtherSeparator, Kind::Edit, u"", 0, {320, 26, 20, 13}},
    {CtrlMergeSeparators,
     Kind::CheckBox,
     u"Aufeinanderfolgende Trennzeichen als &ein Zeichen behandeln",
     0,
     {14, 42, 300, 10}},
    {CtrlFirstLineLabel, Kind::Label, u"Import &beginnen ab der Zeile", 0, {14, 58, 110, 8}},
    {CtrlFirstLine, Kind::Edit, u"", ControlDigits, {128, 56, 34, 13}},
    {CtrlFirstLineSpin, Kind::Spin, u"", ControlBuddy, {162, 56, 11, 13}},
    {CtrlImportHeader, Kind::CheckBox, u"Erste importierte Zeile enthält Signal&namen", 0, {14, 73, 300, 10}},
    {NoId, Kind::GroupBox, u"Zeitstempel", 0, {7, 91, 340, 124}},
    {CtrlDateLabel, Kind::Label, u"&Datum:", 0, {14, 103, 30, 8}},
    {CtrlDateFromColumn, Kind::RadioButton, u"Aus Spalte", ControlGroup, {48, 102, 64, 10}},
    {CtrlFixedDate, Kind::RadioButton, u"Festes Startdatum", 0, {48, 116, 84, 10}},
    {CtrlNoDate, Kind::RadioButton, u"Ohne Datum (Import mit relativer Messzeit)", 0, {48, 130, 220, 10}},
    {CtrlDateColumn, Kind::Edit, u"", ControlDigits, {136, 100, 34, 13}},
    {CtrlDateColumnSpin, Kind::Spin, u"", ControlBuddy, {170, 100, 11, 13}},
    {CtrlStartDate, Kind::DatePicker, u"", 0, {136, 114, 76, 13}},
    {CtrlUnixStartDate, Kind::PushButton, u"Unix-Startdatum setzen", 0, {218, 114, 100, 13}},
    {CtrlTimeLabel, Kind::Label, u"&Zeit:", 0, {14, 145, 30, 8}},
    {CtrlTimeFromColumn, Kind::RadioButton, u"Aus Spalte", ControlGroup, {48, 144, 64, 10}},
    {CtrlFixedInterval, Kind::RadioButton, u"Festes Intervall von", 0, {48, 158, 84, 10}},
    {CtrlTimeColumn, Kind::Edit, u"", ControlDigits, {136, 142, 34, 13}},
    {CtrlTimeColumnSpin, Kind::Spin, u"", ControlBuddy, {170, 142, 11, 13}},
    {CtrlIntervalValue, Kind::Edit, u"", 0, {136, 156, 45, 13}},
    {CtrlIntervalUnit, Kind::DropDownList, u"", 0, {186, 156, 40, 80}, u"h|min|s|ms|µs|ns"},
    {CtrlAdjust, Kind::CheckBox, u"Korrektur", 0, {48, 172, 60, 10}},
    {CtrlAdjustTime, Kind::TimePicker, u"", 0, {136, 170, 60, 13}},
    {CtrlAdjustMode,
     Kind::DropDownList,
     u"",
     0,
     {202, 170, 90, 60},
     u"neue Startzeit|positiver Offset|negativer Offset"},
    {CtrlFormatLabel,
     Kind::Label,
     u"&Format (Datum und Uhrzeit ggf. mit Trennzeichen):",
     0,
     {14, 188, 204, 8}},
    {CtrlFormat, Kind::ComboBox, u"", 0, {220, 186, 120, 120}},
    {CtrlFirstTimestampLabel, Kind::Label, u"Vorschau für ersten Zeitstempel:", 0, {14, 202, 160, 8}},
    {CtrlFirstTimestamp, Kind::Edit, u"", ControlReadOnly, {220, 200, 120, 13}},
    {NoId, Kind::GroupBox, u"Vorschau", 0, {7, 218, 340, 92}},
    {CtrlPreview, Kind::ListView, u"", 0, {14, 229, 326, 75}},
    {CtrlUseAsDefault, Kind::CheckBox, u"Einstellungen als Standard übernehmen", 0, {7, 315, 190, 10}},
    {CtrlSaveSidecar,
     Kind::CheckBox,
     u"Einstellungen immer in Sidecar-Datei speichern",
     0,
     {7, 327, 220, 10}},
    {CtrlLoadSettings, Kind::PushButton, u"Einstellungen laden...", 0, {247, 320, 100, 14}},
};

constexpr DialogTemplate Templates[] = {
    {IdOptionDialog, u"Einstellungen für CSV-Import", 362, 366, OptionDialogControls,
     std::size(OptionDialogControls)},
    {IdSignalPage, u"Signale", 354, 340, SignalPageControls, std::size(SignalPageControls)},
    {IdDescriptionPage, u"Beschreibung", 354, 340, DescriptionPageControls,
     std::size(DescriptionPageControls)},
    {IdOptionPage, u"Allgemein", 354, 340, OptionPageControls, std::size(OptionPageControls)},
};

}  // namespace

DialogTable GetDialogTemplates() {
    return {Templates, std::size(Templates)};
}
