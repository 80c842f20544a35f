#include "app/TextReport.h"

#include <algorithm>

#include "app/SampleValue.h"
#include "app/SettingsJson.h"
#include "app/TextTable.h"
#include "host/TimeStamp.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace {

constexpr std::size_t NameWidth = 40;
constexpr std::size_t ValueWidth = 24;
constexpr std::size_t CourseWidth = 24;
constexpr std::size_t MostColumnsShown = 200;
constexpr std::size_t MostLinesNamed = 8;

std::string SeparatorInWords(const FormatSummary& format) {
    constexpr const char* Words[] = {"semicolon", "comma", "tab", "space"};
    std::string words;
    if (format.Separator >= 0 && format.Separator < 4) {
        words = Words[format.Separator];
    } else if (!format.OtherSeparator.empty()) {
        words = "'" + Utf16ToUtf8(format.OtherSeparator.substr(0, 1)) + "'";
    } else {
        return "no separator";
    }
    return "separated by " + words + (format.MergeSeparators ? ", neighbours merged" : "");
}

std::string FormatInWords(const FormatSummary& format) {
    const std::string header =
        format.HeaderLine == 0 ? "no header" : "header in line " + std::to_string(format.HeaderLine);
    return SeparatorInWords(format) + "; " + header + ", data from line " +
           std::to_string(format.FirstDataLine);
}

// In the order of the module's data types.
const char* DataTypeInWords(int type) {
    constexpr const char* Words[] = {"no type",           "boolean",     "integer",
                                     "integer with unit", "hexadecimal", "float",
                                     "float with unit",   "character",   "text"};
    return type >= 0 && type <= 8 ? Words[type] : Words[0];
}

// The analysis may leave a unit with a column that turned out to be of a type without.
bool HasUnit(const ColumnSummary& column) {
    constexpr int IntegerWithUnit = 3;
    constexpr int FloatWithUnit = 6;
    return !column.IsTimestamp && (column.Type == IntegerWithUnit || column.Type == FloatWithUnit);
}

const char* StoreTypeInWords(std::uint32_t type) {
    switch (type) {
        case KelvarinBool:
            return "boolean";
        case KelvarinDouble:
            return "float";
        case KelvarinInt64:
            return "integer";
        case KelvarinChar16:
            return "character";
        default:
            return "text";
    }
}

std::string UnitText(const std::u16string& unit) {
    const std::u16string_view trimmed = TrimWhiteSpace(unit);
    return trimmed.empty() ? std::string() : "[" + OneLine(Utf16ToUtf8(trimmed), NameWidth) + "]";
}

std::string ValueText(std::uint32_t type, const std::optional<std::string>& value) {
    if (!value) return "-";
    const auto size = static_cast<std::uint32_t>(value->size());
    return OneLine(SampleText(type, value->data(), size), ValueWidth);
}

std::string RangeText(const StoredSignal& signal) {
    const std::uint32_t type = signal.Description().Type;
    const NumberRange range = signal.Summary().Course.Range();
    if ((type != KelvarinDouble && type != KelvarinInt64) || range.IsEmpty()) return {};
    constexpr std::uint32_t Bytes = sizeof(double);
    return SampleText(KelvarinDouble, &range.Lowest, Bytes) + " .. " +
           SampleText(KelvarinDouble, &range.Highest, Bytes);
}

void WriteSignals(std::ostream& out, const StoredDevice& device) {
    using Align = TextTable::Align;
    TextTable table({Align::Left, Align::Left, Align::Left, Align::Right, Align::Left, Align::Right,
                     Align::Left, Align::Right, Align::Left, Align::Left});
    for (std::size_t i = 0; i < std::min(device.Signals.size(), MostColumnsShown); ++i) {
        const StoredSignal& signal = *device.Signals[i];
        const SignalDescription& about = signal.Description();
        const SignalSummary& summary = signal.Summary();
        const std::string gaps =
            summary.WithoutValue == 0 ? "" : std::to_string(summary.WithoutValue) + " without value";
        table.AddRow(
            {OneLine(Utf16ToUtf8(about.Symbol), NameWidth), StoreTypeInWords(about.Type),
             UnitText(about.Unit), std::to_string(summary.Count), "samples",
             ValueText(about.Type, summary.First), "->", ValueText(about.Type, summary.Last),
             summary.Course.Draw(CourseWidth) + (RangeText(signal).empty() ? "" : " " + RangeText(signal)),
             gaps});
    }
    table.Write(out, "    ");
    if (device.Signals.size() > MostColumnsShown) {
        out << "    ... and " << device.Signals.size() - MostColumnsShown << " more signals\n";
    }
}

// The time that the samples of all signals span; all signals of a run have the same rows.
void WriteTimeSpan(std::ostream& out, const StoredDevice& device, bool isRelative) {
    if (device.Signals.empty() || device.Signals.front()->Summary().Count == 0) return;
    const SignalSummary& summary = device.Signals.front()->Summary();
    const CTimeStamp from(summary.FirstTime);
    const CTimeStamp to(summary.LastTime);
    out << "  time      ";
    if (isRelative) {
        out << "relative measurement time";
    } else {
        out << Utf16ToUtf8(from.ToText()) << " to " << Utf16ToUtf8(to.ToText());
    }
    out << ", span " << Utf16ToUtf8(CTimeStampSpan(from, to).ToText()) << "\n";
}

// "line 3", or "lines 3, 4, 5, ... (1204 in all)".
std::string LinesText(const MessageGroup& group) {
    if (group.Lines.front() == 0) return {};
    if (group.Count == 1) return "line " + std::to_string(group.Lines.front());
    std::string text = "lines ";
    const std::size_t named = std::min(group.Lines.size(), MostLinesNamed);
    for (std::size_t i = 0; i < named; ++i) text += (i == 0 ? "" : ", ") + std::to_string(group.Lines[i]);
    if (group.Count > named) text += ", ... (" + std::to_string(group.Count) + " in all)";
    return text;
}

void WriteMessages(std::ostream& out, const MessageList& messages) {
    if (messages.IsEmpty()) return;
    out << "  messages\n";
    for (const MessageGroup& group : messages.Groups()) {
        out << "    " << OneLine(Utf16ToUtf8(group.FirstText), 400) << "\n";
        const std::string lines = LinesText(group);
        if (!lines.empty()) out << "      " << lines << "\n";
    }
}

}  // namespace

void WriteFormatText(std::ostream& out, const std::string& file, const CImportFilter& filter) {
    const CCsvImportSettings& settings = SettingsOf(filter);
    out << Utf16ToUtf8(PathFromNative(file)) << "\n";
    out << "  format    " << FormatInWords(SummarizeFormat(settings)) << "\n";
    out << "  columns\n";
    using Align = TextTable::Align;
    TextTable table({Align::Right, Align::Left, Align::Left, Align::Left});
    const std::vector<ColumnSummary> columns = SummarizeColumns(settings);
    for (std::size_t i = 0; i < std::min(columns.size(), MostColumnsShown); ++i) {
        const ColumnSummary& column = columns[i];
        table.AddRow({std::to_string(i + 1), OneLine(Utf16ToUtf8(column.Name), NameWidth),
                      column.IsTimestamp ? "timestamp" : DataTypeInWords(column.Type),
                      HasUnit(column) ? UnitText(column.Unit) : std::string()});
    }
    table.Write(out, "    ");
    if (columns.size() > MostColumnsShown) {
        out << "    ... and " << columns.size() - MostColumnsShown << " more columns\n";
    }
}

void WriteRunText(std::ostream& out, const RunResult& result, HostSession& session,
                  const std::string& advice) {
    if (const StoredDevice* const device = session.Device()) {
        out << "  signals   " << device->Signals.size() << " from " << result.Lines << " lines"
            << (result.Interrupted ? ", ended by Ctrl-C" : "") << "\n";
        WriteSignals(out, *device);
        constexpr int DateNone = 2;
        WriteTimeSpan(out, *device, SummarizeFormat(SettingsOf(session.Filter())).DateSetting == DateNone);
    }
    WriteMessages(out, session.Messages());
    if (!advice.empty()) out << "  advice    " << advice << "\n";
}
