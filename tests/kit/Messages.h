// A filter's messages as lines of a test's text, and the module's own texts word for word.
#pragma once

#include <string>

#include "host/ImportFilter.h"

// "file: text" for a failure of the whole file, "row: text", "cell 2: text" or "sidecar: text" for a remark,
// with a line end.
std::string DescribeMessage(const ImportMessage& message);

// All messages of a filter since the last call.
std::string TakeMessageText(CImportFilter& filter);

inline const std::string ReadError = "file: Beim Lesen aus der Quelldatei ist ein Fehler aufgetreten.\n";
inline const std::string NoValidFile =
    "file: Die Quelldatei ist keine gültige CSV-Datei entsprechend den eingestellten Formatvorgaben.\n";
inline const std::string Before1990 =
    "file: Absolute Zeitstempel vor dem 01.01.1990 können von kelvarin nicht verarbeitet werden.\n";
inline const std::string NoDevice = "file: Für die Quelldatei konnte kein Gerät angelegt werden.\n";
inline const std::string WriteError =
    "file: Beim Schreiben in den Datenspeicher ist ein Fehler aufgetreten.\n";

// The message of a row without a timestamp.
std::string RowWithoutTime(int line);

// The message of a cell in a 0-based column, with the label of the column's type.
std::string WrongCell(int column, const std::string& cell, const std::string& signal, int line,
                      const std::string& type);
