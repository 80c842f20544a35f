// The settings of the module that read a file by its plan.
#pragma once

#include <optional>
#include <string>

#include "contract/ImportFilter.h"
#include "host/SettingText.h"
#include "host/plan/ReadingPlan.h"

namespace kelvarin::plan {
// The settings that make the module cut the plan's table as the plan does and start at its first row; nothing
// if no settings do. `filter` is one of the file and has an ITableReader; its cells are compared for the
// first rows.
std::optional<SettingList> TableSettingsOf(const CImportFilter& filter, const ReadingPlan& plan);

struct TimeSettings {
    SettingList Settings;
    std::u16string Letters;  // by which their format is read, IGuidedReading::ReadFormatsBy; empty for those
                             // of the language in force
};

// The settings that give each sampled row the plan's time; nothing if none do, or if the rows must be
// sorted. `filter` has an ITimeReader; it reads formats by the letters that were tried last. `path` is that
// of the file, whose own date is taken for clocks without a date that run over midnight.
std::optional<TimeSettings> TimeSettingsOf(const CImportFilter& filter, const ReadingPlan& plan,
                                           const std::u16string& path);

// Settings for the times of a copy, in its column, from 1.
enum class CopyTimes;
SettingList CopyTimeSettings(const CImportFilter& filter, CopyTimes times, std::size_t column);

// The data type of the module for a column.
int ModuleTypeOf(const PlannedColumn& column);
}  // namespace kelvarin::plan
