// The settings of the profile, each said once: loading, clamping, saving, handing on and the command line
// walk this table.
#pragma once

#include <iterator>
#include <variant>

#include "settings/CsvImportSettings.h"
#include "settings/IntervalUnits.h"

// The highest line and column that a setting can name.
inline constexpr int HighestNumber = 999;

// What the analysis finds for a setting; its start value is that of the setting.
struct DetectedField {
    const char16_t* Name;
    int CCsvImportSettings::*Field;
};
inline constexpr DetectedField NotDetected{nullptr, nullptr};

// An integer within bounds.
struct IntSetting {
    int CCsvImportSettings::*Field;
    DetectedField Detected;
    int Default, Lowest, Highest;
};

// A text, empty by default.
struct TextSetting {
    std::u16string CCsvImportSettings::*Field;
};

// A moment in seconds since 1970, stored as a block of 8 bytes; by default the current time.
struct MomentSetting {
    std::int64_t CCsvImportSettings::*Field;
};

// A number, stored as the block of 8 bytes of an IEEE double. Not a number counts as absent.
struct RealSetting {
    double CCsvImportSettings::*Field;
    double Default;
};

struct Setting {
    const char16_t* Key;
    std::variant<IntSetting, TextSetting, MomentSetting, RealSetting> Kind;
};

// The section of the profile.
inline constexpr const char16_t* SettingsSection = u"CsvImport";

// In the order of reading and writing. The last row has a way of its own into the profile.
inline constexpr Setting SettingsTable[] = {
    {u"AutoFormat", IntSetting{&CCsvImportSettings::AutoFormat, NotDetected, 1, 0, 1}},
    {u"Separator", IntSetting{&CCsvImportSettings::Separator,
                              {u"DetectedSeparator", &CCsvImportSettings::DetectedSeparator},
                              1,
                              0,
                              4}},
    {u"OtherSeparator", TextSetting{&CCsvImportSettings::OtherSeparator}},
    {u"MergeSeparators", IntSetting{&CCsvImportSettings::MergeSeparators, NotDetected, 0, 0, 1}},
    {u"FirstLine", IntSetting{&CCsvImportSettings::FirstLine,
                              {u"DetectedFirstLine", &CCsvImportSettings::DetectedFirstLine},
                              1,
                              1,
                              HighestNumber}},
    {u"ImportHeader", IntSetting{&CCsvImportSettings::ImportHeader,
                                 {u"DetectedHeader", &CCsvImportSettings::DetectedHeader},
                                 1,
                                 0,
                                 1}},
    {u"DateSetting", IntSetting{&CCsvImportSettings::DateSetting, NotDetected, 0, 0, 2}},
    {u"DateColumn", IntSetting{&CCsvImportSettings::DateColumn, NotDetected, 1, 1, HighestNumber}},
    {u"StartDate", MomentSetting{&CCsvImportSettings::StartDate}},
    {u"TimeSetting", IntSetting{&CCsvImportSettings::TimeSetting, NotDetected, 0, 0, 1}},
    {u"TimeColumn", IntSetting{&CCsvImportSettings::TimeColumn, NotDetected, 1, 1, HighestNumber}},
    {u"IntervalValue", RealSetting{&CCsvImportSettings::IntervalValue, 1.0}},
    {u"IntervalUnit",
     IntSetting{&CCsvImportSettings::IntervalUnit, NotDetected, 2, 0, IntervalUnitCount - 1}},
    {u"Adjust", IntSetting{&CCsvImportSettings::Adjust, NotDetected, 0, 0, 1}},
    {u"AdjustTime", MomentSetting{&CCsvImportSettings::AdjustTime}},
    {u"AdjustMode", IntSetting{&CCsvImportSettings::AdjustMode, NotDetected, 0, 0, 2}},
    {u"TimestampFormat", TextSetting{&CCsvImportSettings::TimestampFormat}},
    {u"SaveSidecarFile", IntSetting{&CCsvImportSettings::SaveSidecarFile, NotDetected, 0, 0, 1}},
};

// The rows that "use as default" saves and hands on: all but SaveSidecarFile.
inline constexpr std::size_t SharedSettingCount = std::size(SettingsTable) - 1;
