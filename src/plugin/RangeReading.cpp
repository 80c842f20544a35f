// A run in ranges of the file: what one filter tells another, so that both together give what one would.
#include "platform/framework/Module.h"
#include "plugin/CsvImportFilter.h"
#include "resources/ModuleResources.h"

RunState CFilterInterfaces::GetState() const {
    return Owner.GetState();
}

std::uint64_t CFilterInterfaces::GetOffset() const {
    return Owner.GetOffset();
}

void CFilterInterfaces::SetState(const RunState& state) {
    Owner.SetState(state);
}

bool CFilterInterfaces::FindLineStart(std::uint64_t from, std::optional<std::uint64_t>& start) {
    return Owner.FindLineStart(from, start);
}

bool CFilterInterfaces::Follow(IRangeReading& leader) {
    return Owner.Follow(static_cast<CFilterInterfaces&>(leader).Owner);
}

RangeLines CFilterInterfaces::LoadRange(std::uint64_t begin, std::optional<std::uint64_t> end) {
    return Owner.LoadRange(begin, end);
}

void CFilterInterfaces::BeginRange(const RunState& state) {
    Owner.BeginRange(state);
}

RangeTimes CFilterInterfaces::GetRangeTimes() const {
    return Owner.GetRangeTimes();
}

RunState CCsvImportFilter::GetState() const {
    RunState state{SourceFile.GetPosition(), CurrentLine, BlankLines, Times.LastTime,
                   Times.FirstRowTime,       {},          FileFailure};
    for (const SampleColumn& column : SampleColumns)
        state.Units.push_back({column.Info->Unit, column.Signal->GetUnit(), column.UnitSettled});
    return state;
}

void CCsvImportFilter::SetState(const RunState& state) {
    TakeState(state);
    FileFailure = state.FileFailure;
    SourceFile.ContinueAt(state.Offset);
}

void CCsvImportFilter::TakeState(const RunState& state) {
    CurrentLine = state.Line;
    BlankLines = state.BlankLines;
    Times.LastTime = state.LastTime;
    Times.FirstRowTime = state.FirstRowTime;
    for (std::size_t i = 0; i < SampleColumns.size() && i < state.Units.size(); ++i) {
        SampleColumn& column = SampleColumns[i];
        const ColumnUnit& unit = state.Units[i];
        column.Info->Unit = unit.OfCells;
        column.UnitSettled = unit.IsSettled;
        if (column.Signal->GetUnit() != unit.OfSignal) column.Signal->SetUnit(unit.OfSignal.c_str());
    }
}

bool CCsvImportFilter::FindLineStart(std::uint64_t from, std::optional<std::uint64_t>& start) {
    try {
        start = SourceFile.FindLineStart(from);
        return true;
    } catch (CFileException* error) {
        error->Delete();
        return false;
    }
}

bool CCsvImportFilter::Follow(CCsvImportFilter& leader) {
    const AFX_MAINTAIN_STATE2 context(CsvImportModule());
    CopyOptionsFrom(leader);
    ColumnChoices = leader.ColumnChoices;
    if (leader.ChosenAlphabet) ChosenAlphabet.emplace(*leader.ChosenAlphabet);
    SourceFile.ShareFile(leader.SourceFile);
    if (!MakeDevice() || !MakeSignals()) return false;
    Times = {};
    SettleRun();
    return true;
}

RangeLines CCsvImportFilter::LoadRange(std::uint64_t begin, std::optional<std::uint64_t> end) {
    SourceFile.HoldRange(begin, end);
    RangeLines lines;
    lines.AreWhole = SourceFile.HoldsWholeLines();
    try {
        while (Row.Pass(SourceFile, Settings.GetSeparatorChar(), Settings.MergeSeparators != 0))
            ++(Row.IsBlank() ? lines.Blank : lines.Rows);
    } catch (CFileException* error) {
        error->Delete();
    }
    return lines;
}

void CCsvImportFilter::BeginRange(const RunState& state) {
    SourceFile.RewindRange();
    TakeState(state);
    FileFailure.clear();
    Times.Correction.reset();
    TimesOfRange = {};
}

void CCsvImportFilter::NoteRangeTime(const RowTimestamp& row) {
    if (row.Accepted) {
        TimesOfRange.FirstStored = row.Time;
    } else {
        TimesOfRange.DropsFirst |= row.HasTime;
    }
}
