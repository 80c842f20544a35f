#include "host/check/CheckRun.h"

#include <limits>

#include "host/check/TimeProbe.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/Terminal.h"

namespace kelvarin::check {

namespace {

// Number of the module's message about a cell, and what it holds: cell, signal, line, type.
constexpr unsigned WrongCellId = 1403;
constexpr std::size_t CellOfWrongCell = 0, TypeOfWrongCell = 3, PartsOfWrongCell = 4;

constexpr std::size_t NoColumn = std::numeric_limits<std::size_t>::max();

}  // namespace

CheckRun::CheckRun(const ModuleLoader& module, const std::u16string& path, WantedLines wanted)
    : Module(module),
      Path(path),
      Wanted(wanted),
      Host(module, path),
      RefusedCell(module.ResourceItems(WrongCellId).front()) {}

CheckResult CheckRun::Run(const std::function<void(std::uint32_t)>& onProgress) {
    Begin();
    if (Result.Begun) ReadLines(onProgress);
    Host.Filter().EndImport();
    FinishColumns();
    LookAgain();
    return std::move(Result);
}

void CheckRun::Begin() {
    Result.Begun = Host.Filter().BeginImport();
    Result.Failed = !Result.Begun;
    for (const ImportMessage& message : Host.Filter().TakeMessages()) {
        if (message.Failure || message.Column == -2) Result.Failure = message.Text;
    }
    Result.Reading = ReadingOf(Module, Host.Filter());
    if (!Result.Begun) return;
    Result.Series = std::make_unique<TimeSeries>(Result.Reading);
    for (const auto& signal : Host.Store().Signals) {
        const auto column = static_cast<std::size_t>(signal->Column);
        if (ColumnAt.size() < column) ColumnAt.resize(column, NoColumn);
        if (column != 0) ColumnAt[column - 1] = Result.Columns.size();
        ColumnCheck check;
        check.Column = signal->Column;
        check.Name = signal->Symbol;
        Result.Columns.push_back(std::move(check));
    }
}

void CheckRun::ReadLines(const std::function<void(std::uint32_t)>& onProgress) {
    CImportFilter& filter = Host.Filter();
    const auto firstLine = static_cast<std::uint64_t>(Result.Reading.FirstDataLine);
    std::uint32_t progress = 0;
    std::uint32_t shown = 0;
    while (!WasInterrupted()) {
        Host.Store().RowTime.reset();
        if (!filter.ImportNextLine(&progress)) {
            // Only a read error ends the run with a message.
            Result.Failed = filter.HasMessages();
            if (Result.Failed) Result.Failure = filter.TakeMessages().back().Text;
            return;
        }
        TakeRow(firstLine + Result.Lines++);
        if (progress != shown) onProgress(shown = progress);
    }
    Result.Interrupted = true;
}

void CheckRun::TakeRow(std::uint64_t line) {
    bool dropped = false;
    CImportFilter& filter = Host.Filter();
    if (filter.HasMessages()) {
        for (const ImportMessage& message : filter.TakeMessages()) dropped |= TakeMessage(message, line);
    }
    if (const std::optional<std::int64_t>& time = Host.Store().RowTime) {
        if (Result.Series->Count() == 0 && Result.Reading.IsAdjusted)
            Result.Dropped.SetReference(line, *time);
        Result.Series->Add(*time, line);
    } else if (!dropped && !Host.Store().Signals.empty()) {
        ++Result.BlankLines;
        BlankAtEnd.Add({line, 0, {}});
        return;
    }
    if (BlankAtEnd.Count() != 0) {
        Result.Blank.Append(BlankAtEnd);
        BlankAtEnd = {};
    }
}

bool CheckRun::TakeMessage(const ImportMessage& message, std::uint64_t line) {
    const std::uint64_t moduleLine = line - Result.BlankLines;
    if (message.Column >= 0) {
        TakeRefusedCell(message, line);
        return false;
    }
    if (message.Failure) {
        Result.Before1990.Add({line, moduleLine, {}});
        return false;
    }
    std::optional<std::int64_t> last;
    if (Result.Series->Count() != 0) last = Result.Series->Last();
    Result.Dropped.Add(line, moduleLine, last);
    Result.Series->AddDropped();
    if (Wanted.Dropped != nullptr) Wanted.Dropped->Add(line);
    return true;
}

void CheckRun::TakeRefusedCell(const ImportMessage& message, std::uint64_t line) {
    const auto column = static_cast<std::size_t>(message.Column);
    if (column >= ColumnAt.size() || ColumnAt[column] == NoColumn) return;
    ColumnCheck& check = Result.Columns[ColumnAt[column]];
    std::vector<std::u16string> parts = RefusedCell.Read(message.Text);
    if (parts.size() != PartsOfWrongCell) parts.assign(PartsOfWrongCell, {});
    check.Refused.Add({line, line - Result.BlankLines, std::move(parts[CellOfWrongCell])});
    check.TypeName = std::move(parts[TypeOfWrongCell]);
    if (Wanted.Refused != nullptr) Wanted.Refused->Add(line);
}

void CheckRun::FinishColumns() {
    for (std::size_t i = 0; i < Result.Columns.size(); ++i) {
        const NullSignal& signal = *Host.Store().Signals[i];
        ColumnCheck& check = Result.Columns[i];
        check.Samples = signal.Samples;
        check.Empty = signal.WithoutValue - check.Refused.Count();
    }
}

void CheckRun::LookAgain() {
    TimeProbe probe(Module, Result.Reading);
    try {
        if (Result.Begun) {
            const RowRange stored{Result.Series->FirstLine(), Result.Series->LastLine()};
            Result.Dropped.Examine(Path, Result.Reading, probe, stored);
        }
        LookAbove();
    } catch (CFileException* error) {
        error->Delete();
    }
}

void CheckRun::LookAbove() {
    const bool isEmpty = Result.Series == nullptr || Result.Series->Count() == 0;
    if (Result.Reading.IsInterval ? !Result.Begun : Result.Reading.Format.empty()) return;
    RowSearch search;
    search.End = Result.Begun ? static_cast<std::uint64_t>(Result.Reading.FirstDataLine)
                              : std::numeric_limits<std::uint64_t>::max();
    search.AnySeparator = isEmpty;
    const bool isPlain = Result.Reading.DateFrom != TimeSource::Date::Fixed && !Result.Reading.IsAdjusted;
    if (!isEmpty && isPlain) search.BeforeTime = Result.Series->First();
    Result.Above = FindRowsAbove(Path, Result.Reading, Module, search);
}

}  // namespace kelvarin::check
