#include "app/JsonReport.h"

#include <nlohmann/json.hpp>

#include "app/SampleValue.h"
#include "app/SettingsJson.h"
#include "app/guess/GuessReport.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

using Json = nlohmann::ordered_json;

namespace {

// A file name as valid UTF-8, whatever its bytes are.
std::string FileText(const std::string& file) {
    return Utf16ToUtf8(PathFromNative(file));
}

// Samples are written one by one: as a tree they would take a hundred times the room.
void WriteSamples(std::ostream& out, const StoredSignal& signal, std::size_t limit) {
    const char* joint = "";
    out << ",\"samples\":[";
    signal.VisitSamples(limit, [&](std::int64_t time, const void* data, std::uint32_t size) {
        const std::uint32_t type = signal.Description().Type;
        out << joint << "[" << time << ", " << (data == nullptr ? "null" : SampleJson(type, data, size))
            << "]";
        joint = ",";
    });
    out << "]";
}

void WriteSignal(std::ostream& out, const StoredSignal& signal, std::optional<std::size_t> samples) {
    const SignalDescription& about = signal.Description();
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

Json DeviceToJson(const StoredDevice* device) {
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
                      const TimeGuess* guess) {
    const CCsvImportSettings& settings = SettingsOf(filter);
    Json document = {{"file", FileText(file)},
                     {"analyzed", analyzed},
                     {"settings", SettingsToJson(settings)},
                     {"columns", ColumnsToJson(settings)},
                     {"sidecarWarning", SidecarWarningOf(filter)}};
    if (guess != nullptr) document["guess"] = GuessToJson(*guess);
    out << document.dump() << "\n";
}

void WriteImportJson(std::ostream& out, const std::string& file, const RunResult& result,
                     const HostSession& session, std::optional<std::size_t> samples, const TimeGuess* guess) {
    Json head = {{"file", FileText(file)}, {"begun", result.Begun}, {"lines", result.Lines}};
    head["device"] = DeviceToJson(session.Device());
    std::string text = head.dump();
    text.pop_back();
    out << text << ",\"signals\":[";
    if (const StoredDevice* const device = session.Device()) {
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
