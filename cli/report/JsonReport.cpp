#include "cli/report/JsonReport.h"

#include <cmath>
#include <concepts>
#include <cstring>
#include <nlohmann/json.hpp>

#include "cli/Complaints.h"
#include "cli/report/GuessReport.h"
#include "contract/SettingsView.h"
#include "host/Reading.h"
#include "host/Words.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"
#include "settings/SettingsTable.h"

namespace kelvarin::cli {
using Json = nlohmann::ordered_json;

namespace {
Json ToJson(const std::u16string& text) {
    return Utf16ToUtf8(text);
}

template <std::integral Whole>
Json ToJson(Whole number) {
    return number;
}

Json ToJson(double number) {
    if (std::isnan(number)) return "NaN";
    if (std::isinf(number)) return number > 0 ? "Infinity" : "-Infinity";
    return number;
}

// Adds what one row of the settings' table names.
template <class Kind>
void AddSetting(Json& object, const char16_t* key, const Kind& kind, const CCsvImportSettings& settings) {
    object[Utf16ToUtf8(key)] = ToJson(settings.*kind.Field);
    if constexpr (std::is_same_v<Kind, IntSetting>) {
        if (kind.Detected.Field == nullptr) return;
        object[Utf16ToUtf8(kind.Detected.Name)] = settings.*kind.Detected.Field;
    }
}

Json SettingsToJson(const CCsvImportSettings& settings) {
    Json object;
    for (std::size_t i = 0; i < std::size(SettingsTable); ++i) {
        if (i == SharedSettingCount) object["Description"] = ToJson(settings.Description);
        std::visit([&](const auto& kind) { AddSetting(object, SettingsTable[i].Key, kind, settings); },
                   SettingsTable[i].Kind);
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

// A sample's value, as the store's type codes lay it out in bytes.
std::string SampleJson(std::uint32_t type, const void* data, std::uint32_t size) {
    if (data == nullptr) return "null";
    if (type == KelvarinDouble) {
        double number = 0;
        std::memcpy(&number, data, sizeof number);
        if (!std::isfinite(number)) return ToJson(number).dump();
        const std::string digits =
            SampleText(type, data, size);  // the fewest, as the JSON library's may not be
        return digits.find_first_of(".e") == std::string::npos ? digits + ".0" : digits;
    }
    if (type == KelvarinChar16) {
        char16_t unit = 0;
        std::memcpy(&unit, data, sizeof unit);
        return std::to_string(unit);
    }
    if (type != KelvarinString) return SampleText(type, data, size);
    std::u16string text(size / sizeof(char16_t), u'\0');
    if (size != 0) std::memcpy(text.data(), data, size);
    return ToJson(text).dump();
}

// Samples are written one by one: as a tree they would take a hundred times the room.
void WriteSamples(std::ostream& out, const store::StoredSignal& signal, std::size_t limit) {
    const char* joint = "";
    out << ",\"samples\":[";
    signal.VisitSamples(limit, [&](std::int64_t time, const void* data, std::uint32_t size) {
        const std::uint32_t type = signal.Description().Type;
        out << joint << "[" << time << ", " << SampleJson(type, data, size) << "]";
        joint = ",";
    });
    out << "]";
}

// A document's text without the brace that ends it.
std::string OpenObject(const Json& fields) {
    std::string text = fields.dump();
    text.pop_back();
    return text;
}

// `column` is null where its place in the file is not told.
void WriteSignal(std::ostream& out, const store::StoredSignal& signal, const ColumnSummary* column,
                 std::optional<std::size_t> samples) {
    const store::SignalDescription& about = signal.Description();
    Json fields = {{"name", ToJson(about.Name)},
                   {"symbol", ToJson(about.Symbol)},
                   {"unit", ToJson(about.Unit)},
                   {"type", about.Type},
                   {"size", about.Size},
                   {"metadata", about.MetaData},
                   {"count", signal.Summary().Count}};
    if (column != nullptr) {
        fields["column"] = column->Index + 1;
        fields["hexadecimal"] = column->Type == CsvTypeHex;
    }
    out << OpenObject(fields);
    if (samples) WriteSamples(out, signal, *samples);
    out << "}";
}

void WriteMessages(std::ostream& out, const std::vector<const MessageList*>& lists) {
    Json all = Json::array();
    std::uint64_t leftOut = 0;
    for (const MessageList* const messages : lists) {
        leftOut += messages->LeftOut();
        for (const ImportMessage& message : messages->Kept()) {
            all.push_back(
                {{"failure", message.Failure}, {"column", message.Column}, {"text", ToJson(message.Text)}});
        }
    }
    out << ",\"messages\":" << all.dump();
    if (leftOut != 0) out << ",\"messagesLeftOut\":" << leftOut;
}
}  // namespace

void WriteDocument(std::ostream& out, const Json& document) {
    out << document.dump(-1, ' ', false, Json::error_handler_t::replace) << "\n";
}

void AddSettings(Json& document, const CImportFilter& filter) {
    const CCsvImportSettings* const settings = SettingsOf(filter);
    document["settings"] = settings == nullptr ? Json() : SettingsToJson(*settings);
    document["columns"] = settings == nullptr ? Json() : ColumnsToJson(*settings);
}

void WriteAnalyzeJson(std::ostream& out, const std::string& file, bool analyzed, const CImportFilter& filter,
                      const plan::Guess* guess) {
    Json document = {{"file", PrintableName(file)}, {"analyzed", analyzed}};
    AddSettings(document, filter);
    // Where a copy is read, the filter's path is that of the copy, which means nothing to anybody.
    if (const CCsvImportSettings* const settings = SettingsOf(filter))
        document["settings"]["Description"] =
            ToJson(ReplaceAll(settings->Description, filter.FilePath, PathFromNative(file)));
    const ISettingsView* const view = filter.Find<ISettingsView>();
    document["sidecarWarning"] = view == nullptr ? Json("") : ToJson(view->GetSidecarWarning());
    if (guess != nullptr) document["guess"] = GuessToJson(*guess);
    WriteDocument(out, document);
}

void WriteImportJson(std::ostream& out, const ImportDocument& document, const Json& more) {
    const store::StoredDevice* const device = document.Device;
    Json head = {
        {"file", PrintableName(document.File)}, {"begun", document.Run.Begun}, {"lines", document.Run.Lines}};
    head["device"] = nullptr;
    if (device != nullptr)
        head["device"] = {{"name", ToJson(device->Name)}, {"description", ToJson(device->Description)}};
    std::vector<ColumnSummary> columns;
    if (document.Filter != nullptr && device != nullptr) {
        head["relativeTime"] = ReadingOf(*document.Filter).DateSetting == DateNone;
        columns = SummarizeColumns(*document.Filter);
        std::erase_if(columns, [](const ColumnSummary& column) { return !column.IsSignal; });
    }
    out << OpenObject(head) << ",\"signals\":[";
    for (std::size_t i = 0; device != nullptr && i < device->Signals.size(); ++i) {
        if (i != 0) out << ",";
        WriteSignal(out, *device->Signals[i], i < columns.size() ? &columns[i] : nullptr, document.Samples);
    }
    out << "]";
    WriteMessages(out, document.Messages);
    out << ",\"progress\":" << Json(document.Run.Progress).dump();
    if (document.Guess != nullptr) out << ",\"guess\":" << GuessToJson(*document.Guess).dump();
    for (const auto& [key, value] : more.items()) out << "," << Json(key).dump() << ":" << value.dump();
    out << "}\n";
}

void WriteImportJson(std::ostream& out, const ImportDocument& document) {
    WriteImportJson(out, document, Json::object());
}
}  // namespace kelvarin::cli
