// Between the settings of a filter and text: JSON to show them, KEY=VALUE to set them.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "platform/support/ProfileOverlay.h"

class CCsvImportSettings;
class CImportFilter;

// The settings of a filter of the module.
const CCsvImportSettings& SettingsOf(const CImportFilter& filter);

// The warning about the filter's sidecar; empty if there is none.
std::string SidecarWarningOf(const CImportFilter& filter);

// Every field of the record but the columns; every entry of the columns, in order.
nlohmann::ordered_json SettingsToJson(const CCsvImportSettings& settings);
nlohmann::ordered_json ColumnsToJson(const CCsvImportSettings& settings);

// A double as JSON; one that is not finite as text.
nlohmann::ordered_json NumberToJson(double number);

// The settings of the profile as ParseSettingOption reads them, KEY=VALUE each.
std::vector<std::string> SettingOptions(const CCsvImportSettings& settings);

// What a text report needs of the settings.
struct FormatSummary {
    int Separator;  // an index, 4 for the user's own
    std::u16string OtherSeparator;
    bool MergeSeparators;
    int HeaderLine;  // 0: none
    int FirstDataLine;
    int DateSetting;
    int DateColumn;  // 1-based
    int TimeSetting;
    int TimeColumn;  // 1-based
    std::u16string TimestampFormat;
};
FormatSummary SummarizeFormat(const CCsvImportSettings& settings);

// A column that the analysis found, for a text report.
struct ColumnSummary {
    std::u16string Name;
    int Type;  // 0 undefined to 8 string
    std::u16string Unit;
    bool IsTimestamp;
};
std::vector<ColumnSummary> SummarizeColumns(const CCsvImportSettings& settings);

// Reads "KEY=VALUE" of a setting of the profile. Answers an empty text, or what is wrong and what is allowed.
std::string ParseSettingOption(const std::string& text, std::u16string& key, ProfileOverlay::Value& value);

// The profile section of the settings.
const char16_t* SettingsSectionName();
