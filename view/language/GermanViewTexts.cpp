#include "view/language/Texts.h"

namespace kelvarin::view {
namespace {
constexpr Translation Texts[] = {
    // The command line.
    {"kelvarin-view [FILE...]\n"
     "kelvarin-view --plot OUT.png|svg|pdf [--signals A,B] [--from T] [--to T] [--size WxH] FILE\n"
     "\n"
     "Shows the signals of measurement text files, or draws them as a picture without a display.\n"
     "\n"
     "  --plot OUT      Write a picture and end\n"
     "  --signals A,B   Signals by name or number, in place of the first 12\n"
     "  --from T        Begin at a time: 2024-01-31 08:00:00.5, or a time of day on the first date; seconds\n"
     "                  or hh:mm:ss of a file whose times count from a start\n"
     "  --to T          End there\n"
     "  --size WxH      Pixels of the picture (default: 1200x800)\n"
     "  --set KEY=VALUE A setting for this run; repeatable\n"
     "  --language CODE Language of all texts, such as de\n"
     "  --help, --version\n"
     "\n"
     "Exit status: 0 done; 1 the file could not be read or the picture not be written; 2 the command\n"
     "line is wrong.\n",
     "kelvarin-view [DATEI...]\n"
     "kelvarin-view --plot BILD.png|svg|pdf [--signals A,B] [--from T] [--to T] [--size BxH] DATEI\n"
     "\n"
     "Zeigt die Signale von Textdateien mit Messdaten oder zeichnet sie ohne Bildschirm als Bild.\n"
     "\n"
     "  --plot BILD     Ein Bild schreiben und enden\n"
     "  --signals A,B   Signale nach Name oder Nummer statt der ersten 12\n"
     "  --from T        Beginn: 2024-01-31 08:00:00.5 oder eine Uhrzeit am ersten Tag; Sekunden oder\n"
     "                  hh:mm:ss einer Datei, deren Zeiten von einem Beginn an zählen\n"
     "  --to T          Ende\n"
     "  --size BxH      Bildpunkte des Bildes (Vorgabe: 1200x800)\n"
     "  --set NAME=WERT Eine Einstellung für diesen Aufruf; wiederholbar\n"
     "  --language CODE Sprache aller Texte, etwa de\n"
     "  --help, --version\n"
     "\n"
     "Ende mit 0: erledigt; 1: die Datei war nicht zu lesen oder das Bild nicht zu schreiben; 2: der\n"
     "Aufruf ist falsch.\n"},
    {"'{}' is no picture that can be written; its name ends in .png, .svg or .pdf",
     "'{}' ist kein Bild, das geschrieben werden kann; sein Name endet auf .png, .svg oder .pdf"},
    {"'{}' is no size; allowed are {}x{} to {}x{}", "'{}' ist keine Größe; erlaubt sind {}x{} bis {}x{}"},
    {"--signals, --from and --to need --plot", "--signals, --from und --to brauchen --plot"},
    {"--plot draws one file", "--plot zeichnet eine Datei"},
    {"there is no option {}", "es gibt keine Option {}"},
    {"{} needs a value", "{} braucht einen Wert"},
    // Pictures.
    {"{} is the file that is read", "{} ist die Datei, die gelesen wird"},
    {"interrupted", "abgebrochen"},
    {"--signals: there is no signal {}; there are {}", "--signals: es gibt kein Signal {}; es gibt {}"},
    {"{}: '{}' is no time such as {}", "{}: '{}' ist keine Zeit wie {}"},
    {"--to is not later than --from", "--to ist nicht später als --from"},
    {"the picture could not be drawn", "das Bild konnte nicht gezeichnet werden"},
    {"{} can't be written: {}", "{} kann nicht geschrieben werden: {}"},
    {"{} of {} signals are drawn; --signals names others",
     "{} von {} Signalen sind gezeichnet; --signals nennt andere"},
    // The window.
    {"there is no display; --plot needs none", "es gibt keinen Bildschirm; --plot braucht keinen"},
    {"&File", "&Datei"},
    {"&Open...", "Ö&ffnen..."},
    {"Open &recent", "&Zuletzt geöffnet"},
    {"Read &again", "&Neu lesen"},
    {"&Follow files that grow", "&Wachsenden Dateien folgen"},
    {"&Settings...", "&Einstellungen..."},
    {"&Keep what was assumed beside the file", "Angenommenes neben der Datei &behalten"},
    {"&Close the file", "Datei &schließen"},
    {"Copy the pict&ure", "Bild &kopieren"},
    {"&Print...", "&Drucken..."},
    {"&Quit", "B&eenden"},
    {"&Export", "E&xportieren"},
    {"All samples as &HDF5...", "Alle Werte als &HDF5..."},
    {"What is shown as &CSV...", "Gezeigtes als &CSV..."},
    {"Picture as &PNG...", "Bild als &PNG..."},
    {"Picture as &SVG...", "Bild als &SVG..."},
    {"Picture as P&DF...", "Bild als P&DF..."},
    {"&View", "&Ansicht"},
    {"&Fit all", "&Alles zeigen"},
    {"Zoom &in", "Ver&größern"},
    {"Zoom &out", "Ver&kleinern"},
    {"&Earlier", "&Früher"},
    {"&Later", "&Später"},
    {"&Back", "&Zurück"},
    {"&Again", "&Wieder vor"},
    {"Val&ue ranges...", "We&rtebereiche..."},
    {"S&tatistics", "S&tatistik"},
    {"&Copy the statistics", "Statistik k&opieren"},
    {"One signal o&ver another", "Ein Signal ü&ber einem anderen"},
    {"&Plot the selected signals together", "Gewählte Signale &zusammen zeichnen"},
    {"&Remove all plots", "Alle Zeichnungen &entfernen"},
    {"Find a &signal", "Signal &suchen"},
    {"&Cursor", "&Cursor"},
    {"To the &next sample", "Zum &nächsten Wert"},
    {"To the &previous sample", "Zum &vorigen Wert"},
    {"&Second cursor at the first", "&Zweiter Cursor zum ersten"},
    {"&Remove cursors", "Cursor &entfernen"},
    {"Times as in the &file", "Zeiten wie in der &Datei"},
    {"Times with their &zone", "Zeiten mit Zeit&zone"},
    {"Times in &UTC", "Zeiten in &UTC"},
    {"Times from the &start", "Zeiten ab &Beginn"},
    {"&Windows", "&Fenster"},
    {"Measurement files", "Messdateien"},
    {"All files", "Alle Dateien"},
    {"{} is written", "{} ist geschrieben"},
    {"nothing is shown", "es wird nichts gezeigt"},
    // What is open.
    {"{} signals, {} lines", "{} Signale, {} Zeilen"},
    {"(read in part)", "(teilweise gelesen)"},
    {"{} is no longer there", "{} ist nicht mehr da"},
    {"{} has changed; F5 reads it again", "{} hat sich geändert; F5 liest sie neu"},
    {"a file is being read", "es wird gerade eine Datei gelesen"},
    {"kept in {}", "behalten in {}"},
    {"{} says how this file is read. Write what you have changed into it?",
     "{} sagt, wie diese Datei gelesen wird. Ihre Änderungen hineinschreiben?"},
    {"read as {} says", "gelesen, wie {} es sagt"},
    {"nothing was assumed", "es wurde nichts angenommen"},
    {"Cancel", "Abbrechen"},
    {"clean copy: {}", "bereinigte Kopie: {}"},
    {"{} MB/s, {} s left", "{} MB/s, noch {} s"},
    {"Assumed: {}", "Angenommen: {}"},
    {"Change...", "Ändern..."},
    {"Keep beside the file", "Neben der Datei behalten"},
    // Panels.
    {"Filter signals", "Signale filtern"},
    {"Signals", "Signale"},
    {"Cursors", "Cursor"},
    {"Findings", "Befunde"},
    {"Text of the file", "Text der Datei"},
    {"Nothing was found", "Es wurde nichts gefunden"},
    {"Signal", "Signal"},
    {"Unit", "Einheit"},
    {"Type", "Typ"},
    {"Samples", "Werte"},
    {"Range", "Bereich"},
    {"Course", "Verlauf"},
    {"truth value", "Wahrheitswert"},
    {"number", "Zahl"},
    {"Value", "Wert"},
    {"Time", "Zeit"},
    {"Second value", "Zweiter Wert"},
    {"Second time", "Zweite Zeit"},
    {"Difference", "Differenz"},
    {"Time difference", "Zeitdifferenz"},
    {"Statistics", "Statistik"},
    {"Value ranges", "Wertebereiche"},
    {"fits what is visible", "passt sich dem Gezeigten an"},
    {"Lowest", "Kleinster Wert"},
    {"Highest", "Größter Wert"},
    {"Mean", "Mittelwert"},
    {"Standard deviation", "Standardabweichung"},
    {"RMS", "Effektivwert"},
    {"Between the cursors: {} to {}, {}", "Zwischen den Cursorn: {} bis {}, {}"},
    {"What is visible: {} to {}, {}", "Was zu sehen ist: {} bis {}, {}"},
    {"One over another", "Über einem anderen"},
    {"over", "über"},
    {"{} pairs", "{} Wertepaare"},
    {"plot two signals of numbers", "zwei Signale mit Zahlen zeichnen"},
    // Plots.
    {"Tick a signal or drag it here", "Haken an einem Signal setzen oder es hierher ziehen"},
};
}  // namespace

std::span<const Translation> GermanViewTexts() {
    return Texts;
}
}  // namespace kelvarin::view
