// The settings of a filter as JSON.
#pragma once

#include <nlohmann/json_fwd.hpp>

class CCsvImportSettings;

namespace kelvarin::cli {

// Every field of the record but the columns; every entry of the columns, in order.
nlohmann::ordered_json SettingsToJson(const CCsvImportSettings& settings);
nlohmann::ordered_json ColumnsToJson(const CCsvImportSettings& settings);

// A double as JSON; one that is not finite as text.
nlohmann::ordered_json NumberToJson(double number);

}  // namespace kelvarin::cli
