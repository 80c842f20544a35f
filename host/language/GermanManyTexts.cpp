#include "host/language/GermanTexts.h"

namespace kelvarin {

namespace {

// Many files, and sidecars copied and compared.
constexpr Translation Texts[] = {
    {"Spread the files over N processes", "Die Dateien auf N Prozesse verteilen"},
    {"With a folder as FILE: also the folders in it", "Mit einem Ordner als FILE: auch die Ordner darin"},
    {"imported", "importiert"},
    {"analyzed", "analysiert"},
    {"with the sidecar", "mit der Sidecar-Datei"},
    {"{} files: {} {}", "{} Dateien: {} {}"},
    {", {} failed: {}", ", {} gescheitert: {}"},
    {"checked", "geprüft"},
    {", {} of them with findings", ", davon {} mit Befunden"},
    {"; {} samples", "; {} Abtastwerte"},
    {",", "."},
    {"no process could be started: {}", "es konnte kein Prozess gestartet werden: {}"},
    {"its process ended with status {}", "ihr Prozess endete mit Status {}"},
    {"Copy a sidecar beside files with the same columns",
     "Eine Sidecar-Datei neben Dateien mit denselben Spalten kopieren"},
    {"Show where two sidecars differ", "Zeigen, worin sich zwei Sidecar-Dateien unterscheiden"},
    {"The sidecar", "Die Sidecar-Datei"},
    {"The other sidecar", "Die andere Sidecar-Datei"},
    {"Replace sidecars that are there already", "Vorhandene Sidecar-Dateien ersetzen"},
    {"{} exists already; --force replaces it", "{} gibt es schon; --force ersetzt sie"},
    {"its own file is not beside it, so that names of columns are not compared",
     "ihre eigene Datei liegt nicht daneben, daher werden Spaltennamen nicht verglichen"},
    {"it has {} columns instead of {}", "sie hat {} Spalten statt {}"},
    {"its column {} is '{}' instead of '{}'", "ihre Spalte {} heißt '{}' statt '{}'"},
    {"it has no column {}, where the time would be", "sie hat keine Spalte {}, in der die Zeit stünde"},
    {"its table has no rows", "ihre Tabelle hat keine Zeilen"},
    {"the format '{}' does not read its first time '{}'", "das Format '{}' liest ihre erste Zeit '{}' nicht"},
};

}  // namespace

std::span<const Translation> GermanManyTexts() {
    return Texts;
}

}  // namespace kelvarin
