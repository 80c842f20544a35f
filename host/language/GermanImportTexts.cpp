#include "host/language/GermanTexts.h"

namespace kelvarin {

namespace {

// What all commands share, and the reports of the import and the analysis.
constexpr Translation Texts[] = {
    // The command line.
    {"Turns measurement text files (*.csv, *.txt) into signals.",
     "Macht aus Textdateien mit Messdaten (*.csv, *.txt) Signale."},
    {"Usage", "Aufruf"},
    {"required", "nötig"},
    {"Files", "Dateien"},
    {"Options", "Optionen"},
    {"Commands", "Befehle"},
    {"This help", "Diese Hilfe"},
    {"The version", "Die Version"},
    {"`kelvarin-import COMMAND --help` tells the options of a command. A file without a command is imported.",
     "`kelvarin-import BEFEHL --help` nennt die Optionen eines Befehls. Eine Datei ohne Befehl wird "
     "importiert."},
    {"A subcommand is required", "Ein Befehl fehlt"},
    {"{} is required", "{} fehlt"},
    {"The following argument was not expected: {}", "Das Argument {} ist hier nicht vorgesehen"},
    {"Profile store (default: the user's own)", "Profilspeicher (sonst der eigene des Benutzers)"},
    {"A setting for this run only; repeatable", "Eine Einstellung nur für diesen Lauf; mehrfach möglich"},
    {"One JSON document per file on standard output", "Ein JSON-Dokument je Datei auf die Standardausgabe"},
    {"Language of all texts and of the letters of a time format: de or en (default: the user's)",
     "Sprache aller Texte und der Buchstaben von Zeitformaten: de oder en (sonst die des Benutzers)"},
    {"there are no texts for '{}'; allowed are de and en",
     "für '{}' gibt es keine Texte; erlaubt sind de und en"},
    {"Text files with separators", "Textdateien mit Trennzeichen"},
    {"{}; allowed are {}", "{}; erlaubt sind {}"},
    {"{}; see --help", "{}; siehe --help"},
    {"Run the import (the default for a file)", "Importieren (ohne Befehl die Vorgabe)"},
    {"What the analysis finds: format and columns", "Was die Analyse findet: Format und Spalten"},
    {"Write FILE.info from the settings in force, check, copy or compare some",
     "FILE.info aus den geltenden Einstellungen schreiben, welche prüfen, kopieren, vergleichen"},
    {"FILE is a sidecar: say how it reads", "FILE ist eine Sidecar-Datei: sagen, wie sie gelesen wird"},
    {"The settings dialog of one file, driven by a script",
     "Der Einstellungsdialog einer Datei, gesteuert von einem Skript"},
    {"Steps of the user, one a line; - for standard input",
     "Schritte des Benutzers, einer je Zeile; - für die Standardeingabe"},
    {"List the first N samples of each signal, or all",
     "Die ersten N Werte jedes Signals auflisten, oder alle (all)"},
    {"Start of relative measurement time in nanoseconds", "Beginn der relativen Messzeit in Nanosekunden"},
    {"'{}' is neither a number of samples nor all", "'{}' ist weder eine Anzahl noch all"},
    {"'{}' is no 64-bit number of nanoseconds", "'{}' ist keine 64-Bit-Zahl von Nanosekunden"},
    {"a 32-bit whole number", "eine ganze 32-Bit-Zahl"},
    {"seconds since 1970, or hex: and the bytes of the block",
     "die Sekunden seit 1970, oder hex: und die Bytes des Blocks"},
    {"a decimal number, inf, nan, or hex: and the bytes of the block",
     "eine Dezimalzahl, inf, nan, oder hex: und die Bytes des Blocks"},
    {"'{}' is not of the form KEY=VALUE", "'{}' hat nicht die Form KEY=VALUE"},
    {"'{}' is no value of {}; allowed is {}", "'{}' ist kein Wert von {}; erlaubt ist {}"},
    {"there is no setting '{}'; allowed are {}", "eine Einstellung '{}' gibt es nicht; erlaubt sind {}"},
    {"Examples:\n"
     "  kelvarin-import data.csv\n"
     "  kelvarin-import --set TimestampFormat='TT.MM.JJJJ hh:mm:ss' data.csv\n"
     "  kelvarin-import import --json --samples all data.csv >data.json",
     "Beispiele:\n"
     "  kelvarin-import daten.csv\n"
     "  kelvarin-import --set TimestampFormat='TT.MM.JJJJ hh:mm:ss' daten.csv\n"
     "  kelvarin-import import --json --samples all daten.csv >daten.json"},
    {"Examples:\n"
     "  kelvarin-import analyze data.csv\n"
     "  kelvarin-import analyze --set AutoFormat=0 --set Separator=2 --set FirstLine=25 data.txt",
     "Beispiele:\n"
     "  kelvarin-import analyze daten.csv\n"
     "  kelvarin-import analyze --set AutoFormat=0 --set Separator=2 --set FirstLine=25 daten.txt"},
    {"Examples:\n"
     "  kelvarin-import sidecar --set TimestampFormat='TT.MM.JJJJ hh:mm:ss' data.csv\n"
     "  kelvarin-import sidecar --guess-time data.csv\n"
     "  kelvarin-import sidecar --check data.csv.info\n"
     "  kelvarin-import sidecar apply data.csv.info '*.csv'\n"
     "  kelvarin-import sidecar diff data.csv.info other.csv.info",
     "Beispiele:\n"
     "  kelvarin-import sidecar --set TimestampFormat='TT.MM.JJJJ hh:mm:ss' daten.csv\n"
     "  kelvarin-import sidecar --guess-time daten.csv\n"
     "  kelvarin-import sidecar --check daten.csv.info\n"
     "  kelvarin-import sidecar apply daten.csv.info '*.csv'\n"
     "  kelvarin-import sidecar diff daten.csv.info andere.csv.info"},
    {"Example:\n"
     "  printf 'click 1022\\nok\\n' | kelvarin-import dialog --script - data.csv",
     "Beispiel:\n"
     "  printf 'click 1022\\nok\\n' | kelvarin-import dialog --script - daten.csv"},
    // Reasons.
    {"the file is empty", "die Datei ist leer"},
    {"looks like a binary file (NUL byte in line {})",
     "sieht nach einer Binärdatei aus (NUL-Byte in Zeile {})"},
    {"No table was found at line {}; name its line: --set AutoFormat=0 --set FirstLine=<line> --set "
     "ImportHeader=<0 or 1>",
     "In Zeile {} beginnt keine Tabelle; nennen Sie ihre Zeile: --set AutoFormat=0 --set FirstLine=<Zeile> "
     "--set "
     "ImportHeader=<0 oder 1>"},
    {"{}: no import module", "{}: kein Importmodul"},
    {"{}: made for another version of the host", "{}: für eine andere Version des Hosts gemacht"},
    {"{} MB/s, {} s left", "{} MB/s, noch {} s"},
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
    {"timestamp", "Zeitstempel"},
    {"format", "Format"},
    {"columns", "Spalten"},
    {"signals", "Signale"},
    {"samples", "Werte"},
    {"time", "Zeit"},
    {"messages", "Meldungen"},
    {"advice", "Rat"},
    {"{} without value", "{} ohne Wert"},
    {"... and {} more signals", "... und {} weitere Signale"},
    {"... and {} more columns", "... und {} weitere Spalten"},
    {"{} from {} lines", "{} aus {} Zeilen"},
    {"{} from {} lines, ended by Ctrl-C", "{} aus {} Zeilen, beendet mit Strg-C"},
    {"relative measurement time, span {}", "relative Messzeit, Spanne {}"},
    {"{} to {}, span {}", "{} bis {}, Spanne {}"},
    {"line {}", "Zeile {}"},
    {"lines {}", "Zeilen {}"},
    {"lines {}, ... ({} in all)", "Zeilen {}, ... ({} insgesamt)"},
    // Sidecars and dialogs.
    {"line {}, column {}: {}", "Zeile {}, Spalte {}: {}"},
    {"format-rev \"{}\" is unknown, so nothing is read; known are 1 and 2",
     "format-rev \"{}\" ist unbekannt, also wird nichts gelesen; bekannt sind 1 und 2"},
    {"revision {}, no error", "Revision {}, kein Fehler"},
    {"revision {}, {} errors: not used", "Revision {}, {} Fehler: nicht verwendet"},
    {"there is no display for the dialog here; drive it with --script FILE, or set values with --set",
     "hier gibt es keine Anzeige für den Dialog; steuern Sie ihn mit --script FILE, oder setzen Sie Werte "
     "mit "
     "--set"},
    {"the script can't be read", "das Skript ist nicht lesbar"},
    {"line {} of the script: {}", "Zeile {} des Skripts: {}"},
    {"there is no page '{}'", "eine Seite '{}' gibt es nicht"},
    {"'{}' finds no enabled control for it", "für '{}' gibt es kein bedienbares Steuerelement"},
    {"'{}' is no step, or lacks its number", "'{}' ist kein Schritt, oder ihm fehlt die Nummer"},
    {"'{}' is no step", "'{}' ist kein Schritt"},
};

}  // namespace

std::span<const Translation> GermanImportTexts() {
    return Texts;
}

}  // namespace kelvarin
