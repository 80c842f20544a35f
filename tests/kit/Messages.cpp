#include "kit/Messages.h"

#include "platform/framework/Text.h"

std::string DescribeMessage(const ImportMessage& message) {
    std::string place = "row";
    if (message.Failure) place = "file";
    if (message.Column == -2) place = "sidecar";
    if (message.Column >= 0) place = "cell " + std::to_string(message.Column);
    // A failure of a column or of the sidecar file is nothing that a filter reports.
    if (message.Failure && message.Column != -1) place = "misplaced failure " + place;
    return place + ": " + Utf16ToUtf8(message.Text) + '\n';
}

std::string TakeMessageText(CImportFilter& filter) {
    std::string text;
    for (const ImportMessage& message : filter.TakeMessages()) text += DescribeMessage(message);
    return text;
}

std::string RowWithoutTime(int line) {
    return "row: Für den Datensatz in Zeile " + std::to_string(line) +
           " konnte kein gültiger Zeitstempel importiert bzw. generiert werden.\n";
}

std::string WrongCell(int column, const std::string& cell, const std::string& signal, int line,
                      const std::string& type) {
    return "cell " + std::to_string(column) + ": Der Wert '" + cell + "' des Signals '" + signal +
           "' in Zeile " + std::to_string(line) + " ist nicht vom Typ '" + type + "'.\n";
}
