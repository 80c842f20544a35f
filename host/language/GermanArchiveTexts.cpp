#include "host/language/Phrase.h"

namespace kelvarin {
namespace {
// The HDF5 file that an import writes, and its comparison.
constexpr Translation Texts[] = {
    {"this build has no HDF5", "diese Ausgabe des Programms kann kein HDF5"},
    {"another run is just writing it", "ein anderer Lauf schreibt sie gerade"},
    {"signals with times of their own can't be kept in this file",
     "Signale mit eigenen Zeiten kann diese Datei nicht aufnehmen"},
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
    {"data set '{}' has its values in other files, which are not read",
     "der Datensatz '{}' hat seine Werte in anderen Dateien, die nicht gelesen werden"},
    {"data set '{}' has chunks too large to read",
     "der Datensatz '{}' hat zu große Stücke, um gelesen zu werden"},
    {"'{}' is a link by name, which is not followed",
     "'{}' ist ein Verweis durch einen Namen, dem nicht gefolgt wird"},
    {"not a regular file", "keine gewöhnliche Datei"},
    {"attribute '{}' is of another type", "das Attribut '{}' hat einen anderen Typ"},
};
}  // namespace

std::span<const Translation> GermanArchiveTexts() {
    return Texts;
}
}  // namespace kelvarin
