#include "host/plan/RunGuide.h"

#include <algorithm>

#include "host/plan/Cells.h"
#include "host/plan/TimeRecipe.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
// A cell that holds a value, not a word.
bool IsValue(std::u16string_view cell) {
    const CellKind kind = KindOf(cell);
    return kind != CellKind::Empty && kind != CellKind::Word;
}
}  // namespace

RunGuide RunGuide::ForRange() const {
    RunGuide range(Plan, CopyLines, ReadsTimes);
    range.HadTotal = Lost.HasTotal;
    range.Lost.HasTotal = Lost.HasTotal;
    range.Lost.Refused.resize(Lost.Refused.size());
    for (std::size_t i = 0; i < Lost.Refused.size(); ++i)
        range.Lost.Refused[i].AmountUnit = Lost.Refused[i].AmountUnit;
    return range;
}

bool RunGuide::Confirms(const RunGuide& range) const {
    const bool askedForTotal = range.Lost.AreRowsOutOfOrder || range.Lost.HasTotal != range.HadTotal;
    if (range.HadTotal != Lost.HasTotal && askedForTotal) return false;
    // Amounts are counted in the unit of the first one.
    for (std::size_t i = 0; i < std::min(Lost.Refused.size(), range.Lost.Refused.size()); ++i) {
        const std::u16string& unit = Lost.Refused[i].AmountUnit;
        const std::u16string& unitOfRange = range.Lost.Refused[i].AmountUnit;
        if (!unit.empty() && !unitOfRange.empty() && unit != unitOfRange) return false;
    }
    return true;
}

void RunGuide::Add(const RunGuide& range) {
    Lost.AreRowsOutOfOrder |= range.Lost.AreRowsOutOfOrder;
    Lost.HasTotal |= range.Lost.HasTotal;
    Lost.AreTimesUnread |= range.Lost.AreTimesUnread;
    if (Lost.Refused.size() < range.Lost.Refused.size()) Lost.Refused.resize(range.Lost.Refused.size());
    for (std::size_t i = 0; i < range.Lost.Refused.size(); ++i) Lost.Refused[i].Add(range.Lost.Refused[i]);
}

std::optional<GuideTraits> RunGuide::Traits() const {
    if (Plan.EndsInTotal) return std::nullopt;
    GuideTraits traits{ReadsTimes, Plan.Times.has_value(), Plan.Mark, Plan.Width, {}};
    for (const PlannedColumn& column : Plan.Columns) traits.Types.push_back(column.Type);
    return traits;
}

bool RunGuide::IsMissing(int column, const char16_t* cell) {
    if (plan::IsMissing(cell)) return true;
    RefusedIn(column).Add(cell, Plan.Mark);
    return false;
}

void RunGuide::OnMarkedInteger(int column, const char16_t* cell) {
    RefusedIn(column).Add(TrimWhiteSpace(cell), Plan.Mark);
}

CellCounts& RunGuide::RefusedIn(int column) {
    const auto index = static_cast<std::size_t>(column);
    if (Lost.Refused.size() <= index) Lost.Refused.resize(index + 1);
    return Lost.Refused[index];
}

bool RunGuide::IsNoRow(const DroppedRow& row) {
    if (row.Reason == DropReason::Falls && Plan.EndsInTotal && !Lost.HasTotal) {
        Lost.HasTotal = true;
        return true;
    }
    if (row.Reason == DropReason::Falls) Lost.AreRowsOutOfOrder = true;
    if (row.Reason != DropReason::DoesNotFit) return false;
    const std::vector<std::u16string_view> cells(row.Cells.begin(), row.Cells.end());
    if (std::none_of(cells.begin(), cells.end(), IsValue)) return true;
    if (!Plan.Times || !ReadsTimes) return false;
    TimeWalk walk(Plan.Times->Recipe);
    Lost.AreTimesUnread |= walk.Next(cells, Plan.Width).has_value();
    return false;
}

bool RunGuide::AreLossesAvoidable() const {
    if (Lost.AreRowsOutOfOrder || Lost.AreTimesUnread) return true;
    for (std::size_t i = 0; i < std::min(Lost.Refused.size(), Plan.Columns.size()); ++i) {
        const CellCounts& refused = Lost.Refused[i];
        const ColumnType type = Plan.Columns[i].Type;
        const bool isWider = (type == ColumnType::Integer && refused.Decimal + refused.DecimalAmounts > 0) ||
                             (type == ColumnType::Boolean && refused.Whole + refused.Decimal > 0) ||
                             (type == ColumnType::Character && refused.Text > 0) ||
                             (type == ColumnType::Hexadecimal && refused.Text + refused.Whole > 0);
        if (isWider) return true;
    }
    return false;
}
}  // namespace kelvarin::plan
