#include "host/language/Phrase.h"

namespace kelvarin {
namespace {
// What is common to all work on a file: settings, formats, reasons, sidecars.
constexpr Translation Texts[] = {
    // The command line.
    {"a 32-bit whole number", "eine ganze 32-Bit-Zahl"},
    {"seconds since 1970, or hex: and the bytes of the block",
     "die Sekunden seit 1970, oder hex: und die Bytes des Blocks"},
    {"a decimal number, inf, nan, or hex: and the bytes of the block",
     "eine Dezimalzahl, inf, nan, oder hex: und die Bytes des Blocks"},
    {"'{}' is not of the form KEY=VALUE", "'{}' hat nicht die Form KEY=VALUE"},
    {"'{}' is no value of {}; allowed is {}", "'{}' ist kein Wert von {}; erlaubt ist {}"},
    {"there is no setting '{}'; allowed are {}", "eine Einstellung '{}' gibt es nicht; erlaubt sind {}"},
    // Reasons.
    {"not enough memory", "der Speicher reicht nicht"},
    {"the copy can't be made: {}: {}", "die Kopie ist nicht möglich: {}: {}"},
    {"the copy can't be made: not enough memory", "die Kopie ist nicht möglich: der Speicher reicht nicht"},
    {"no line of the table has a time", "keine Zeile der Tabelle hat eine Zeit"},
    {"the file is empty", "die Datei ist leer"},
    {"looks like a binary file (NUL byte in line {})",
     "sieht nach einer Binärdatei aus (NUL-Byte in Zeile {})"},
    {"{}: no import module", "{}: kein Importmodul"},
    {"{}: made for another version of the host", "{}: für eine andere Version des Hosts gemacht"},
    // The reports.
    {"semicolon", "Semikolon"},
    {"comma", "Komma"},
    {"tab", "Tabulator"},
    {"space", "Leerzeichen"},
    {"no separator", "kein Trennzeichen"},
    {"separated by {}", "getrennt durch {}"},
    {"separated by {}, neighbours merged", "getrennt durch {}, benachbarte zusammengefasst"},
    {"{}; no header, data from line {}", "{}; keine Kopfzeile, Daten ab Zeile {}"},
    {"{}; header in line {}, data from line {}", "{}; Kopf in Zeile {}, Daten ab Zeile {}"},
    {"no type", "kein Typ"},
    {"boolean", "Boolescher Wert"},
    {"integer", "Ganzzahl"},
    {"integer with unit", "Ganzzahl mit Einheit"},
    {"hexadecimal", "Hexadezimalzahl"},
    {"float", "Fließkommazahl"},
    {"float with unit", "Fließkommazahl mit Einheit"},
    {"character", "Zeichen"},
    {"text", "Zeichenkette"},
    {"format", "Format"},
    {"samples", "Werte"},
    {"time", "Zeit"},
    {"line {}", "Zeile {}"},
    {"lines {}", "Zeilen {}"},
    // Sidecars and dialogs.
    {"line {}, column {}: {}", "Zeile {}, Spalte {}: {}"},
    {"format-rev \"{}\" is unknown, so nothing is read; known are 1 and 2",
     "format-rev \"{}\" ist unbekannt, also wird nichts gelesen; bekannt sind 1 und 2"},
    {",", "."},
    {"it has {} columns instead of {}", "sie hat {} Spalten statt {}"},
    {"its column {} is '{}' instead of '{}'", "ihre Spalte {} heißt '{}' statt '{}'"},
    {"it has no column {}, where the time would be", "sie hat keine Spalte {}, in der die Zeit stünde"},
    {"its table has no rows", "ihre Tabelle hat keine Zeilen"},
    {"the format '{}' does not read its first time '{}'", "das Format '{}' liest ihre erste Zeit '{}' nicht"},
    {"the module can't read the file and doesn't say why",
     "das Modul kann die Datei nicht lesen und nennt keinen Grund"},
    {"this module can't say what becomes of the rows",
     "dieses Modul kann nicht sagen, was aus den Zeilen wird"},
    {"this module has no sidecars", "dieses Modul kennt keine Sidecar-Dateien"},
    {"the first file has no signal '{}' of this type", "die erste Datei hat kein Signal '{}' dieses Typs"},
    {"it lacks a signal of the first file", "ihr fehlt ein Signal der ersten Datei"},
    {"no table was found at line {}", "in Zeile {} beginnt keine Tabelle"},
    {"the table has no rows", "die Tabelle hat keine Zeilen"},
    {"no column beside the times is imported", "keine Spalte neben den Zeiten importiert wird"},
    {"not read, as it is not like the files of the plan: {}",
     "nicht gelesen, da sie nicht wie die Dateien des Plans ist: {}"},
};
}  // namespace

std::span<const Translation> GermanHostTexts() {
    return Texts;
}
}  // namespace kelvarin
