#include <iterator>

#include "resources/DialogTemplates.h"
#include "resources/ModuleResources.h"
#include "resources/ResourceIds.h"

namespace {

constexpr StringResource Strings[] = {
    {IdAppName, u"CSV-Import"},
    {IdFileFilter, u"Textdatei mit Trennzeichen|*.csv;*.txt"},
    {IdSidecarFilter, u"Sidecar-Datei (*.info)|*.info"},
    {IdTimeFormats, u"hhmmss| hh:mm:ss,000"},
    {IdElapsedTimeFormats, u"[h]:mm:ss,000| [s],000| [ms],000 | [µs],000| [ns]"},
    {IdDateFormats, u"TT.MM.JJJJ| JJJJ/MM/TT| JJJJ-MM-TT| JJJJMMTT| JJMMTT"},
    {IdFormatLetters, u"JMThms"},
    {IdTimestampView, u"%x  %X.%ms%µs%ns"},
    {IdSpanView, u"%h:%M:%S.%ms%µs%ns"},
    {IdFormatMismatch, u"(Formatangabe passt nicht)"},
    {IdNeutralFormatLetters, u"YMDhms"},
    {IdColumnName, u"Spalte %i"},
    {IdDateColumnName, u"Datum"},
    {IdTimeColumnName, u"Uhrzeit"},
    {IdDateTimeColumnName, u"Datum / Uhrzeit"},
    {IdNoSeparator, u"Legen Sie ein Trennzeichen fest."},
    {IdWrongColumn, u"Geben Sie eine gültige Spaltennummer zwischen 1 und %i ein."},
    {IdNoFormat, u"Geben Sie eine gültige Formatangabe ein."},
    {IdNoSignal, u"Mindestens ein Signal muss zum Import ausgewählt sein."},
    {IdSignalHeadings, u"Name, Datentyp"},
    {IdDataTypeNames,
     u"nicht definiert, Boolescher Wert, Ganzzahl, Ganzzahl mit Einheit, Hexadezimalzahl, Fließkommazahl, "
     u"Fließkommazahl mit Einheit, Zeichen / Buchstabe, Zeichenkette"},
    {IdNoDataType, u"Geben Sie einen gültigen Datentyp für alle zu importierenden Signale an."},
    {IdDescription, u"Importiert am %s aus %s"},
    {IdReadError, u"Beim Lesen aus der Quelldatei ist ein Fehler aufgetreten."},
    {IdNoValidFile,
     u"Die Quelldatei ist keine gültige CSV-Datei entsprechend den eingestellten Formatvorgaben."},
    {IdTooFewLines, u"Die Quelldatei enthält zu wenig Zeilen."},
    {IdWrongCell, u"Der Wert '%s' des Signals '%s' in Zeile %i ist nicht vom Typ '%s'."},
    {IdNoTimestamp,
     u"Für den Datensatz in Zeile %i konnte kein gültiger Zeitstempel importiert bzw. generiert werden."},
    {IdBefore1990, u"Absolute Zeitstempel vor dem 01.01.1990 können von kelvarin nicht verarbeitet werden."},
    {IdBadSidecar, u"Die Sidecar-Datei '%s' enthält ungültige Angaben."},
    {IdOpenTitle, u"Öffnen"},
};

}  // namespace

ModuleState& CsvImportModule() {
    static ModuleState module(StringTable{Strings, std::size(Strings)}, GetDialogTemplates(), u"csv-import");
    return module;
}
