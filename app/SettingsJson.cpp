#include "app/SettingsJson.h"

#include <cmath>
#include <cstring>
#include <nlohmann/json.hpp>

#include "app/WholeNumber.h"
#include "app/language/Phrase.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/ProfileText.h"
#include "platform/framework/Text.h"
#include "plugin/CsvImportFilter.h"
#include "settings/SettingsTable.h"

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

template <class Value>
ProfileBlock BlockOf(const Value& value) {
    ProfileBlock block(sizeof value);
    std::memcpy(block.data(), &value, sizeof value);
    return block;
}

// Reads the value of one row of the table; answers what is allowed if it isn't one.
struct ValueReader {
    const std::string& Text;
    ProfileOverlay::Value& Value;

    std::string operator()(const IntSetting&) const {
        std::int32_t number = 0;
        if (!ParseWhole(Text, number)) return Phrase("a 32-bit whole number");
        Value = number;
        return {};
    }
    std::string operator()(const TextSetting&) const {
        Value = Utf8ToUtf16(Text);
        return {};
    }
    std::string operator()(const MomentSetting&) const {
        std::int64_t seconds = 0;
        if (ReadBlock()) return {};
        if (!ParseWhole(Text, seconds))
            return Phrase("seconds since 1970, or hex: and the bytes of the block");
        Value = BlockOf(seconds);
        return {};
    }
    std::string operator()(const RealSetting&) const {
        if (ReadBlock()) return {};
        const std::u16string wide = Utf8ToUtf16(Text);
        const char16_t* end = nullptr;
        const double number = ParseDouble(wide.c_str(), u'.', &end);
        const bool isWhole = end != wide.c_str() && end == wide.c_str() + wide.size();
        if (!isWhole) return Phrase("a decimal number, inf, nan, or hex: and the bytes of the block");
        Value = BlockOf(number);
        return {};
    }
    bool ReadBlock() const {
        const auto block = BlockFromProfileText(Text);
        if (block) Value = *block;
        return block.has_value();
    }
};

std::string KnownKeys() {
    std::string keys;
    for (const Setting& setting : SettingsTable)
        keys += (keys.empty() ? "" : ", ") + Utf16ToUtf8(setting.Key);
    return keys;
}

}  // namespace

const CCsvImportSettings& SettingsOf(const CImportFilter& filter) {
    return static_cast<const CCsvImportFilter&>(filter).GetSettings();
}

std::string SidecarWarningOf(const CImportFilter& filter) {
    return Utf16ToUtf8(static_cast<const CCsvImportFilter&>(filter).GetSidecarWarning());
}

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

std::vector<std::string> SettingOptions(const CCsvImportSettings& settings) {
    std::vector<std::string> options;
    for (const Setting& setting : SettingsTable) {
        Json fields;
        const std::string key = Utf16ToUtf8(setting.Key);
        std::visit(FieldWriter{fields, key, settings}, setting.Kind);
        const Json& value = fields[key];
        options.push_back(key + "=" + (value.is_string() ? value.get<std::string>() : value.dump()));
    }
    return options;
}

FormatSummary SummarizeFormat(const CCsvImportSettings& settings) {
    const int firstLine = settings.GetFirstLine();
    const bool hasHeader = settings.ImportHeader != 0;
    return {settings.Separator,
            settings.OtherSeparator,
            settings.MergeSeparators != 0,
            hasHeader ? firstLine : 0,
            hasHeader ? firstLine + 1 : firstLine,
            settings.DateSetting,
            settings.DateColumn,
            settings.TimeSetting,
            settings.TimeColumn,
            settings.TimestampFormat};
}

std::vector<ColumnSummary> SummarizeColumns(const CCsvImportSettings& settings) {
    std::vector<ColumnSummary> columns;
    for (const auto& [index, column] : settings.ColumnMap) {
        if (index < 0 || index >= settings.ColumnCount) continue;
        const bool isDate = settings.DateSetting == DateFromColumn && index + 1 == settings.DateColumn;
        const bool isTime = settings.TimeSetting == TimeFromColumn && index + 1 == settings.TimeColumn;
        columns.push_back(
            {column.GetDisplayName(), column.GetEffectiveType(), column.Unit, isDate || isTime});
    }
    return columns;
}

std::string ParseSettingOption(const std::string& text, std::u16string& key, ProfileOverlay::Value& value) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos) return Phrase("'{}' is not of the form KEY=VALUE", text);
    key = Utf8ToUtf16(text.substr(0, equals));
    for (const Setting& setting : SettingsTable) {
        if (key != setting.Key) continue;
        const std::string valueText = text.substr(equals + 1);
        const std::string allowed = std::visit(ValueReader{valueText, value}, setting.Kind);
        if (allowed.empty()) return {};
        return Phrase("'{}' is no value of {}; allowed is {}", valueText, text.substr(0, equals), allowed);
    }
    return Phrase("there is no setting '{}'; allowed are {}", text.substr(0, equals), KnownKeys());
}

const char16_t* SettingsSectionName() {
    return SettingsSection;
}
