// How a file is read, as the settings in force say, for a host that tells it to its user.
#pragma once

#include <string>
#include <vector>

#include "settings/CsvImportSettings.h"

class CImportFilter;

namespace kelvarin {

// What a report needs of the record, kept beyond the life of the filter that owns it.
struct Reading {
    int Separator = 0;  // an ESeparator
    std::u16string OtherSeparator;
    bool MergeSeparators = false;
    int HeaderLine = 0;  // 0: none
    int FirstDataLine = 1;
    int DateSetting = DateFromColumn;  // an EDateSetting
    int DateColumn = 1;                // 1-based
    int TimeSetting = TimeFromColumn;  // an ETimeSetting
    int TimeColumn = 1;                // 1-based
    std::u16string TimestampFormat;
    bool IsAdjusted = false;  // a correction is on
    double IntervalValue = 0;
    int IntervalUnit = 0;  // an index of IntervalUnits

    // The character between two cells; NUL for none.
    char16_t SeparatorSign() const;
};

// The settings of a filter of the module, or null if it doesn't show them.
const CCsvImportSettings* SettingsOf(const CImportFilter& filter);

// Of a filter that has analysed its file; the defaults if it doesn't show its settings.
Reading ReadingOf(const CImportFilter& filter);

// A column that the analysis found.
struct ColumnSummary {
    std::u16string Name;
    ECsvDataType Type;
    std::u16string Unit;
    bool IsTimestamp;  // its cells are the rows' times
    bool IsImported;   // it becomes a signal, unless IsTimestamp
    int Index;         // 0-based place in the file
};

// In the order of the file, and so in the order in which a run makes the signals.
std::vector<ColumnSummary> SummarizeColumns(const CImportFilter& filter);

}  // namespace kelvarin
