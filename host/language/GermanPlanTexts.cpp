#include "host/language/Phrase.h"

namespace kelvarin {
namespace {
// What is found out of a file by itself.
constexpr Translation Texts[] = {
    // The table.
    {"{} from line {} on, {}", "{} ab Zeile {}, {}"},
    {"separated by semicolons", "durch Semikolons getrennt"},
    {"separated by commas", "durch Kommas getrennt"},
    {"separated by tabs", "durch Tabulatoren getrennt"},
    {"separated by blanks", "durch Leerzeichen getrennt"},
    {"separated by bars", "durch senkrechte Striche getrennt"},
    {"separated by colons", "durch Doppelpunkte getrennt"},
    {"without a separator", "ohne Trennzeichen"},
    {"each line in quotes", "jede Zeile in Anführungszeichen"},
    {"names in line {}", "Namen in Zeile {}"},
    {"units in line {}", "Einheiten in Zeile {}"},
    {"no line names the columns", "keine Zeile benennt die Spalten"},
    // The times.
    {"column {}", "Spalte {}"},
    {"date in {}", "Datum in {}"},
    {"date and time in {}", "Datum und Uhrzeit in {}"},
    {"date and time in parts: {}", "Datum und Uhrzeit in Teilen: {}"},
    {"day before month", "Tag vor Monat"},
    {"month before day", "Monat vor Tag"},
    {"year before month and day", "Jahr vor Monat und Tag"},
    {"time of day without a date in {}", "Uhrzeit ohne Datum in {}"},
    {"running over midnight", "über Mitternacht laufend"},
    {"milliseconds without leading zeros", "Millisekunden ohne führende Nullen"},
    {"elapsed time in {}", "vergangene Zeit in {}"},
    {"elapsed {} in {}", "vergangene {} in {}"},
    {"{} since 1970 in {}", "{} seit 1970 in {}"},
    {"days of the year in {}", "Tage des Jahres in {}"},
    {"Julian days in {}", "julianische Tage in {}"},
    {"modified Julian days in {}", "modifizierte julianische Tage in {}"},
    {"days since 30 December 1899 in {}", "Tage seit dem 30. Dezember 1899 in {}"},
    {"nanoseconds", "Nanosekunden"},
    {"microseconds", "Mikrosekunden"},
    {"milliseconds", "Millisekunden"},
    {"seconds", "Sekunden"},
    {"minutes", "Minuten"},
    {"hours", "Stunden"},
    {"days", "Tage"},
    {"units of {}", "Einheiten von {}"},
    {"no column holds times: a row every {}", "keine Spalte enthält Zeiten: eine Zeile alle {}"},
    {"no column holds times: a row every {}, from the start named above on",
     "keine Spalte enthält Zeiten: eine Zeile alle {} ab dem oberhalb genannten Beginn"},
    {"no row has a time", "keine Zeile hat eine Zeit"},
    {"no row tells whether day or month comes first: it is the usual order of such dates",
     "keine Zeile zeigt, ob Tag oder Monat zuerst kommt: es ist die übliche Reihenfolge solcher Daten"},
    {"the interval is taken from the lines above the table",
     "das Intervall stammt aus den Zeilen oberhalb der Tabelle"},
    {"nothing names the interval: it is an example", "nichts nennt das Intervall: es ist ein Beispiel"},
    {"the year is taken from the lines above the table",
     "das Jahr stammt aus den Zeilen oberhalb der Tabelle"},
    {"the last row has the time of the first: it seems to be a total",
     "die letzte Zeile hat die Zeit der ersten: sie scheint eine Summe zu sein"},
    {"hours and minutes could be minutes and seconds",
     "Stunden und Minuten könnten Minuten und Sekunden sein"},
    {"the unit is not named", "die Einheit ist nicht genannt"},
    {"{} holds times as well", "auch {} enthält Zeiten"},
    // The rows.
    {"{} of the {} rows looked at have a time", "{} der {} geprüften Zeilen haben eine Zeit"},
    {"rows without a time: {}", "Zeilen ohne Zeit: {}"},
    {"the newest row is the first", "die neueste Zeile ist die erste"},
    {"times fall back: {}", "Zeiten fallen zurück: {}"},
    {"times repeat: {}", "Zeiten wiederholen sich: {}"},
    // Units and types.
    {"{} with units, from line {}", "{} mit Einheiten, aus Zeile {}"},
    {"{} with units, from the names or the cells", "{} mit Einheiten, aus den Namen oder den Zellen"},
    {"texts", "Texte"},
    {"characters", "Zeichen"},
    {"truth values", "Wahrheitswerte"},
    {"whole numbers", "ganze Zahlen"},
    {"hexadecimal numbers", "Hexadezimalzahlen"},
    {"decimal numbers", "Dezimalzahlen"},
    {"{} of the file were looked at", "{} der Datei wurden geprüft"},
};
}  // namespace

std::span<const Translation> GermanPlanTexts() {
    return Texts;
}
}  // namespace kelvarin
