#include "host/language/Phrase.h"

namespace kelvarin {
namespace {
// What --guess-time says.
constexpr Translation Texts[] = {
    {"guess", "Vorschlag"},
    {"certain", "sicher"},
    {"likely", "wahrscheinlich"},
    {"a guess", "geraten"},
    {"none: {}", "keiner: {}"},
    {"{} of the {} rows looked at fit", "{} der {} geprüften Zeilen passen"},
    {"but: {}", "aber: {}"},
    {"or: {}: {}", "oder: {}: {}"},
    {"saved in {}", "abgelegt in {}"},
    {"not saved: {}", "nicht abgelegt: {}"},
    {"{} exists already and stays as it is", "{} gibt es schon und bleibt, wie sie ist"},
    {"it is not used: {} is in force", "er wird nicht verwendet: {} gilt"},
    {"{} stays as it was set", "{} bleibt, wie es gesetzt ist"},
    {"the table has no rows", "die Tabelle hat keine Zeilen"},
    {"this module shows no rows", "dieses Modul zeigt keine Zeilen"},
    {"this module has no sidecars", "dieses Modul hat keine Sidecar-Dateien"},
    // What was found.
    {"date and time in column {}", "Datum und Uhrzeit in Spalte {}"},
    {"date in column {}, time in column {}", "Datum in Spalte {}, Uhrzeit in Spalte {}"},
    {"date in column {}", "Datum in Spalte {}"},
    {"{} since 1970 in column {}", "{} seit 1970 in Spalte {}"},
    {"time without a date in column {}", "Uhrzeit ohne Datum in Spalte {}"},
    {"elapsed {} in column {}", "vergangene {} in Spalte {}"},
    {"a fixed interval of {} {}", "ein festes Intervall von {} {}"},
    {"a fixed interval of {} {} from the time of the first row, as column {} tells",
     "ein festes Intervall von {} {} ab der Zeit der ersten Zeile, wie Spalte {} zeigt"},
    // What speaks against it.
    {"only {} rows to judge by", "nur {} Zeilen als Grundlage"},
    {"the format does not fit {}", "das Format passt nicht auf {}"},
    {"{} of the {} rows looked at", "{} der {} geprüften Zeilen"},
    {"the newest row stands first: only the first row is taken, unless the file is turned around",
     "die neueste Zeile steht zuerst: nur die erste Zeile wird übernommen, solange die Datei nicht umgedreht "
     "wird"},
    {"times repeat: {} of the {} rows looked at are lost",
     "Zeiten wiederholen sich: {} der {} geprüften Zeilen gehen verloren"},
    {"times fall: {} of the {} rows looked at are lost",
     "Zeiten fallen: {} der {} geprüften Zeilen gehen verloren"},
    {"day and month could be swapped: no row tells which comes first",
     "Tag und Monat könnten vertauscht sein: keine Zeile zeigt, was zuerst kommt"},
    {"that the day comes before the month follows from the distances of the rows alone",
     "dass der Tag vor dem Monat steht, folgt allein aus den Abständen der Zeilen"},
    {"that the month comes before the day follows from the distances of the rows alone",
     "dass der Monat vor dem Tag steht, folgt allein aus den Abständen der Zeilen"},
    {"plain numbers may mean something else", "bloße Zahlen können etwas anderes bedeuten"},
    {"the zone {} is not applied: the times count as local ones of this computer",
     "die Zone {} wird nicht angewandt: die Zeiten gelten als Ortszeit dieses Rechners"},
    {"the zone's digits add up to a quarter of a second to every time",
     "die Ziffern der Zone verschieben jede Zeit um bis zu eine Viertelsekunde"},
    {"the cells hold two times; the later is read and set back to the earlier",
     "die Zellen enthalten zwei Zeiten; die spätere wird gelesen und auf die frühere zurückgestellt"},
    {"the cells hold two times; the later is taken",
     "die Zellen enthalten zwei Zeiten; die spätere wird verwendet"},
    {"no unit is named; {} makes usual steps", "keine Einheit ist genannt; {} ergibt übliche Abstände"},
    {"the column's name does not speak of time", "der Name der Spalte deutet nicht auf eine Zeit"},
    {"the rows have no date; the start is that of the file's last change",
     "die Zeilen haben kein Datum; der Beginn richtet sich nach der letzten Änderung der Datei"},
    {"there are times before 1990, which the host can't process",
     "es gibt Zeiten vor 1990, die das Programm nicht verarbeiten kann"},
    {"no format can read column {}: its letter {} is a field of the format",
     "kein Format kann Spalte {} lesen: ihr Buchstabe {} ist ein Feld des Formats"},
    {"in English the format holds it", "auf Englisch kann das Format ihn enthalten"},
    {"the rows do not follow each other evenly, so that an interval is wrong for some",
     "die Zeilen folgen nicht gleichmäßig aufeinander, ein Intervall ist also für manche falsch"},
    {"no column holds times that a format can read; the interval is a mere example",
     "keine Spalte enthält Zeiten, die ein Format lesen kann; das Intervall ist nur ein Beispiel"},
    {"no format can read a clock of twelve hours (AM, PM)",
     "kein Format kann eine Uhr mit zwölf Stunden lesen (AM, PM)"},
    // The advice when no row has a time.
    {"no row has a timestamp, since no timestamp format is set",
     "keine Zeile hat einen Zeitstempel, da kein Zeitstempelformat gesetzt ist"},
    {"no row fits the timestamp format '{}'", "keine Zeile passt zum Zeitstempelformat '{}'"},
    {" and no format fits; {}", " und kein Format passt; {}"},
    {"; {} ({})", "; {} ({})"},
    {"this module shows no rows", "dieses Modul zeigt keine Datensätze"},
};
}  // namespace

std::span<const Translation> GermanGuessTexts() {
    return Texts;
}
}  // namespace kelvarin
