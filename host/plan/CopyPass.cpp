#include "host/plan/CopyPass.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "contract/StdioFileEx.h"
#include "host/plan/FileSample.h"
#include "host/plan/Units.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
constexpr std::size_t BlockSize = 256 * 1024;
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

bool IsBlank(const std::vector<std::u16string_view>& cells) {
    return std::all_of(cells.begin(), cells.end(), [](auto cell) { return cell.empty(); });
}

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

CopyPass::CopyPass(const ReadingPlan& plan, const CopyOptions& options, const std::vector<ColumnType>& types,
                   bool sorts, CopyTarget& target)
    : Plan(plan),
      Options(options),
      Sorts(sorts),
      Target(target),
      Cutter(plan.How),
      Walk(plan.Times->Recipe),
      Times(CopyTimesOf(plan.Times->Recipe)),
      Sorter(options.MostSortedBytes) {
    Result.Times = CopyTimesOf(plan.Times->Recipe);
    Result.Sorted = sorts;
    for (std::size_t i = 0; i < plan.Columns.size(); ++i)
        Columns.emplace_back(plan.Columns[i], types[i], plan.Mark);
}

CopyPass::Outcome CopyPass::Run(const std::u16string& source, const std::function<void(double)>& onShare) {
    CStdioFileEx file;
    OpenOrRaise(file, source);
    const auto length = static_cast<double>(std::max<std::uint64_t>(file.GetLength(), 1));
    Target.Begin();
    WriteHeader();
    std::u16string line;
    while (file.ReadString(line)) {
        ++Line;
        if (Line == Plan.NamesLine || Line == Plan.UnitsLine) HeaderLines.emplace_back(TrimWhiteSpace(line));
        if (Line < Plan.FirstLine) continue;
        if (!TakeLine(line)) return Outcome::OutOfOrder;
        constexpr std::uint64_t LinesPerLook = 1024;
        if (Line % LinesPerLook != 0) continue;
        if (IsInterrupted()) return Outcome::Interrupted;
        onShare(static_cast<double>(file.GetPosition()) / length);
    }
    if (Held) LeaveOut(Result.Rows.Totals, Held->Line);
    if (Sorts) {
        Sorter.Finish([this](const SortedRow& row) {
            WriteRow(row);
            return !IsInterrupted();
        });
    }
    WriteBlock();
    return IsInterrupted() ? Outcome::Interrupted : Outcome::Done;
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

// False if the row is out of order.
bool CopyPass::TakeLine(std::u16string_view line) {
    const std::vector<std::u16string_view>& cells = Cutter(line);
    if (IsBlank(cells)) {
        LeaveOut(Result.Rows.Blank, Line);
        return true;
    }
    const std::u16string_view trimmed = TrimWhiteSpace(line);
    if (std::find(HeaderLines.begin(), HeaderLines.end(), trimmed) != HeaderLines.end()) {
        LeaveOut(Result.Rows.Headers, Line);
        IsInOtherTable = false;
        TimelessBefore = 0;
        return true;
    }
    const std::optional<std::int64_t> time = IsRow(cells) ? Walk.Next(cells, Plan.Width) : std::nullopt;
    if (!time) {
        ++TimelessBefore;
        LeaveOut(Result.Rows.Timeless, Line);
        return true;
    }
    if (IsOfOtherTable(cells.size()) || Plan.IsOfOther(Line)) {
        LeaveOut(Result.Rows.OtherTable, Line);
        return true;
    }
    if (!IsWanted(cells)) return true;
    if (Held) {
        Row.swap(Held->Text);
        if (!TakeRow(Held->Time, Held->Line)) return false;
        Held.reset();
    }
    MakeRow(cells);
    if (Plan.EndsInTotal && Result.Rows.Written > 0 && *time == First) {
        Held = {*time, Line, Row};
        return true;
    }
    return TakeRow(*time, Line);
}

// Row, which is of this line; false if it is out of order.
bool CopyPass::TakeRow(std::int64_t time, std::uint64_t line) {
    if (!Sorts && Result.Rows.Written > 0 && time < Before) return false;
    if (Result.Rows.Written++ == 0) First = time;
    Before = time;
    if (Sorts) {
        Sorter.Add(time, line, Row);
    } else {
        WriteRow({time, line, Row});
    }
    return true;
}

// Where rows are counted no time tells a row from another line.
bool CopyPass::IsRow(const std::vector<std::u16string_view>& cells) const {
    if (Plan.Times->Recipe.Kind != TimeKind::Interval) return true;
    if (cells.size() < 2 && Plan.Width > 1) return false;
    return std::any_of(cells.begin(), cells.end(), [](std::u16string_view cell) {
        const CellKind kind = KindOf(cell);
        return kind != CellKind::Empty && kind != CellKind::Word;
    });
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
    if (!Options.Only) return true;
    return Options.Only->Column < cells.size() && cells[Options.Only->Column] == Options.Only->Device;
}

void CopyPass::LeaveOut(LinesLeftOut& kind, std::uint64_t line) {
    constexpr std::size_t MostNumbers = 20;
    if (kind.Count++ < MostNumbers) kind.First.push_back(line);
}

void CopyPass::MakeRow(const std::vector<std::u16string_view>& cells) {
    const bool isInPlace = Options.Layout == CopyLayout::InPlace;
    Row.clear();
    for (std::size_t i = 0; i < Columns.size(); ++i) {
        const bool isTime = Plan.Columns[i].IsTime;
        if (isTime && !isInPlace) continue;
        if (!isInPlace) Row += '\t';
        if (!isTime && i < cells.size()) {
            const bool isMissing = Plan.IsDeclaredMissing(cells[i]);
            DeclaredMissing += isMissing;
            Columns[i].Append(isMissing ? std::u16string_view() : cells[i], Row);
        }
        if (isInPlace) Row += '\t';
    }
    for (std::size_t i = Columns.size(); i < cells.size(); ++i)
        Result.Changes.ExtraCells += !cells[i].empty();
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
    Result.Changes.Missing += DeclaredMissing;
    for (const CellCopier& column : Columns) {
        Result.Cells.push_back(column.Counts());
        Result.Types.push_back(column.Type());
        Result.Changes.Values += column.ChangedValues();
        Result.Changes.Missing += column.ChangedMarkers();
    }
    return std::move(Result);
}

bool CopyPass::HasWrongTypes() const {
    return std::any_of(Columns.begin(), Columns.end(),
                       [](const CellCopier& one) { return one.IsWrongType(); });
}
}  // namespace kelvarin::plan
