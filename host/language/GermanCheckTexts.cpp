#include "host/language/Phrase.h"

namespace kelvarin {
namespace {
constexpr Translation Texts[] = {
    // The command.
    {"the file was removed while it was checked", "die Datei wurde während der Prüfung entfernt"},
    {"the file was replaced by another one while it was checked",
     "die Datei wurde während der Prüfung durch eine andere ersetzt"},
    {"the file was cut while it was checked", "die Datei wurde während der Prüfung gekürzt"},
    {"the file was written to while it was checked", "in die Datei wurde während der Prüfung geschrieben"},
    {"Say what an import would lose, and why; status 3 if anything",
     "Sagt, was ein Import verlöre und warum; Status 3, falls etwas"},
    {"Write the dropped rows to a file of their own, to be mended and imported alone",
     "Schreibt die verworfenen Zeilen in eine eigene Datei, um sie zu berichtigen und allein zu importieren"},
    {"With --rejects: also the rows with a refused cell",
     "Mit --rejects: auch die Zeilen mit einer abgelehnten Zelle"},
    {"--rejects takes the rows of one file; check the files one by one",
     "--rejects nimmt die Zeilen einer einzigen Datei auf; prüfen Sie die Dateien einzeln"},
    {"Lines {} to {} look like rows; name the table's start: {}",
     "Die Zeilen {} bis {} sehen wie Datensätze aus; nennen Sie den Anfang der Tabelle: {}"},
    // The verdict.
    {"verdict", "Urteil"},
    {"fault", "Fehler"},
    {"note", "Hinweis"},
    {"clean: {} stored, every cell read", "sauber: {} gespeichert, jede Zelle gelesen"},
    {"not clean: 1 fault", "nicht sauber: 1 Fehler"},
    {"not clean: {}", "nicht sauber: {}"},
    {"not clean: {} faults", "nicht sauber: {} Fehler"},
    {"{} of {} rows dropped", "{} von {} Datensätzen verworfen"},
    {"{} refused", "{} abgelehnt"},
    {"1 row", "1 Datensatz"},
    {"{} rows", "{} Datensätze"},
    {"1 cell", "1 Zelle"},
    {"{} cells", "{} Zellen"},
    {"1 column", "1 Spalte"},
    {"{} columns", "{} Spalten"},
    // The tables.
    {"{} empty", "{} leer"},
    {"time axis", "Zeitachse"},
    {"rows", "Datensätze"},
    {"first", "erster"},
    {"last", "letzter"},
    {"span", "Spanne"},
    {"interval", "Abstand"},
    {"jitter", "Schwankung"},
    {"extremes", "Grenzen"},
    {"(to 1/64)", "(auf 1/64 genau)"},
    {"{} between all rows", "{} zwischen allen Datensätzen"},
    {"{} (median)", "{} (Median)"},
    {"98 % of the intervals lie between {} and {}", "98 % der Abstände liegen zwischen {} und {}"},
    {"{} to {}", "{} bis {}"},
    {"longest gaps", "längste Lücken"},
    {"before line {}", "vor Zeile {}"},
    {"rejects", "Ausschuss"},
    {"{} in {}", "{} in {}"},
    {"once mended, import it with the same settings and these: {}",
     "nach dem Berichtigen mit denselben Einstellungen und diesen importieren: {}"},
    {"{} days", "{} Tage"},
    {"{} days {}", "{} Tage {}"},
    // Dropped rows.
    {"line {} is not read, but looks like a row",
     "Zeile {} wird nicht gelesen, sieht aber wie ein Datensatz aus"},
    {"lines {} to {} above the table are not read, but look like rows",
     "die Zeilen {} bis {} über der Tabelle werden nicht gelesen, sehen aber wie Datensätze aus"},
    {"name the table's start", "nennen Sie den Anfang der Tabelle"},
    {"{} dropped with separators and blanks only: {}", "{} verworfen, nur Trenn- und Leerzeichen: {}"},
    {"{} dropped, since no format for times is set",
     "{} verworfen, da kein Format für Zeiten eingestellt ist"},
    {"{} dropped without a time that the format '{}' reads: {}, the first {}",
     "{} verworfen, ohne eine Zeit, die das Format '{}' liest: {}, der erste {}"},
    {"{} dropped above the first with a time: {}, the first {}",
     "{} verworfen über dem ersten mit einer Zeit: {}, der erste {}"},
    {"{} dropped below the last with a time: {}, the first {}",
     "{} verworfen unter dem letzten mit einer Zeit: {}, der erste {}"},
    {"{} dropped for repeating the time of the row before: {}",
     "{} verworfen, mit der Zeit des Datensatzes davor: {}"},
    {"{} dropped for being earlier than a row before, the first by {}: {}",
     "{} verworfen, früher als ein Datensatz davor, der erste um {}: {}"},
    {"{} dropped with a time outside the years that can be stored: {}, the first {}",
     "{} verworfen mit einer Zeit außerhalb der speicherbaren Jahre: {}, der erste {}"},
    {"{} dropped, since the fixed interval doesn't lead beyond the row before: {}",
     "{} verworfen, da das feste Intervall nicht über den Datensatz davor hinausführt: {}"},
    {"names and units among the rows make text of their columns; to begin the table below",
     "Namen und Einheiten zwischen den Datensätzen machen ihre Spalten zu Text; die Tabelle darunter "
     "beginnen"},
    {"to mend in a file of its own", "in einer eigenen Datei zu berichtigen"},
    {"another format reads them", "ein anderes Format liest sie"},
    {"a legend or sums are no loss; a row that was cut off is",
     "eine Legende oder Summen sind kein Verlust; ein abgeschnittener Datensatz ist einer"},
    {"nothing is lost", "nichts geht verloren"},
    {"a longer one", "ein längeres"},
    {"{} rows share each time, and the times are {} apart: if they are of several sources in turn, split the "
     "file by the column that tells them apart",
     "je {} Datensätze teilen sich eine Zeit, und die Zeiten liegen {} auseinander: stammen sie reihum aus "
     "mehreren Quellen, teilen Sie die Datei nach der Spalte, die sie unterscheidet"},
    {"{} rows share each nanosecond, the finest time there is; all are kept on an axis that is a thousand "
     "times as long, with a fixed interval of {} for {}",
     "je {} Datensätze teilen sich eine Nanosekunde, und feiner ist keine Zeit; alle bleiben auf einer "
     "tausendmal so langen Achse, mit einem festen Intervall von {} für {}"},
    {"{} rows share each {}; perhaps at a fixed interval of {}",
     "je {} Datensätze teilen sich {}; vielleicht in einem festen Intervall von {}"},
    {"about {} rows share each {}, not always as many; a fixed interval of {} would be right on average only",
     "etwa {} Datensätze teilen sich {}, nicht immer gleich viele; ein festes Intervall von {} träfe nur im "
     "Mittel"},
    {"the file runs backwards; reverse the order of its rows",
     "die Datei läuft rückwärts; kehren Sie die Folge ihrer Zeilen um"},
    {"where there are head, tail and tac: (head -n {} FILE; tail -n +{} FILE | tac) > REVERSED",
     "wo es head, tail und tac gibt: (head -n {} DATEI; tail -n +{} DATEI | tac) > GEDREHT"},
    {"the clock went back by an hour at most, at night: the end of summer time? The rows of the hour that "
     "comes twice need another time",
     "die Uhr ging nachts um höchstens eine Stunde zurück: Ende der Sommerzeit? Die Datensätze der doppelten "
     "Stunde brauchen eine andere Zeit"},
    {"sort the rows by time, or, if they are of several sources, split the file by the column that tells "
     "them apart",
     "sortieren Sie die Zeilen nach der Zeit, oder teilen Sie die Datei, wenn sie aus mehreren Quellen "
     "stammen, nach der Spalte, die sie unterscheidet"},
    {"{} before 1990, which are stored but can't be processed by every host: {}",
     "{} vor 1990, die gespeichert, aber nicht überall verarbeitet werden: {}"},
    {"give them later dates in the file, or a fixed interval in relative time",
     "geben Sie ihnen in der Datei spätere Daten oder ein festes Intervall in relativer Zeit"},
    // Cells and lines.
    {"{} refused for not being of their column's type, in {}; their samples have no value",
     "{} abgelehnt, nicht vom Typ der Spalte, in {}; die Werte fehlen"},
    {"those seen are the file's word for no value, such as {}: nothing is lost",
     "die gesehenen sind das Wort der Datei für keinen Wert, wie {}: nichts geht verloren"},
    {"give the column a type that takes them, in the dialog's page of signals, or mend them in a file of "
     "their "
     "own",
     "geben Sie der Spalte auf der Signalseite des Dialogs einen Typ, der sie aufnimmt, oder berichtigen Sie "
     "sie in einer eigenen Datei"},
    {"blank lines in the table: {}; the module's own line numbers don't count them",
     "leere Zeilen in der Tabelle: {}; die Zeilennummern des Moduls zählen sie nicht mit"},
    // The times.
    {"{} in rows that come every {}; the longest, {}, ends in line {}",
     "{} zwischen Datensätzen, die alle {} kommen; die längste, {}, endet in Zeile {}"},
    {"1 gap", "1 Lücke"},
    {"{} gaps", "{} Lücken"},
    {"the rows come unevenly; {} intervals are beyond ten times the median of {}; the longest, {}, ends in "
     "line "
     "{}",
     "die Datensätze kommen ungleichmäßig; {} Abstände sind mehr als zehnmal so lang wie der Median von {}; "
     "der längste, {}, endet in Zeile {}"},
    {"day and month are in the right order: line {} has a day above 12",
     "Tag und Monat stehen in der richtigen Folge: Zeile {} hat einen Tag über 12"},
    {"day and month are in the right order: the other way the dates would fall in line {}",
     "Tag und Monat stehen in der richtigen Folge: andersherum fiele das Datum in Zeile {}"},
    {"day and month are in the right order: the rows run on over midnight in line {}",
     "Tag und Monat stehen in der richtigen Folge: in Zeile {} laufen die Datensätze über Mitternacht "
     "weiter"},
    {"the order of day and month is not proven: there is one date only",
     "die Folge von Tag und Monat ist nicht belegt: es gibt nur ein Datum"},
    {"the order of day and month makes no difference here: they are equal",
     "die Folge von Tag und Monat ist hier gleichgültig: sie sind gleich"},
    {"the order of day and month is not proven: the dates rise either way",
     "die Folge von Tag und Monat ist nicht belegt: die Daten steigen so oder so"},
    {"day and month are likely in the wrong order: the other way the dates are closer together",
     "Tag und Monat stehen wohl in der falschen Folge: andersherum liegen die Daten dichter"},
    {"the other order", "die andere Folge"},
    {"a day was added where the time of day fell far from midnight: {}",
     "ein Tag kam hinzu, wo die Uhrzeit fern von Mitternacht fiel: {}"},
    {"was the clock set back, or are rows in disorder? All rows from there on are a day later",
     "wurde die Uhr zurückgestellt, oder sind Zeilen in Unordnung? Alle Datensätze von dort an liegen einen "
     "Tag später"},
    {"midnights that the times run over: {}", "Mitternächte, über die die Zeiten laufen: {}"},
    {"the times are counted by a fixed interval: nothing in the file can prove them",
     "die Zeiten sind nach einem festen Intervall gezählt: nichts in der Datei kann sie belegen"},
    {"no row was stored", "kein Datensatz wurde gespeichert"},
};
}  // namespace

std::span<const Translation> GermanCheckTexts() {
    return Texts;
}
}  // namespace kelvarin
