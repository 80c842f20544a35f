#include "cli/language/Texts.h"

namespace kelvarin::cli {

namespace {

constexpr Translation Texts[] = {
    // The command line.
    {"Turns measurement text files (*.csv, *.txt) into signals.",
     "Macht aus Textdateien mit Messdaten (*.csv, *.txt) Signale."},
    {"Usage", "Aufruf"},
    {"Example:", "Beispiel:"},
    {"Examples:", "Beispiele:"},
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
    // Reasons.
    {"No table was found at line {}; name its line: --set AutoFormat=0 --set FirstLine=<line> --set "
     "ImportHeader=<0 or 1>",
     "In Zeile {} beginnt keine Tabelle; nennen Sie ihre Zeile: --set AutoFormat=0 --set FirstLine=<Zeile> "
     "--set ImportHeader=<0 oder 1>"},
    {"{} MB/s, {} s left", "{} MB/s, noch {} s"},
    // The reports.
    {"timestamp", "Zeitstempel"},
    {"columns", "Spalten"},
    {"signals", "Signale"},
    {"messages", "Meldungen"},
    {"advice", "Rat"},
    {"{} without value", "{} ohne Wert"},
    {"... and {} more signals", "... und {} weitere Signale"},
    {"... and {} more columns", "... und {} weitere Spalten"},
    {"{} from {} lines", "{} aus {} Zeilen"},
    {"{} from {} lines, ended by Ctrl-C", "{} aus {} Zeilen, beendet mit Strg-C"},
    {"relative measurement time, span {}", "relative Messzeit, Spanne {}"},
    {"{} to {}, span {}", "{} bis {}, Spanne {}"},
    {"lines {}, ... ({} in all)", "Zeilen {}, ... ({} insgesamt)"},
    // Sidecars and dialogs.
    {"revision {}, no error", "Revision {}, kein Fehler"},
    {"revision {}, {} errors: not used", "Revision {}, {} Fehler: nicht verwendet"},
    {"there is no display for the dialog here; drive it with --script FILE, or set values with --set",
     "hier gibt es keine Anzeige für den Dialog; steuern Sie ihn mit --script FILE, oder setzen Sie Werte "
     "mit --set"},
    {"the script can't be read", "das Skript ist nicht lesbar"},
    {"line {} of the script: {}", "Zeile {} des Skripts: {}"},
    {"there is no page '{}'", "eine Seite '{}' gibt es nicht"},
    {"'{}' finds no enabled control for it", "für '{}' gibt es kein bedienbares Steuerelement"},
    {"'{}' is no step, or lacks its number", "'{}' ist kein Schritt, oder ihm fehlt die Nummer"},
    {"'{}' is no step", "'{}' ist kein Schritt"},
    // Many files, and sidecars copied and compared.
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
    // Completion and manual.
    {"Print the script with which a shell completes", "Das Skript ausgeben, mit dem eine Shell ergänzt"},
    {"'{}' is not known; known are bash, zsh and fish",
     "'{}' ist unbekannt; bekannt sind bash, zsh und fish"},
    {"Print the manual page, for man -l", "Die Handbuchseite ausgeben, für man -l"},
    {"NAME", "NAME"},
    {"turn measurement text files into signals", "macht aus Textdateien mit Messdaten Signale"},
    {"SYNOPSIS", "ÜBERSICHT"},
    {"DESCRIPTION", "BESCHREIBUNG"},
    {"Reads text files of loggers, test benches, meters and vehicles, finds out how they are built, and "
     "turns their columns into typed signals with units, every sample under a timestamp in nanoseconds. A "
     "file without a command is imported.",
     "Liest Textdateien von Loggern, Prüfständen, Zählern und Fahrzeugen, findet heraus, wie sie gebaut "
     "sind, und macht aus ihren Spalten typisierte Signale mit Einheiten, jeden Wert unter einem Zeitstempel "
     "in Nanosekunden. Eine Datei ohne Befehl wird importiert."},
    {"COMMANDS", "BEFEHLE"},
    {"EXIT STATUS", "RÜCKGABEWERT"},
    {"every file was done", "jede Datei wurde bearbeitet"},
    {"a file could not be read, imported or analysed; the others are done",
     "eine Datei war nicht lesbar, importierbar oder analysierbar; die anderen sind bearbeitet"},
    {"the command line is wrong; nothing was done", "die Befehlszeile ist falsch; nichts wurde getan"},
    {"a check or a comparison found something", "eine Prüfung oder ein Vergleich hat etwas gefunden"},
    {"ended by Ctrl-C", "beendet mit Strg-C"},
    {"ENVIRONMENT", "UMGEBUNG"},
    {"the language of texts and time formats, if --language doesn't say it",
     "die Sprache von Texten und Zeitformaten, wenn --language sie nicht nennt"},
    {"the zone of absolute times", "die Zone absoluter Zeiten"},
    {"if not empty: no colour on a terminal", "wenn nicht leer: keine Farbe auf einem Terminal"},
    {"the folder of the profile store, ~/.config without it",
     "der Ordner des Profilspeichers, sonst ~/.config"},
    // Files of samples.
    {"'{}' is not allowed; allowed are none, memory and FILE.h5",
     "'{}' ist nicht erlaubt; erlaubt sind none, memory und DATEI.h5"},
    {"none: keep a summary of each signal (default); memory: keep every sample; FILE.h5: write every sample "
     "to an HDF5 file",
     "none: von jedem Signal eine Übersicht behalten (Vorgabe); memory: jeden Wert behalten; DATEI.h5: jeden "
     "Wert in eine HDF5-Datei schreiben"},
    {"--store FILE.h5 is written by one process; leave --jobs out",
     "--store DATEI.h5 schreibt ein einziger Prozess; lassen Sie --jobs weg"},
    {"can't be written: {}; what was there before is unchanged. Make room, or name another file in --store",
     "kann nicht geschrieben werden: {}; was vorher da war, ist unverändert. Schaffen Sie Platz, oder nennen "
     "Sie in --store eine andere Datei"},
    {"not written, since no file gave samples", "nicht geschrieben, da keine Datei Werte ergab"},
    {"not written, since the run was interrupted", "nicht geschrieben, da der Lauf abgebrochen wurde"},
    {"holds {} of {} files", "enthält {} von {} Dateien"},
    {"Compare an HDF5 file with a fresh import of its text files",
     "Eine HDF5-Datei mit einem neuen Import ihrer Textdateien vergleichen"},
    {"The settings are those that the file was written with, unless --set is given.",
     "Es gelten die Einstellungen, mit denen die Datei geschrieben wurde, außer --set ist angegeben."},
    {"verify needs an HDF5 file and the text files that it was made from",
     "verify braucht eine HDF5-Datei und die Textdateien, aus denen sie entstand"},
    {"{}: equal to a fresh import, {} samples compared",
     "{}: gleich einem neuen Import, {} Werte verglichen"},
    {"signal '{}', ", "Signal '{}', "},
    {"sample {}, ", "Wert {}, "},
    {"{}: the file has {}, the import gives {}", "{}: in der Datei steht {}, der Import ergibt {}"},
    {"'{}' is neither a number of messages nor all", "'{}' ist weder eine Anzahl noch all"},
    {"Language of all texts and of the letters of a time format (default: the user's)",
     "Sprache aller Texte und der Buchstaben von Zeitformaten (sonst die des Benutzers)"},
    {"List the first N messages in the JSON (default: 10000), or all",
     "Die ersten N Meldungen im JSON auflisten (sonst 10000), oder alle (all)"},
    {"compared", "verglichen"},
    {"explained", "erklärt"},
    {"written", "geschrieben"},
    {"there are no texts for '{}'; allowed are {}", "für '{}' gibt es keine Texte; erlaubt sind {}"},
};

}  // namespace

std::span<const Translation> GermanCommandTexts() {
    return Texts;
}

}  // namespace kelvarin::cli
