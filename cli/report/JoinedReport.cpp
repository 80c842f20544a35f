#include "cli/report/JoinedReport.h"

#include <nlohmann/json.hpp>

#include "cli/Complaints.h"
#include "cli/report/AssumptionsReport.h"
#include "cli/report/TextReport.h"
#include "contract/TimeStamp.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {
using Json = nlohmann::ordered_json;

namespace {
std::string SpanText(std::int64_t span) {
    return Utf16ToUtf8(CTimeStampSpan(span).ToText());
}

void WriteFiles(ReportStream out, const std::vector<JoinedFile>& files, bool isRelative) {
    using Align = TextTable::Align;
    TextTable table({Align::Left, Align::Right, Align::Left, Align::Left});
    for (const JoinedFile& file : files) {
        const store::JoinedPart& part = file.Part;
        std::string times;
        if (part.Rows > 0 && isRelative) {
            times = Phrase("span {}", SpanText(part.LastTime - part.FirstTime));
        } else if (part.Rows > 0) {
            times = Phrase("{} to {}", Utf16ToUtf8(CTimeStamp(part.FirstTime).ToText()),
                           Utf16ToUtf8(CTimeStamp(part.LastTime).ToText()));
        }
        table.AddRow({PrintableName(file.File), std::to_string(part.Rows), Phrase("rows"), times});
    }
    out << ReportHeading(Phrase("joined files")) << "\n";
    table.Write(out, "    ");
}

// Where a file doesn't follow the one before without a break.
void WriteBorder(ReportStream out, const JoinedFile& file) {
    constexpr std::int64_t Day = std::int64_t{86'400} * 1'000'000'000;
    const auto write = [&](const std::string& text) {
        out << "    " << Styled(Style::Warning, PrintableName(file.File) + ": " + text) << "\n";
    };
    if (file.Part.Shift != 0) write(Phrase("days added to its times: {}", file.Part.Shift / Day));
    if (file.Gap) write(Phrase("gap of {} before its first row", SpanText(*file.Gap)));
    if (file.Part.LeftOut != 0)
        write(Phrase("overlap: {} of its rows left out, as they don't come after the last row before it",
                     file.Part.LeftOut));
}

Json FileToJson(const JoinedFile& file) {
    const bool hasRows = file.Part.Rows > 0;
    return {{"file", PrintableName(file.File)},
            {"lines", file.Lines},
            {"rows", file.Part.Rows},
            {"leftOut", file.Part.LeftOut},
            {"first", hasRows ? Json(file.Part.FirstTime) : Json(nullptr)},
            {"last", hasRows ? Json(file.Part.LastTime) : Json(nullptr)},
            {"gap", file.Gap ? Json(*file.Gap) : Json(nullptr)},
            {"shift", file.Part.Shift},
            {"messages", file.Messages.Kept().size()}};
}
}  // namespace

void WriteJoinedText(ReportStream out, const std::vector<JoinedFile>& files, const ImportDocument& document,
                     bool isRelative) {
    if (document.Device == nullptr) return;
    out << Styled(Style::Heading, Utf16ToUtf8(document.Device->Name)) << "\n";
    WriteFiles(out, files, isRelative);
    for (const JoinedFile& file : files) WriteBorder(out, file);
    if (document.Guess != nullptr) WriteAssumptions(out, Phrase("assumed"), document.Guess->Assumed);
    WriteSignalsText(out, document.Run, *document.Device, isRelative);
    for (const JoinedFile& file : files) {
        if (!file.Messages.IsEmpty()) out << PrintableName(file.File) << "\n";
        WriteMessagesText(out, file.Messages);
    }
}

void WriteJoinedJson(std::ostream& out, const std::vector<JoinedFile>& files,
                     const ImportDocument& document) {
    Json joined = Json::array();
    for (const JoinedFile& file : files) joined.push_back(FileToJson(file));
    WriteImportJson(out, document, {{"joined", joined}});
}
}  // namespace kelvarin::cli
