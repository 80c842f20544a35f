#include "cli/report/TextReport.h"

#include <algorithm>

#include "contract/TimeStamp.h"
#include "host/Reading.h"
#include "host/Words.h"
#include "host/language/Phrase.h"
#include "host/plan/AutomaticReading.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {
namespace {
constexpr std::size_t ValueWidth = 24;
constexpr std::size_t PlotWidth = 24;
constexpr std::size_t MostColumnsShown = 200;
constexpr std::size_t MostLinesNamed = 8;

// The analysis may leave a unit with a column that turned out to be of a type without.
bool HasUnit(const ColumnSummary& column) {
    return !column.IsTimestamp && (column.Type == CsvTypeIntegerUnit || column.Type == CsvTypeFloatUnit);
}

std::string StoreTypeInWords(std::uint32_t type) {
    switch (type) {
        case KelvarinBool:
            return Phrase("boolean");
        case KelvarinDouble:
            return Phrase("float");
        case KelvarinInt64:
            return Phrase("integer");
        case KelvarinChar16:
            return Phrase("character");
        default:
            return Phrase("text");
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

std::string RangeText(const store::StoredSignal& signal) {
    const std::uint32_t type = signal.Description().Type;
    const store::NumberRange range = signal.Summary().Plot.Range();
    if ((type != KelvarinDouble && type != KelvarinInt64) || range.IsEmpty()) return {};
    return ShortestText(range.Lowest) + " .. " + ShortestText(range.Highest);
}

void WriteSignals(ReportStream out, const store::StoredDevice& device) {
    using Align = TextTable::Align;
    TextTable table({Align::Left, Align::Left, Align::Left, Align::Right, Align::Left, Align::Right,
                     Align::Left, Align::Right, Align::Left, Align::Left});
    for (std::size_t i = 0; i < std::min(device.Signals.size(), MostColumnsShown); ++i) {
        const store::StoredSignal& signal = *device.Signals[i];
        const store::SignalDescription& about = signal.Description();
        const store::SignalSummary& summary = signal.Summary();
        const std::string gaps =
            summary.WithoutValue == 0 ? "" : Phrase("{} without value", summary.WithoutValue);
        table.AddRow(
            {OneLine(Utf16ToUtf8(about.Symbol), NameWidth), StoreTypeInWords(about.Type),
             UnitText(about.Unit), std::to_string(summary.Count), Phrase("samples"),
             ValueText(about.Type, summary.First), "->", ValueText(about.Type, summary.Last),
             summary.Plot.Draw(PlotWidth) + (RangeText(signal).empty() ? "" : " " + RangeText(signal)),
             gaps});
    }
    table.Write(out, "    ");
    if (device.Signals.size() > MostColumnsShown) {
        out << "    " << Phrase("... and {} more signals", device.Signals.size() - MostColumnsShown) << "\n";
    }
}

// The time that the samples of all signals span; all signals of a run have the same rows.
void WriteTimeSpan(ReportStream out, const store::StoredDevice& device, bool isRelative) {
    if (device.Signals.empty() || device.Signals.front()->Summary().Count == 0) return;
    const store::SignalSummary& summary = device.Signals.front()->Summary();
    const CTimeStamp from(summary.FirstTime);
    const CTimeStamp to(summary.LastTime);
    const std::string span = Utf16ToUtf8(CTimeStampSpan(from, to).ToText());
    out << ReportLabel(Phrase("time"))
        << (isRelative
                ? Phrase("relative measurement time, span {}", span)
                : Phrase("{} to {}, span {}", Utf16ToUtf8(from.ToText()), Utf16ToUtf8(to.ToText()), span))
        << "\n";
}

// "line 3", or "lines 3, 4, 5, ... (1204 in all)".
std::string LinesText(const MessageGroup& group) {
    if (group.Lines.front() == 0) return {};
    if (group.Count == 1) return Phrase("line {}", group.Lines.front());
    std::string lines;
    const std::size_t named = std::min(group.Lines.size(), MostLinesNamed);
    for (std::size_t i = 0; i < named; ++i) lines += (i == 0 ? "" : ", ") + std::to_string(group.Lines[i]);
    return group.Count > named ? Phrase("lines {}, ... ({} in all)", lines, group.Count)
                               : Phrase("lines {}", lines);
}
}  // namespace

void WriteFormatText(ReportStream out, const std::string& file, const CImportFilter& filter,
                     const plan::AutomaticReading& reading) {
    out << Styled(Style::Heading, file) << "\n";
    if (SettingsOf(filter) == nullptr) return;
    // The format of a copy says nothing of the file, and its last column is the host's.
    const plan::ReadingPlan* const copied = reading.Copy() == nullptr ? nullptr : reading.Plan();
    if (copied == nullptr) out << ReportLabel(Phrase("format")) << FormatInWords(ReadingOf(filter)) << "\n";
    out << ReportHeading(Phrase("columns")) << "\n";
    using Align = TextTable::Align;
    TextTable table({Align::Right, Align::Left, Align::Left, Align::Left});
    std::vector<ColumnSummary> columns = SummarizeColumns(filter, MostColumnsShown);
    if (copied != nullptr && columns.size() > copied->Columns.size()) columns.pop_back();
    for (const ColumnSummary& column : columns) {
        const bool isTime =
            column.IsTimestamp ||
            (copied != nullptr && copied->Columns[static_cast<std::size_t>(column.Index)].IsTime);
        table.AddRow({std::to_string(column.Index + 1), OneLine(Utf16ToUtf8(column.Name), NameWidth),
                      isTime ? Phrase("timestamp") : DataTypeInWords(column.Type),
                      HasUnit(column) ? UnitText(column.Unit) : std::string()});
    }
    table.Write(out, "    ");
    const auto all = static_cast<std::size_t>(SettingsOf(filter)->ColumnCount);
    if (all > MostColumnsShown)
        out << "    " << Phrase("... and {} more columns", all - MostColumnsShown) << "\n";
}

void WriteSignalsText(ReportStream out, const RunResult& result, const store::StoredDevice& device,
                      bool isRelative) {
    const std::string_view signals =
        result.Interrupted ? "{} from {} lines, ended by Ctrl-C" : "{} from {} lines";
    out << ReportLabel(Phrase("signals")) << Phrase(signals, device.Signals.size(), result.Lines) << "\n";
    WriteSignals(out, device);
    WriteTimeSpan(out, device, isRelative);
}

void WriteMessagesText(ReportStream out, const MessageList& messages) {
    if (messages.IsEmpty()) return;
    out << ReportHeading(Phrase("messages")) << "\n";
    for (const MessageGroup& group : messages.Groups()) {
        out << "    " << Styled(Style::Warning, OneLine(Utf16ToUtf8(group.FirstText), 400)) << "\n";
        const std::string lines = LinesText(group);
        if (!lines.empty()) out << "      " << lines << "\n";
    }
}
void WriteRunText(ReportStream out, const RunResult& result, const HostSession& session,
                  const std::string& advice) {
    if (session.Device() != nullptr) {
        const bool isRelative = ReadingOf(session.Filter()).DateSetting == DateNone;
        WriteSignalsText(out, result, *session.Device(), isRelative);
    }
    WriteMessagesText(out, session.Messages());
    if (!advice.empty()) out << ReportLabel(Phrase("advice")) << advice << "\n";
}
}  // namespace kelvarin::cli
