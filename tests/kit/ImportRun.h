// One import from the file's bytes to the samples, and the messages word for word.
#pragma once

#include "kit/FakeHost.h"
#include "kit/ReadFault.h"
#include "kit/TestProfile.h"
#include "kit/Workdir.h"
#include "plugin/CsvImportFilter.h"

// A file, a host and a filter. Unless the settings say otherwise the separator is the semicolon, line 1 holds
// the names, and the rows have the times 1, 2, 3 and so on.
class ImportRun {
  public:
    explicit ImportRun(std::string_view bytes, const SettingList& settings = {},
                       std::string_view name = "data.csv") {
        const TestProfile profile(Joined({"AutoFormat=0", "Separator=0", "ImportHeader=1", "DateSetting=2",
                                          "TimeSetting=1", "IntervalUnit=5"},
                                         settings));
        Filter = std::make_unique<CCsvImportFilter>(Folder.Write(name, bytes).c_str());
        Filter->DeviceHost = &Host;
        Filter->TimeContext = &Host;
    }
    CCsvImportSettings& Settings() { return const_cast<CCsvImportSettings&>(Filter->GetSettings()); }
    CCsvColumnInfo& Column(int index) { return Settings().GetColumn(index); }
    bool Next() { return Filter->ImportNextLine(&Progress); }

    // A whole run: the samples, then the messages, a line each.
    std::string Import() {
        if (Filter->BeginImport()) {
            while (Next()) {
            }
        }
        Filter->EndImport();
        return Host.DescribeSamples() + Messages();
    }

    // The messages since the last call as "column: text", "!" before a failure of the whole file.
    std::string Messages() {
        std::string text;
        for (const ImportMessage& message : Filter->TakeMessages()) {
            text += (message.Failure ? "!" : "") + std::to_string(message.Column) + ": " +
                    Utf16ToUtf8(message.Text) + '\n';
        }
        return text;
    }

    Workdir Folder;
    FakeHost Host;
    std::unique_ptr<CCsvImportFilter> Filter;
    std::uint32_t Progress = 0;
};

inline const std::string ReadError = "!-1: Beim Lesen aus der Quelldatei ist ein Fehler aufgetreten.\n";
inline std::string RowWithoutTime(int line) {
    return "-1: Für den Datensatz in Zeile " + std::to_string(line) +
           " konnte kein gültiger Zeitstempel importiert bzw. generiert werden.\n";
}
inline std::string WrongCell(int column, const std::string& cell, const std::string& signal, int line,
                             const std::string& type) {
    return std::to_string(column) + ": Der Wert '" + cell + "' des Signals '" + signal + "' in Zeile " +
           std::to_string(line) + " ist nicht vom Typ '" + type + "'.\n";
}
