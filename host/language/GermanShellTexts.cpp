#include "host/language/GermanTexts.h"

namespace kelvarin {

namespace {

// Completion and manual.
constexpr Translation Texts[] = {
    {"Print the script with which a shell completes", "Das Skript ausgeben, mit dem eine Shell ergänzt"},
    {"'{}' is not known; known are bash, zsh and fish",
     "'{}' ist unbekannt; bekannt sind bash, zsh und fish"},
    {"Example:\n"
     "  kelvarin-import completion bash >~/.local/share/bash-completion/completions/kelvarin-import",
     "Beispiel:\n"
     "  kelvarin-import completion bash >~/.local/share/bash-completion/completions/kelvarin-import"},
    {"Print the manual page, for man -l", "Die Handbuchseite ausgeben, für man -l"},
    {"Example:\n  kelvarin-import manual | man -l -", "Beispiel:\n  kelvarin-import manual | man -l -"},
    {"NAME", "NAME"},
    {"turn measurement text files into signals", "macht aus Textdateien mit Messdaten Signale"},
    {"SYNOPSIS", "ÜBERSICHT"},
    {"DESCRIPTION", "BESCHREIBUNG"},
    {"Reads text files of loggers, test benches, meters and vehicles, finds out how they are built, and "
     "turns "
     "their columns into typed signals with units, every sample under a timestamp in nanoseconds. A file "
     "without "
     "a command is imported.",
     "Liest Textdateien von Loggern, Prüfständen, Zählern und Fahrzeugen, findet heraus, wie sie gebaut "
     "sind, und "
     "macht aus ihren Spalten typisierte Signale mit Einheiten, jeden Wert unter einem Zeitstempel in "
     "Nanosekunden. Eine Datei ohne Befehl wird importiert."},
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
};

}  // namespace

std::span<const Translation> GermanShellTexts() {
    return Texts;
}

}  // namespace kelvarin
