#include "host/language/Phrase.h"

namespace kelvarin {
namespace {
// How sure something is that was found, and what became of it.
constexpr Translation Texts[] = {
    {"guess", "Vorschlag"},
    {"certain", "sicher"},
    {"likely", "wahrscheinlich"},
    {"a guess", "geraten"},
    {"none: {}", "keiner: {}"},
    {"but: {}", "aber: {}"},
    {"saved in {}", "abgelegt in {}"},
    {"not saved: {}", "nicht abgelegt: {}"},
    {"a sidecar says how the file is read", "eine Sidecar-Datei sagt, wie die Datei gelesen wird"},
    {"the settings say how the file is read", "die Einstellungen sagen, wie die Datei gelesen wird"},
    {"no rows of a table were found", "es wurden keine Zeilen einer Tabelle gefunden"},
    {"{} exists already and stays as it is", "{} gibt es schon und bleibt, wie sie ist"},
    {"this module shows no rows", "dieses Modul zeigt keine Zeilen"},
    {"this module has no sidecars", "dieses Modul hat keine Sidecar-Dateien"},
    // What speaks against it.
    {"only {} rows to judge by", "nur {} Zeilen als Grundlage"},
    {"day and month could be swapped: no row tells which comes first",
     "Tag und Monat könnten vertauscht sein: keine Zeile zeigt, was zuerst kommt"},
    {"that the day comes before the month follows from the distances of the rows alone",
     "dass der Tag vor dem Monat steht, folgt allein aus den Abständen der Zeilen"},
    {"that the month comes before the day follows from the distances of the rows alone",
     "dass der Monat vor dem Tag steht, folgt allein aus den Abständen der Zeilen"},
    {"plain numbers may mean something else", "bloße Zahlen können etwas anderes bedeuten"},
    // The advice when no row has a time.
    {"no row has a timestamp, since no timestamp format is set",
     "keine Zeile hat einen Zeitstempel, da kein Zeitstempelformat gesetzt ist"},
    {"no row fits the timestamp format '{}'", "keine Zeile passt zum Zeitstempelformat '{}'"},
    {"; {} ({})", "; {} ({})"},
};
}  // namespace

std::span<const Translation> GermanGuessTexts() {
    return Texts;
}
}  // namespace kelvarin
