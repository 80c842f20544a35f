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
    range.HadTotal = HasTotal;
    range.HasTotal = HasTotal;
    range.Refused.resize(Refused.size());
    for (std::size_t i = 0; i < Refused.size(); ++i) range.Refused[i].AmountUnit = Refused[i].AmountUnit;
    return range;
}

bool RunGuide::Confirms(const RunGuide& range) const {
    const bool askedForTotal = range.AreRowsOutOfOrder || range.HasTotal != range.HadTotal;
    if (range.HadTotal != HasTotal && askedForTotal) return false;
    // Amounts are counted in the unit of the first one.
    for (std::size_t i = 0; i < std::min(Refused.size(), range.Refused.size()); ++i) {
        const std::u16string& unit = Refused[i].AmountUnit;
        const std::u16string& unitOfRange = range.Refused[i].AmountUnit;
        if (!unit.empty() && !unitOfRange.empty() && unit != unitOfRange) return false;
    }
    return true;
}

void RunGuide::Add(const RunGuide& range) {
    AreRowsOutOfOrder |= range.AreRowsOutOfOrder;
    HasTotal |= range.HasTotal;
    AreTimesUnread |= range.AreTimesUnread;
    if (Refused.size() < range.Refused.size()) Refused.resize(range.Refused.size());
    for (std::size_t i = 0; i < range.Refused.size(); ++i) Refused[i].Add(range.Refused[i]);
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
    if (Refused.size() <= index) Refused.resize(index + 1);
    return Refused[index];
}

bool RunGuide::IsNoRow(const DroppedRow& row) {
    if (row.Reason == DropReason::Falls && Plan.EndsInTotal && !HasTotal) {
        HasTotal = true;
        return true;
    }
    if (row.Reason == DropReason::Falls) AreRowsOutOfOrder = true;
    if (row.Reason != DropReason::DoesNotFit) return false;
    const std::vector<std::u16string_view> cells(row.Cells.begin(), row.Cells.end());
    if (std::none_of(cells.begin(), cells.end(), IsValue)) return true;
    if (!Plan.Times || !ReadsTimes) return false;
    TimeWalk walk(Plan.Times->Recipe);
    AreTimesUnread |= walk.Next(cells, Plan.Width).has_value();
    return false;
}

bool RunGuide::AreLossesAvoidable() const {
    if (AreRowsOutOfOrder || AreTimesUnread) return true;
    for (std::size_t i = 0; i < std::min(Refused.size(), Plan.Columns.size()); ++i) {
        const CellCounts& refused = Refused[i];
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
