#include "host/language/Phrase.h"

namespace kelvarin {
namespace {
constexpr Translation Texts[] = {
    {"because of one empty cell, in line {}, among {} of type {}",
     "wegen einer leeren Zelle in Zeile {} neben {} vom Typ {}"},
    {"because of {} empty cells among {} of type {}, first in line {}",
     "wegen {} leerer Zellen neben {} vom Typ {}, zuerst in Zeile {}"},
    {"because of {} in line {} among {} of type {}", "wegen {} in Zeile {} neben {} vom Typ {}"},
    {"because of {} other cells among {} of type {}, first {} in line {}",
     "wegen {} anderer Zellen neben {} vom Typ {}, zuerst {} in Zeile {}"},
    {"because of {} empty cells (first in line {}) and {} others (first {} in line {}) among {} of type {}",
     "wegen leerer Zellen ({}, zuerst in Zeile {}) und anderer ({}, zuerst {} in Zeile {}) neben {} vom Typ "
     "{}"},
    {"since its only cell is empty", "da die einzige Zelle leer ist"},
    {"since each of the {} cells is empty", "da jede der {} Zellen leer ist"},
    {"{} in line {} fits no other type", "{} in Zeile {} passt zu keinem anderen Typ"},
    {"{} in line {} fits no other type, and {} of {} cells are empty",
     "{} in Zeile {} passt zu keinem anderen Typ, und {} von {} Zellen sind leer"},
    {"no row of data has this cell", "keine Datenzeile hat diese Zelle"},
    {"each of the {} cells fits", "jede der {} Zellen passt"},
    {"{} in line {} is no {}", "{} in Zeile {} ist nicht vom Typ {}"},
    {"column {} {}", "Spalte {} {}"},
    {"The same holds for columns {}.", "Dasselbe gilt für die Spalten {}."},
    {"Choose the type of floats", "Den Typ für Fließkommazahlen wählen"},
    {"In {}, {} in line {} is read as a hexadecimal number, since an exponent without a decimal mark is one "
     "as well.",
     "{}: {} in Zeile {} wird als Hexadezimalzahl gelesen, denn ein Exponent ohne Dezimalzeichen ist auch "
     "eine."},
    {"If thousands are meant, remove the marks from the file; a lone mark is always a decimal mark in a "
     "column of floats.",
     "Sind Tausender gemeint, die Zeichen aus der Datei entfernen; ein einzelnes ist in einer Spalte von "
     "Fließkommazahlen immer das Dezimalzeichen."},
    {"In {}, {} in line {} is read as {}, not as thousands.",
     "{}: {} in Zeile {} wird als {} gelesen, nicht als Tausender."},
    {"Choose its type; its empty cells then become samples without value",
     "Den Typ wählen; die leeren Zellen werden dann Messpunkte ohne Wert"},
    {"Text only because its first rows are empty: {}; from line {} on it is of type {}.",
     "Nur wegen leerer erster Zeilen Text: {}; ab Zeile {} vom Typ {}."},
    {"Why a file is read as it is, what surprises about it, and what to set",
     "Warum eine Datei so gelesen wird, was daran überrascht und was einzustellen ist"},
    {"gives the rows their time, by the settings", "gibt den Zeilen nach den Einstellungen ihre Zeit"},
    {"warning", "Warnung"},
    {"Remedy: {}", "Abhilfe: {}"},
    {"times", "Zeiten"},
    {"taken", "genommen"},
    {"why", "warum"},
    {"runner-up", "Zweiter"},
    {"analysed", "geprüft"},
    {"one semicolon", "ein Semikolon"},
    {"{} semicolons", "{} Semikolons"},
    {"one comma", "ein Komma"},
    {"{} commas", "{} Kommas"},
    {"one tab", "einen Tabulator"},
    {"{} tabs", "{} Tabulatoren"},
    {"one group of blanks", "eine Gruppe von Leerzeichen"},
    {"{} groups of blanks", "{} Gruppen von Leerzeichen"},
    {"line {}, the last one looked at, has no {}", "in Zeile {}, der letzten betrachteten, fehlt {}"},
    {"line {}, the last one looked at, has {}", "Zeile {}, die letzte betrachtete, hat {}"},
    {"each line from {} to {} has {}", "jede Zeile von {} bis {} hat {}"},
    {", while line {} has {}", ", Zeile {} dagegen {}"},
    {"The {} is regular from the earliest line on: {}.", "{} ist von der frühesten Zeile an regelmäßig: {}."},
    {"No separator is regular up to the end ({}), so the first in the order is taken.",
     "Kein Trennzeichen ist bis zum Ende regelmäßig ({}), also gilt das erste in der Rangfolge."},
    {"The {} is as regular as another one and comes before it in the order: {}.",
     "{} ist so regelmäßig wie ein anderes Trennzeichen und steht in der Rangfolge davor: {}."},
    {"{} of {} cells, {} needed", "{} von {} Zellen, {} nötig"},
    {"No line from there on was tested for data.", "Keine Zeile von dort an wurde auf Daten geprüft."},
    {"Line {} has not enough numbers for data ({}) and none follows, so the table begins there without a "
     "header.",
     "Zeile {} hat nicht genug Zahlen für Daten ({}), und keine folgt; also beginnt die Tabelle dort ohne "
     "Kopfzeile."},
    {"None of the lines {} to {} has enough numbers for data (the best, line {}: {}), so the table begins "
     "there without a header.",
     "Keine der Zeilen {} bis {} hat genug Zahlen für Daten (die beste, Zeile {}: {}); also beginnt die "
     "Tabelle dort ohne Kopfzeile."},
    {"Line {} has enough numbers for data ({}), so there is no header: {}.",
     "Zeile {} hat selbst genug Zahlen für Daten ({}), also gibt es keine Kopfzeile: {}."},
    {"Line {} is the first with enough numbers for data ({}), so line {} above it counts as the header, "
     "though it is blank.",
     "Zeile {} hat als erste genug Zahlen für Daten ({}), also gilt Zeile {} darüber als Kopfzeile, obwohl "
     "sie leer ist."},
    {"Line {} is the first with enough numbers for data ({}), so line {} above it is the header: {}.",
     "Zeile {} hat als erste genug Zahlen für Daten ({}), also ist Zeile {} darüber die Kopfzeile: {}."},
    {"The first lines are blank, so nothing speaks for a separator.",
     "Die ersten Zeilen sind leer, also spricht nichts für ein Trennzeichen."},
    {"The settings say so; without them it would be: {}.",
     "So sagen es die Einstellungen; ohne sie wäre es: {}."},
    {"none, no other separator occurs in line {}, the last one looked at",
     "keiner, in Zeile {}, der letzten betrachteten, kommt kein anderes Trennzeichen vor"},
    {"{}: {}; it would give {} columns from line {} on", "{}: {}; es ergäbe {} Spalten ab Zeile {}"},
    {"no row of data", "keine Datenzeile"},
    {"one row, line {}", "eine Zeile, {}"},
    {"{} rows, lines {} to {}", "{} Datenzeilen, Zeile {} bis {}"},
    {"; line {} is empty and ends the analysis", "; Zeile {} ist leer und beendet die Analyse"},
    {"; more are not looked at", "; mehr werden nicht betrachtet"},
    {"; there the file ends", "; dort endet die Datei"},
    {"The lines from {} on look like the table's, but line {} has another count of the separator {}, {}: {}. "
     "One such line among the first hundred moves the table's beginning below, here to line {}.",
     "Die Zeilen ab {} sehen nach der Tabelle aus, aber Zeile {} hat eine andere Zahl des Trennzeichens {}, "
     "{}: {}. Eine solche Zeile unter den ersten hundert verschiebt den Anfang der Tabelle nach unten, hier "
     "auf Zeile {}."},
    {"In line {} an apostrophe or a quote without its partner keeps {} of the separator {} from being "
     "counted: {}.",
     "In Zeile {} nimmt ein Hochkomma oder Anführungszeichen ohne Gegenstück {} vom Trennzeichen {} von der "
     "Zählung aus: {}."},
    {"Remove it from the file, or double it.", "Es aus der Datei entfernen oder verdoppeln."},
    {"Line {} seems to hold the columns' names, but is taken for the first row of data: {}.",
     "Zeile {} scheint die Namen der Spalten zu enthalten, gilt aber als erste Datenzeile: {}."},
    {"Line {} seems to hold the columns' names, but is skipped, since it has not as many separators as the "
     "rows: {}.",
     "Zeile {} scheint die Namen der Spalten zu enthalten, wird aber übergangen, da sie nicht so viele "
     "Trennzeichen hat wie die Datenzeilen: {}."},
    {"Line {} has enough numbers to count as data, but the table seems to begin in line {}: {}.",
     "Zeile {} hat genug Zahlen, um als Datenzeile zu gelten, aber die Tabelle scheint in Zeile {} zu "
     "beginnen: {}."},
    {"Line {} is empty and ends the analysis before the first row of data, so no column gets a type.",
     "Zeile {} ist leer und beendet die Analyse vor der ersten Datenzeile, also bekommt keine Spalte einen "
     "Typ."},
    {"Line {} is empty and ends the analysis: the types are settled by the {} rows above it alone. The "
     "import itself goes on after it.",
     "Zeile {} ist leer und beendet die Analyse: Die Typen bestimmen allein die {} Zeilen darüber. Der "
     "Import selbst geht dahinter weiter."},
    {"The names seem to be in line {}, but they are taken only from the line directly above the first "
     "row, {}: {}.",
     "Die Namen scheinen in Zeile {} zu stehen, werden aber nur der Zeile direkt über der ersten Datenzeile, "
     "{}, entnommen: {}."},
    {"No setting takes them; a clean copy has them directly above",
     "Keine Einstellung nimmt sie; eine bereinigte Kopie hat sie direkt darüber"},
    {"{} in line {}", "{} in Zeile {}"},
    {"A row has more than the {} cells of the table's first line; the surplus is not imported: {}.",
     "Eine Zeile hat mehr als die {} Zellen der ersten Zeile der Tabelle; der Überschuss wird nicht "
     "importiert: {}."},
    {"{} rows have more than the {} cells of the table's first line; the surplus is not imported, first {}.",
     "{} Zeilen haben mehr als die {} Zellen der ersten Zeile der Tabelle; der Überschuss wird nicht "
     "importiert, zuerst {}."},
    {"A clean copy has a column for them", "Eine bereinigte Kopie hat eine Spalte dafür"},
};
}  // namespace

std::span<const Translation> GermanExplainTexts() {
    return Texts;
}
}  // namespace kelvarin
