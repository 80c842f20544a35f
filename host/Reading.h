// How a filter reads its file: what its settings come to after the analysis.
#pragma once

#include <limits>
#include <string>
#include <vector>

#include "settings/CsvImportSettings.h"

class CImportFilter;

namespace kelvarin {
// What a report needs of the settings, valid beyond the life of the filter. Lines and columns count from 1.
struct Reading {
    int Separator = 0;  // an ESeparator
    std::u16string OtherSeparator;
    bool MergeSeparators = false;
    int HeaderLine = 0;  // 0: none
    int FirstDataLine = 1;
    int DateSetting = DateFromColumn;  // an EDateSetting
    int DateColumn = 1;
    int TimeSetting = TimeFromColumn;  // an ETimeSetting
    int TimeColumn = 1;
    std::u16string TimestampFormat;
    bool IsAdjusted = false;   // a correction is added to each time
    double IntervalValue = 0;  // in units of IntervalUnit
    int IntervalUnit = 0;      // an index of IntervalUnits

    // The character between two cells; NUL for none.
    char16_t SeparatorSign() const;
};

// A column that the analysis found.
struct ColumnSummary {
    std::u16string Name;
    ECsvDataType Type;
    std::u16string Unit;
    bool IsTimestamp;  // its cells are the rows' times
    int Index;         // from 0
    bool IsSignal;     // a run makes a signal of it
};

// The settings of a filter, which owns them and changes them with each analysis; null if it doesn't show any.
const CCsvImportSettings* SettingsOf(const CImportFilter& filter);

// Both of a filter that has analysed its file; the defaults, and no column, if it doesn't show its settings.
// At most the first `most` columns.
Reading ReadingOf(const CImportFilter& filter);
std::vector<ColumnSummary> SummarizeColumns(const CImportFilter& filter,
                                            std::size_t most = std::numeric_limits<std::size_t>::max());

// The indices of the columns of which a run makes signals, in the order in which it makes them.
std::vector<int> SignalColumns(const CImportFilter& filter);
}  // namespace kelvarin
