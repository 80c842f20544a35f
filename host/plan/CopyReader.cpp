#include "host/plan/CopyReader.h"

#include <algorithm>
#include <optional>

#include "host/plan/FileSample.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
CopyReader::CopyReader(const std::u16string& source, const ReadingPlan& plan)
    : Plan(plan), Cutter(plan.How), Quick(plan.How, plan.Mark), Walk(plan.Times->Recipe) {
    OpenOrRaise(File, source);
    Length = static_cast<double>(std::max<std::uint64_t>(File.GetLength(), 1));
}

double CopyReader::Share() const {
    return static_cast<double>(File.GetPosition()) / Length;
}

bool CopyReader::Next(CopyLine& line) {
    do {
        if (!File.ReadString(Text)) return false;
        ++Number;
        if (Number == Plan.NamesLine || Number == Plan.UnitsLine)
            HeaderLines.emplace_back(TrimWhiteSpace(Text));
    } while (Number < Plan.FirstLine);
    Cut();
    line.Number = Number;
    line.Kind = KindOf(line.Time);
    line.Cells = Cells;
    line.Quick = IsQuick ? &Quick : nullptr;
    return true;
}

void CopyReader::Cut() {
    IsQuick = Quick(Text);
    Cells = IsQuick ? &Quick.Cells() : &Cutter(Text);
}

CopyLineKind CopyReader::KindOf(std::int64_t& time) {
    if (std::all_of(Cells->begin(), Cells->end(), [](auto cell) { return cell.empty(); }))
        return CopyLineKind::Blank;
    if (IsHeader()) return CopyLineKind::Header;
    if (!IsRow()) return CopyLineKind::Timeless;
    const std::optional<std::int64_t> found = Walk.Next(*Cells, Plan.Width);
    if (!found) return CopyLineKind::Timeless;
    time = *found;
    return CopyLineKind::Row;
}

bool CopyReader::IsHeader() const {
    if (HeaderLines.empty()) return false;
    const std::u16string_view trimmed = TrimWhiteSpace(Text);
    return std::find(HeaderLines.begin(), HeaderLines.end(), trimmed) != HeaderLines.end();
}

// Where rows are counted no time tells a row from another line.
bool CopyReader::IsRow() const {
    if (Plan.Times->Recipe.Kind != TimeKind::Interval) return true;
    if (Cells->size() < 2 && Plan.Width > 1) return false;
    return std::any_of(Cells->begin(), Cells->end(), [](std::u16string_view cell) {
        const CellKind kind = plan::KindOf(cell);
        return kind != CellKind::Empty && kind != CellKind::Word;
    });
}
}  // namespace kelvarin::plan
