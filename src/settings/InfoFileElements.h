// The elements of a sidecar, each said once: reading, writing, checking and comparing walk this table.
#pragma once

#include <variant>

#include "settings/CsvInfoFile.h"

struct InfoFileElement {
    const char* Name;        // in revision 2
    const char* LegacyName;  // in revision 1, which has no other elements; null: none
    std::variant<std::int32_t CCsvInfoFile::*, double CCsvInfoFile::*, bool CCsvInfoFile::*,
                 std::u16string CCsvInfoFile::*>
        Field;
    bool IsRequired = false;
    bool (*IsWritten)(const CCsvInfoFile& file) = nullptr;  // null: always
};

// In the order of writing. The names of revision 1 are misspelt in every file there is.
inline constexpr InfoFileElement InfoFileElements[] = {
    {"START-LINE", "LINE-NUMBER-HEADER", &CCsvInfoFile::StartLine, true},
    {"SEPARATOR", "DELIMETER-COUMNS", &CCsvInfoFile::SeparatorText, true},
    {"DELIMITER-DECIMAL-POINT", "DELIMETER-DECIMAL-POINT", &CCsvInfoFile::DecimalPoint, true},
    {"DELIMITER-MIL", "DELIMETER-MIL-POINT", &CCsvInfoFile::ThousandsSeparator, true},
    {"TIME-COLUMN", "SIGNAL-NAME-TIME", &CCsvInfoFile::TimeColumn},
    {"MERGE-SEPARATORS", nullptr, &CCsvInfoFile::MergeSeparators},
    {"IMPORT-HEADER", nullptr, &CCsvInfoFile::ImportHeader},
    {"DATE-SETTING", nullptr, &CCsvInfoFile::DateSetting},
    {"DATE-COLUMN", nullptr, &CCsvInfoFile::DateColumn, false,
     [](const CCsvInfoFile& file) { return file.DateSetting == 0; }},
    {"START-DATE", nullptr, &CCsvInfoFile::StartDateText, false,
     [](const CCsvInfoFile& file) { return file.DateSetting == 1; }},
    {"TIME-SETTING", nullptr, &CCsvInfoFile::TimeSetting},
    {"TIME-INTERVAL-VALUE", nullptr, &CCsvInfoFile::IntervalValue},
    {"TIME-INTERVAL-UNIT", nullptr, &CCsvInfoFile::IntervalUnitText},
    {"TIME-ADJUST", nullptr, &CCsvInfoFile::TimeAdjustText, false,
     [](const CCsvInfoFile& file) { return !file.TimeAdjustText.empty(); }},
    {"TIME-ADJUST-MODE", nullptr, &CCsvInfoFile::AdjustMode, false,
     [](const CCsvInfoFile& file) { return !file.TimeAdjustText.empty(); }},
    {"TIMESTAMP-FORMAT", nullptr, &CCsvInfoFile::TimestampFormat},
};
