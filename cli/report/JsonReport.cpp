#include "cli/report/JsonReport.h"

#include <cstring>
#include <nlohmann/json.hpp>

#include "cli/Complaints.h"
#include "cli/report/GuessReport.h"
#include "cli/report/SettingsJson.h"
#include "contract/SettingsView.h"
#include "host/Reading.h"
#include "host/SampleValue.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {

using Json = nlohmann::ordered_json;

namespace {

// A sample's value, as the store's type codes lay it out in bytes.
std::string SampleJson(std::uint32_t type, const void* data, std::uint32_t size) {
    if (data == nullptr) return "null";
    switch (type) {
        case KelvarinDouble: {
            double number = 0;
            std::memcpy(&number, data, sizeof number);
            return NumberToJson(number).dump();
        }
        case KelvarinChar16: {
            char16_t unit = 0;
            std::memcpy(&unit, data, sizeof unit);
            return std::to_string(unit);
        }
        case KelvarinString: {
            std::u16string text(size / sizeof(char16_t), u'\0');
            if (size != 0) std::memcpy(text.data(), data, size);
            return Json(Utf16ToUtf8(text)).dump();
        }
        default:
            return SampleText(type, data, size);
    }
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

void WriteSignal(std::ostream& out, const store::StoredSignal& signal, std::optional<std::size_t> samples) {
    const store::SignalDescription& about = signal.Description();
    const Json fields = {{"name", Utf16ToUtf8(about.Name)},
                         {"symbol", Utf16ToUtf8(about.Symbol)},
                         {"unit", Utf16ToUtf8(about.Unit)},
                         {"type", about.Type},
                         {"size", about.Size},
                         {"metadata", about.MetaData},
                         {"count", signal.Summary().Count}};
    std::string text = fields.dump();
    text.pop_back();
    out << text;
    if (samples) WriteSamples(out, signal, *samples);
    out << "}";
}

Json DeviceToJson(const store::StoredDevice* device) {
    if (device == nullptr) return nullptr;
    return {{"name", Utf16ToUtf8(device->Name)}, {"description", Utf16ToUtf8(device->Description)}};
}

Json MessagesToJson(const std::vector<ImportMessage>& messages) {
    Json list = Json::array();
    for (const ImportMessage& message : messages) {
        list.push_back(
            {{"failure", message.Failure}, {"column", message.Column}, {"text", Utf16ToUtf8(message.Text)}});
    }
    return list;
}

}  // namespace

void WriteAnalyzeJson(std::ostream& out, const std::string& file, bool analyzed, const CImportFilter& filter,
                      const guess::TimeGuess* guess) {
    const CCsvImportSettings* const settings = SettingsOf(filter);
    const ISettingsView* const view = filter.Find<ISettingsView>();
    Json document = {{"file", PrintableName(file)},
                     {"analyzed", analyzed},
                     {"settings", settings == nullptr ? Json() : SettingsToJson(*settings)},
                     {"columns", settings == nullptr ? Json() : ColumnsToJson(*settings)},
                     {"sidecarWarning", view == nullptr ? "" : Utf16ToUtf8(view->GetSidecarWarning())}};
    if (guess != nullptr) document["guess"] = GuessToJson(*guess);
    out << document.dump() << "\n";
}

void WriteImportJson(std::ostream& out, const std::string& file, const RunResult& result,
                     const HostSession& session, std::optional<std::size_t> samples,
                     const guess::TimeGuess* guess) {
    Json head = {{"file", PrintableName(file)}, {"begun", result.Begun}, {"lines", result.Lines}};
    head["device"] = DeviceToJson(session.Device());
    std::string text = head.dump();
    text.pop_back();
    out << text << ",\"signals\":[";
    if (const store::StoredDevice* const device = session.Device()) {
        bool first = true;
        for (const auto& signal : device->Signals) {
            if (!first) out << ",";
            first = false;
            WriteSignal(out, *signal, samples);
        }
    }
    out << "],\"messages\":" << MessagesToJson(session.Messages().All()).dump();
    out << ",\"progress\":" << Json(result.Progress).dump();
    if (guess != nullptr) out << ",\"guess\":" << GuessToJson(*guess).dump();
    out << "}\n";
}

}  // namespace kelvarin::cli
