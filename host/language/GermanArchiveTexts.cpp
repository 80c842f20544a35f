#include "host/language/GermanTexts.h"

namespace kelvarin {

namespace {

// The HDF5 file that an import writes, and its comparison.
constexpr Translation Texts[] = {
    {"'{}' is not allowed; allowed are none, memory and FILE.h5",
     "'{}' ist nicht erlaubt; erlaubt sind none, memory und DATEI.h5"},
    {"none: keep a summary of each signal (default); memory: keep every sample; FILE.h5: write every sample "
     "to an HDF5 file",
     "none: von jedem Signal eine Übersicht behalten (Vorgabe); memory: jeden Wert behalten; DATEI.h5: jeden "
     "Wert in eine HDF5-Datei schreiben"},
    {"--store FILE.h5 is written by one process; leave --jobs out",
     "--store DATEI.h5 schreibt ein einziger Prozess; lassen Sie --jobs weg"},
    {"this build has no HDF5", "diese Ausgabe des Programms kann kein HDF5"},
    {"can't be written: {}; what was there before is unchanged. Make room, or name another file in --store",
     "kann nicht geschrieben werden: {}; was vorher da war, ist unverändert. Schaffen Sie Platz, oder nennen "
     "Sie in --store eine andere Datei"},
    {"not written, since no file gave samples", "nicht geschrieben, da keine Datei Werte ergab"},
    {"not written, since the run was interrupted", "nicht geschrieben, da der Lauf abgebrochen wurde"},
    {"holds {} of {} files", "enthält {} von {} Dateien"},
    {"it exists and is no file", "dort ist etwas anderes als eine Datei"},
    {"another run is just writing it", "ein anderer Lauf schreibt sie gerade"},
    {"signals with times of their own can't be kept in this file",
     "Signale mit eigenen Zeiten kann diese Datei nicht aufnehmen"},
    {"Compare an HDF5 file with a fresh import of its text files",
     "Eine HDF5-Datei mit einem neuen Import ihrer Textdateien vergleichen"},
    {"The settings are those that the file was written with, unless --set is given.\n"
     "Examples:\n"
     "  kelvarin-import verify data.h5 data.csv",
     "Es gelten die Einstellungen, mit denen die Datei geschrieben wurde, außer --set ist angegeben.\n"
     "Beispiele:\n"
     "  kelvarin-import verify data.h5 data.csv"},
    {"verify needs an HDF5 file and the text files that it was made from",
     "verify braucht eine HDF5-Datei und die Textdateien, aus denen sie entstand"},
    {"{}: equal to a fresh import, {} samples compared",
     "{}: gleich einem neuen Import, {} Werte verglichen"},
    {"signal '{}', ", "Signal '{}', "},
    {"sample {}, ", "Wert {}, "},
    {"{}: the file has {}, the import gives {}", "{}: in der Datei steht {}, der Import ergibt {}"},
    {"sample", "Wert"},
    {"value", "Inhalt"},
    {"time", "Zeit"},
    {"samples", "Anzahl der Werte"},
    {"type", "Typ"},
    {"name", "Name"},
    {"description", "Beschreibung"},
    {"symbol", "Symbol"},
    {"unit", "Einheit"},
    {"column", "Spalte"},
    {"metadata", "Metadaten"},
    {"number of signals", "Anzahl der Signale"},
    {"it has no device '{}'; it has {}", "ein Gerät '{}' enthält sie nicht, sondern {}"},
    {"it has no samples of an import", "sie enthält keine Werte eines Imports"},
    {"its format is of version {}, known is {}", "ihr Format hat die Version {}, bekannt ist {}"},
    {"its data sets are of different lengths", "ihre Datensätze sind verschieden lang"},
    {"data set '{}' is of another type", "der Datensatz '{}' hat einen anderen Typ"},
    {"attribute '{}' is of another type", "das Attribut '{}' hat einen anderen Typ"},
};

}  // namespace

std::span<const Translation> GermanArchiveTexts() {
    return Texts;
}

}  // namespace kelvarin
