#include "languages/English.h"

#include <iterator>

#include "platform/framework/FrameworkStrings.h"
#include "resources/ResourceIds.h"

namespace {

constexpr StringResource Strings[] = {
    {IdAppName, u"CSV import"},
    {IdFileFilter, u"Text file with separators|*.csv;*.txt"},
    {IdSidecarFilter, u"Sidecar file (*.info)|*.info"},
    {IdTimeFormats, u"hhmmss| hh:mm:ss.000| hh:mm:ss,000"},
    {IdElapsedTimeFormats, u"[h]:mm:ss.000| [s].000| [ms].000 | [µs].000| [ns]"},
    {IdDateFormats, u"YYYY-MM-DD| MM/DD/YYYY| DD/MM/YYYY| DD.MM.YYYY| YYYY/MM/DD| YYYYMMDD| YYMMDD"},
    {IdFormatLetters, u"YMDhms"},
    {IdFormatMismatch, u"(format doesn't fit)"},
    {IdColumnName, u"Column %i"},
    {IdDateColumnName, u"Date"},
    {IdTimeColumnName, u"Time"},
    {IdDateTimeColumnName, u"Date / time"},
    {IdNoSeparator, u"Choose a separator."},
    {IdWrongColumn, u"Enter a valid column number between 1 and %i."},
    {IdNoFormat, u"Enter a valid format."},
    {IdNoSignal, u"Select at least one signal for the import."},
    {IdSignalHeadings, u"Name, Data type"},
    {IdDataTypeNames,
     u"undefined, Boolean, Integer, Integer with unit, Hexadecimal number, Floating-point number, "
     u"Floating-point number with unit, Character / letter, String"},
    {IdNoDataType, u"Give a valid data type for every signal to import."},
    {IdDescription, u"Imported on %s from %s"},
    {IdReadError, u"An error occurred while reading the source file."},
    {IdNoValidFile, u"The source file is no valid CSV file under the format settings in force."},
    {IdTooFewLines, u"The source file has too few lines."},
    {IdWrongCell, u"The value '%s' of signal '%s' in line %i is not of type '%s'."},
    {IdNoTimestamp, u"No valid timestamp could be imported or generated for the record in line %i."},
    {IdBefore1990, u"kelvarin can't process absolute timestamps before 1990-01-01."},
    {IdBadSidecar, u"The sidecar file '%s' holds invalid values."},
    {IdOpenTitle, u"Open"},
    {IdWholeRange, u"Enter a whole number between %i and %i."},
    {IdNumberRange, u"Enter a number between %s and %s."},
    {IdMostCharacters, u"Enter at most %i characters."},
    {IdNoDevice, u"No device could be created for the source file."},
    {IdStoreFailed, u"An error occurred while writing to the data store."},
};

// Mnemonics differ within a page.
constexpr DialogText DialogTexts[] = {
    {u"Einstellungen für CSV-Import", u"CSV import settings"},
    {u"Signale", u"Signals"},
    {u"Beschreibung", u"Description"},
    {u"Allgemein", u"General"},
    {u"Abbrechen", u"Cancel"},
    {u"Folgende Signale mit dem angegebenen Namen und Datentyp importieren:",
     u"Import these signals with the given name and data type:"},
    {u"&Zurücksetzen", u"&Reset"},
    {u"Folgende Informationen über das importierte Dokument speichern:",
     u"Store this information about the imported document:"},
    {u"&Automatisch bestimmen", u"Detect &automatically"},
    {u"&Trennzeichen:", u"&Separator:"},
    {u"Semikolon", u"Semicolon"},
    {u"Komma", u"Comma"},
    {u"Tabulator", u"Tab"},
    {u"Leerzeichen", u"Space"},
    {u"Anderes:", u"Other:"},
    {u"Aufeinanderfolgende Trennzeichen als &ein Zeichen behandeln", u"Treat consecutive separators as &one"},
    {u"Import &beginnen ab der Zeile", u"Start import at &line"},
    {u"Erste importierte Zeile enthält Signal&namen", u"First imported line holds signal &names"},
    {u"Zeitstempel", u"Timestamp"},
    {u"&Datum:", u"&Date:"},
    {u"Aus Spalte", u"From column"},
    {u"Festes Startdatum", u"Fixed start date"},
    {u"Ohne Datum (Import mit relativer Messzeit)", u"No date (import with relative time)"},
    {u"Unix-Startdatum setzen", u"Set Unix start date"},
    {u"&Zeit:", u"&Time:"},
    {u"Festes Intervall von", u"Fixed interval of"},
    {u"Korrektur", u"Correction"},
    {u"neue Startzeit|positiver Offset|negativer Offset", u"new start time|positive offset|negative offset"},
    {u"&Format (Datum und Uhrzeit ggf. mit Trennzeichen):",
     u"&Format (date and time, with separator if any):"},
    {u"Vorschau für ersten Zeitstempel:", u"Preview of the first timestamp:"},
    {u"Vorschau", u"Preview"},
    {u"Einstellungen als Standard übernehmen", u"Use settings as default"},
    {u"Einstellungen immer in Sidecar-Datei speichern", u"Always save settings in sidecar file"},
    {u"Einstellungen laden...", u"Load settings..."},
};

constexpr LanguageResources English{{Strings, std::size(Strings)}, DialogTexts, std::size(DialogTexts)};

}  // namespace

const LanguageResources& GetEnglishResources() {
    return English;
}
