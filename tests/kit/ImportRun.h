// One import from the file's bytes to the samples.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "kit/FakeHost.h"
#include "kit/Messages.h"
#include "kit/TestProfile.h"
#include "kit/Workdir.h"
#include "plugin/CsvImportFilter.h"

// A file, a host and a filter. Unless the settings say otherwise the separator is the semicolon, line 1 holds
// the names, and the rows lie one nanosecond apart without a date: with the host's base time of 1 they get
// the times 1, 2, 3 and so on.
class ImportRun {
  public:
    explicit ImportRun(std::string_view bytes, const SettingList& settings = {},
                       std::string_view name = "data.csv");

    // The filter's record, to be changed as the settings dialog would.
    CCsvImportSettings& Settings() { return const_cast<CCsvImportSettings&>(Filter->GetSettings()); }

    // One line; false at the end of the run.
    bool Next() { return Filter->ImportNextLine(&Progress); }

    // Calls Next until it answers false.
    void ReadAll();

    // A whole run. The samples, then the messages, a line each.
    std::string Import();

    // True while somebody, such as the filter, holds the source file open.
    bool SourceIsOpen() const;

    // The messages since the last call.
    std::string Messages() { return TakeMessageText(*Filter); }

    Workdir Folder;
    FakeHost Host;
    std::unique_ptr<CCsvImportFilter> Filter;
    std::uint32_t Progress = 12345;  // what no percentage can be
};
