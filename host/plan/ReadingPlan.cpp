#include "host/plan/ReadingPlan.h"

#include <algorithm>
#include <iterator>

#include "platform/framework/Text.h"

namespace kelvarin::plan {
void CellCounts::Add(std::u16string_view cell) {
    if (cell.empty()) {
        ++Empty;
        return;
    }
    if (IsMissing(cell)) {
        ++Missing;
        NotNumbers += EqualsIgnoreCase(cell, u"nan");
        return;
    }
    if (const std::optional<NumberLook> look = LookAtNumber(cell)) {
        Commas += look->Mark == u',';
        Points += look->Mark == u'.';
        if (look->Mark != u'\0' || look->HasExponent) {
            ++Decimal;
            Ambiguous += look->Mark == u'\0' && look->HasExponent && IsDigit(cell.front()) &&
                         cell.find_first_of(u"+-") == cell.npos;
        } else {
            ++Whole;
            Nulls += cell == u"0";
            Ones += cell == u"1";
            TooLong |= look->Digits > 18;
        }
        return;
    }
    switch (KindOf(cell)) {
        case CellKind::Hex:
            ++Hex;
            return;
        case CellKind::Truth:
            ++Truth;
            return;
        case CellKind::Amount:
            ++Amounts;
            break;
        default:
            break;
    }
    Single += cell.size() == 1;
    ++Text;
}

ColumnType CellCounts::Type(bool isCount) const {
    if (Text > Single) return ColumnType::Text;
    if (Text > 0) return Whole + Decimal + Hex + Truth == 0 ? ColumnType::Character : ColumnType::Text;
    if (Truth > 0)
        return Whole == Nulls + Ones && Decimal + Hex == 0 ? ColumnType::Boolean : ColumnType::Text;
    if (Hex > 0) return Decimal == Ambiguous ? ColumnType::Hexadecimal : ColumnType::Text;
    if (Decimal > 0 || NotNumbers > 0) return ColumnType::Float;
    if (Whole == 0) return Missing > 0 ? ColumnType::Float : ColumnType::Text;
    // Both values, and nothing else: a constant 0 may be any number.
    if (Nulls > 0 && Ones > 0 && Nulls + Ones == Whole && !isCount) return ColumnType::Boolean;
    return TooLong ? ColumnType::Text : ColumnType::Integer;
}

bool IsCountName(std::u16string_view name) {
    std::u16string low(name);
    for (char16_t& c : low) c = c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
    constexpr std::u16string_view Parts[] = {u"count",  u"cycle",  u"step",    u"number", u"index",
                                             u"anzahl", u"zyklus", u"schritt", u"nummer", u"channel"};
    return std::any_of(std::begin(Parts), std::end(Parts),
                       [&](auto part) { return low.find(part) != low.npos; });
}

std::optional<ReadingPlan> FindPlan(const std::u16string& path) {
    const FileSample sample = SampleFile(path);
    const std::optional<FoundTable> table = FindTable(sample);
    if (!table) return std::nullopt;
    const Labels labels = FindLabels(sample, *table);
    const TableRows rows = RowsOf(sample, *table);
    ReadingPlan plan{
        table->How, table->Width, sample.Lines[table->First].Number, labels.NamesLine, labels.UnitsLine, {},
        {}};
    plan.Times = FindTimes(rows, labels, ReadPreamble(sample, *table));
    std::size_t width = table->Width;
    for (const auto& row : rows.Cells) width = std::max(width, row.size());
    plan.Columns.resize(width);
    for (std::size_t i = 0; i < width; ++i) {
        PlannedColumn& column = plan.Columns[i];
        if (i < labels.Columns.size()) {
            column.Name = labels.Columns[i].Name;
            column.Unit = labels.Columns[i].Unit;
        }
        CellCounts counts;
        for (std::size_t k = 0; k < rows.Cells.size(); ++k) {
            const auto& row = rows.Cells[k];
            if (i < row.size()) counts.Add(row[i]);
        }
        column.Type = counts.Type(!column.Unit.empty() || IsCountName(column.Name));
        if (!plan.Times) continue;
        const TimeRecipe& recipe = plan.Times->Recipe;
        column.IsTime = std::find(recipe.Columns.begin(), recipe.Columns.end(), i) != recipe.Columns.end() ||
                        std::any_of(recipe.Parts.begin(), recipe.Parts.end(),
                                    [i](const PartColumn& part) { return part.Column == i; });
    }
    return plan;
}
}  // namespace kelvarin::plan
