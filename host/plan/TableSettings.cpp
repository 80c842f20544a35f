// The module cuts the first lines as these settings would have it, and its cells are compared with the
// plan's.
#include <algorithm>
#include <iterator>

#include "contract/TableReader.h"
#include "host/plan/PlanSettings.h"
#include "platform/framework/Text.h"
#include "settings/SettingsTable.h"

namespace kelvarin::plan {
namespace {
// Lines that are cut by the module to see whether it finds the same cells.
constexpr std::uint64_t LinesCompared = 60;

// The first line of the settings, and whether it holds the names.
struct TableStart {
    std::uint64_t Line;
    bool IsHeader;
};

TableStart StartOf(const ReadingPlan& plan) {
    const FixedTable& fixed = plan.Fixed;
    if (fixed.FirstLine != 0)
        return {fixed.FirstLine, fixed.HasNames.value_or(plan.NamesLine == fixed.FirstLine)};
    const bool isDirectlyBelow = plan.NamesLine != 0 && plan.NamesLine + 1 == plan.FirstLine;
    const bool hasNames = fixed.HasNames.value_or(isDirectlyBelow) && plan.FirstLine > 1;
    return {hasNames ? plan.FirstLine - 1 : plan.FirstLine, hasNames};
}

// The module takes as many columns as the line at which it starts has cells: one above the table has too few.
bool IsStartTooShort(const ReadingPlan& plan, std::uint64_t start) {
    if (start == plan.FirstLine || start == plan.NamesLine || start > plan.Sample.Head) return false;
    LineCutter cut(plan.How);
    return cut(plan.Sample.Lines[start - 1].Text).size() < plan.Width;
}

// A cell that the module would refuse or read as another number.
bool IsReadOtherwise(const PlannedColumn& column, const CutCell& cell, const ReadingPlan& plan) {
    const bool isNumber = column.Type == ColumnType::Integer || column.Type == ColumnType::Float;
    const bool isTruth = column.Type == ColumnType::Boolean;
    if (column.IsTime || (!isNumber && !isTruth) || cell.Text.empty() || IsMissing(cell.Text)) return false;
    const bool fits = (cell.Fits >> (ModuleTypeOf(column) - 1) & 1) != 0;
    if (isTruth) return !fits;
    const std::u16string_view text = TrimWhiteSpace(cell.Text);
    const std::optional<NumberLook> look = LookAtNumber(text);
    if (!look && !AmountIn(text)) return false;
    const bool isThousands =
        look && (look->Thousands != u'\0' || (look->Mark != u'\0' && look->Mark != plan.Mark));
    return isThousands || !fits;
}

// A number that stands for a missing value, which the module would take for one.
bool HoldsDeclaredMissing(const ReadingPlan& plan) {
    const auto isAny = [&plan](const auto& row) {
        return std::any_of(row.begin(), row.end(),
                           [&plan](const auto& cell) { return plan.IsDeclaredMissing(cell); });
    };
    return !plan.Missing.empty() && std::any_of(plan.Rows.Cells.begin(), plan.Rows.Cells.end(), isAny);
}

// Both cut a line alike; `expected` are the plan's cells.
bool AreAlike(const CutLine& line, const std::vector<std::u16string_view>& expected, const ReadingPlan& plan,
              std::size_t length) {
    if (line.CellCount != expected.size()) return false;
    for (std::size_t i = 0; i < std::min(line.Cells.size(), plan.Columns.size()); ++i) {
        const std::u16string_view text = TrimWhiteSpace(line.Cells[i].Text);
        if (text.size() < length && text != expected[i]) return false;
        if (IsReadOtherwise(plan.Columns[i], line.Cells[i], plan)) return false;
    }
    return true;
}

bool CutsAlike(ITableReader& reader, const ReadingPlan& plan) {
    LineCut cut;
    cut.Separator = plan.How.Separator;
    cut.MergeSeparators = plan.How.Merges;
    cut.MostLines = plan.FirstLine + LinesCompared;
    std::vector<CutLine> lines;
    std::string reason;
    if (!reader.CutLines(cut, lines, reason)) return false;
    LineCutter cutter(plan.How);
    for (const SampleLine& sampled : plan.Sample.Lines) {
        if (sampled.Number < plan.FirstLine || sampled.Number >= cut.MostLines) continue;
        if (TrimWhiteSpace(sampled.Text).empty()) continue;
        const auto line =
            std::lower_bound(lines.begin(), lines.end(), sampled.Number,
                             [](const CutLine& one, std::uint64_t number) { return one.Line < number; });
        if (line == lines.end() || line->Line != sampled.Number) return false;
        if (!AreAlike(*line, cutter(sampled.Text), plan, cut.CellLength)) return false;
    }
    return true;
}
}  // namespace

std::optional<SettingList> TableSettingsOf(const CImportFilter& filter, const ReadingPlan& plan) {
    const TableStart start = StartOf(plan);
    if (HoldsDeclaredMissing(plan)) return std::nullopt;
    if (plan.How.IsLineQuoted || start.Line == 0 || start.Line > HighestNumber) return std::nullopt;
    if (IsStartTooShort(plan, start.Line)) return std::nullopt;
    ITableReader* const reader = filter.Find<ITableReader>();
    if (reader == nullptr || !CutsAlike(*reader, plan)) return std::nullopt;
    const auto* const fixed =
        std::find(std::begin(FixedSeparators), std::end(FixedSeparators), plan.How.Separator);
    const bool isFixed = fixed != std::end(FixedSeparators);
    SettingList settings = {{"AutoFormat", "0"}};
    settings.emplace_back("Separator", std::to_string(isFixed ? fixed - std::begin(FixedSeparators)
                                                              : std::ptrdiff_t{SeparatorOther}));
    if (!isFixed) {
        const bool isNone = plan.How.Separator == u'\0';
        settings.emplace_back("OtherSeparator",
                              isNone ? "" : Utf16ToUtf8(std::u16string(1, plan.How.Separator)));
    }
    settings.emplace_back("MergeSeparators", plan.How.Merges ? "1" : "0");
    settings.emplace_back("FirstLine", std::to_string(start.Line));
    settings.emplace_back("ImportHeader", start.IsHeader ? "1" : "0");
    return settings;
}

int ModuleTypeOf(const PlannedColumn& column) {
    switch (column.Type) {
        case ColumnType::Boolean:
            return CsvTypeBoolean;
        case ColumnType::Integer:
            return column.HasAmounts ? CsvTypeIntegerUnit : CsvTypeInteger;
        case ColumnType::Hexadecimal:
            return CsvTypeHex;
        case ColumnType::Float:
            return column.HasAmounts ? CsvTypeFloatUnit : CsvTypeFloat;
        case ColumnType::Character:
            return CsvTypeChar;
        default:
            return CsvTypeString;
    }
}
}  // namespace kelvarin::plan
