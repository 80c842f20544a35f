#include "cli/report/SettingsJson.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "platform/framework/Text.h"
#include "settings/SettingsTable.h"

namespace kelvarin::cli {

using Json = nlohmann::ordered_json;

namespace {

Json ToJson(const std::u16string& text) {
    return Utf16ToUtf8(text);
}

// Adds the fields of one row of the table.
struct FieldWriter {
    Json& Object;
    const std::string Key;
    const CCsvImportSettings& Settings;

    void operator()(const IntSetting& setting) const {
        Object[Key] = Settings.*setting.Field;
        if (setting.Detected.Field == nullptr) return;
        Object[Utf16ToUtf8(setting.Detected.Name)] = Settings.*setting.Detected.Field;
    }
    void operator()(const TextSetting& setting) const { Object[Key] = ToJson(Settings.*setting.Field); }
    void operator()(const MomentSetting& setting) const { Object[Key] = Settings.*setting.Field; }
    void operator()(const RealSetting& setting) const { Object[Key] = NumberToJson(Settings.*setting.Field); }
};

}  // namespace

Json NumberToJson(double number) {
    if (std::isnan(number)) return "NaN";
    if (std::isinf(number)) return number > 0 ? "Infinity" : "-Infinity";
    return number;
}

Json SettingsToJson(const CCsvImportSettings& settings) {
    Json object;
    for (std::size_t i = 0; i < std::size(SettingsTable); ++i) {
        if (i == SharedSettingCount) object["Description"] = ToJson(settings.Description);
        std::visit(FieldWriter{object, Utf16ToUtf8(SettingsTable[i].Key), settings}, SettingsTable[i].Kind);
    }
    object["ColumnCount"] = settings.ColumnCount;
    return object;
}

Json ColumnsToJson(const CCsvImportSettings& settings) {
    Json columns = Json::array();
    for (const auto& [index, column] : settings.ColumnMap) {
        columns.push_back({{"index", index},
                           {"ImportColumn", column.ImportColumn},
                           {"DetectedName", ToJson(column.DetectedName)},
                           {"UserName", ToJson(column.UserName)},
                           {"Unit", ToJson(column.Unit)},
                           {"DetectedType", static_cast<int>(column.DetectedType)},
                           {"UserType", static_cast<int>(column.UserType)},
                           {"PreviewWidth", column.PreviewWidth}});
    }
    return columns;
}

}  // namespace kelvarin::cli
