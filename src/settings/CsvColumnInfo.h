// What is known about one column: what the analysis found beside what the user chose.
#pragma once

#include <array>
#include <string>

#include "settings/DataType.h"

struct CCsvColumnInfo {
    std::u16string DetectedName;                      // settled by the analysis
    std::u16string UserName;                          // typed by the user; empty means none
    std::u16string Unit;                              // set by the first cell with a unit, also during a run
    std::array<bool, CsvTypeCount> TypeCandidates{};  // types 1 to 8 that fit every cell so far
    ECsvDataType DetectedType = CsvTypeUndefined;     // settled by the analysis
    ECsvDataType UserType = CsvTypeUndefined;         // chosen by the user; undefined means none
    bool ImportColumn = true;                         // the column becomes a signal
    int PreviewWidth = -1;  // of the column in the preview, in pixels; -1 means never set

    // The user's name, else the detected one.
    const std::u16string& GetDisplayName() const { return UserName.empty() ? DetectedName : UserName; }

    // The user's type, else the detected one.
    ECsvDataType GetEffectiveType() const { return UserType != CsvTypeUndefined ? UserType : DetectedType; }
};
