#include "host/plan/CopyPass.h"

#include <utility>

#include "host/plan/Units.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
constexpr std::size_t BlockSize = 256 * 1024;
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

// The name of a column on one line that no reader cuts or unquotes.
std::u16string SafeName(std::u16string_view name) {
    std::u16string safe(name);
    for (char16_t& c : safe) {
        if (c < u' ') c = u' ';
        if (c == u'"') c = u'\'';
    }
    return std::u16string(TrimWhiteSpace(safe));
}

std::string NameForPeople(const PlannedColumn& column, std::size_t index) {
    std::u16string name = SafeName(column.Name);
    if (name.empty()) name = u"Column " + Utf8ToUtf16(std::to_string(index + 1));
    if (!column.Unit.empty() && UnitInName(name) != column.Unit) name += u" [" + SafeName(column.Unit) + u"]";
    return Utf16ToUtf8(name);
}

std::string_view NameOfTime(CopyLayout layout, CopyTimes times) {
    if (layout == CopyLayout::InPlace || times == CopyTimes::Local) return "Time";
    return times == CopyTimes::Moments ? "Time [s since 1970]" : "Time [s]";
}
}  // namespace

CopyPass::CopyPass(const ReadingPlan& plan, const CopyOptions& options, const DeviceRows* only,
                   const std::vector<ColumnType>& types, bool sorts, CopyTarget& target)
    : Plan(plan),
      Options(options),
      Only(only),
      Sorts(sorts),
      Target(target),
      Rows(plan, options.Layout, types),
      Times(CopyTimesOf(plan.Times->Recipe)),
      Sorter(options.MostSortedBytes) {
    Result.Times = CopyTimesOf(plan.Times->Recipe);
    Result.Sorted = sorts;
}

void CopyPass::Begin() {
    Target.Begin();
    WriteHeader();
}

void CopyPass::End() {
    if (Held) LeaveOut(Result.Rows.Totals, Held->Line);
    if (Sorts) {
        Sorter.Finish([this](const SortedRow& row) {
            WriteRow(row);
            return !Options.IsCanceled();
        });
    }
    WriteBlock();
}

void CopyPass::WriteHeader() {
    Block = ByteOrderMark;
    const std::string_view time = NameOfTime(Options.Layout, Result.Times);
    if (Options.Layout == CopyLayout::ForPeople) Block += time;
    for (std::size_t i = 0; i < Plan.Columns.size(); ++i) {
        const PlannedColumn& column = Plan.Columns[i];
        if (Options.Layout == CopyLayout::InPlace) {
            Block += Utf16ToUtf8(SafeName(column.Name)) + '\t';
        } else if (!column.IsTime) {
            Block += '\t' + NameForPeople(column, i);
        }
    }
    if (Options.Layout == CopyLayout::InPlace) Block += time;
    Block += '\n';
    Result.Lines.Add(Plan.NamesLine);
}

bool CopyPass::Take(const CopyLine& line) {
    switch (line.Kind) {
        case CopyLineKind::Blank:
            LeaveOut(Result.Rows.Blank, line.Number);
            return true;
        case CopyLineKind::Header:
            LeaveOut(Result.Rows.Headers, line.Number);
            IsInOtherTable = false;
            TimelessBefore = 0;
            return true;
        case CopyLineKind::Timeless:
            ++TimelessBefore;
            LeaveOut(Result.Rows.Timeless, line.Number);
            return true;
        default:
            return TakeRow(line);
    }
}

bool CopyPass::TakeRow(const CopyLine& line) {
    if (IsOfOtherTable(line.Cells->size()) || Plan.IsOfOther(line.Number)) {
        LeaveOut(Result.Rows.OtherTable, line.Number);
        return true;
    }
    if (!IsWanted(*line.Cells)) return true;
    if (Held) {
        if (!PutRow({Held->Time, Held->Line, Held->Text})) return false;
        Held.reset();
    }
    const std::string_view text = Rows.TextOf(line);
    if (Plan.EndsInTotal && Result.Rows.Written > 0 && line.Time == First) {
        Held = {line.Time, line.Number, std::string(text)};
        return true;
    }
    return PutRow({line.Time, line.Number, text});
}

// False if the row is out of order.
bool CopyPass::PutRow(const SortedRow& row) {
    if (!Sorts && Result.Rows.Written > 0 && row.Time < Before) return false;
    if (Result.Rows.Written++ == 0) First = row.Time;
    Before = row.Time;
    if (Sorts) {
        Sorter.Add(row.Time, row.Line, row.Text);
    } else {
        WriteRow(row);
    }
    return true;
}

// Another table begins with a row of another width after its own lines of names; it ends where the header of
// this one comes again.
bool CopyPass::IsOfOtherTable(std::size_t cells) {
    constexpr int MostOthers = 5;
    if (TimelessBefore > MostOthers && cells != Plan.Width && Result.Rows.Written > 0) IsInOtherTable = true;
    TimelessBefore = 0;
    return IsInOtherTable;
}

bool CopyPass::IsWanted(const std::vector<std::u16string_view>& cells) const {
    if (Only == nullptr) return true;
    return Only->Column < cells.size() && cells[Only->Column] == Only->Device;
}

void CopyPass::LeaveOut(LinesLeftOut& kind, std::uint64_t line) {
    constexpr std::size_t MostNumbers = 20;
    if (kind.Count++ < MostNumbers) kind.First.push_back(line);
}

void CopyPass::WriteRow(const SortedRow& row) {
    const bool isFirst = Result.Lines.Count() == 1;
    if (isFirst && Result.Times == CopyTimes::Elapsed && row.Time < 0)
        Result.Shift = WrappingSubtract(0, row.Time);
    const std::int64_t time = WrappingAdd(row.Time, Result.Shift);
    if (Options.Layout == CopyLayout::InPlace) Block += row.Text;
    Times.Append(time, Block);
    if (Options.Layout == CopyLayout::ForPeople) Block += row.Text;
    Block += '\n';
    Result.Lines.Add(row.Line);
    if (Block.size() >= BlockSize) WriteBlock();
}

void CopyPass::WriteBlock() {
    Target.Write(Block);
    Block.clear();
}

CopyResult CopyPass::TakeResult() {
    Rows.Report(Result);
    return std::move(Result);
}
}  // namespace kelvarin::plan
