// One line of the source file becomes one sample of each signal.
#include "contract/SupportFunctions.h"
#include "plugin/CsvImportFilter.h"
#include "resources/AppString.h"
#include "resources/ModuleResources.h"
#include "resources/ResourceIds.h"

namespace {

constexpr std::int32_t LinesPerProgress = 100;

}  // namespace

bool CCsvImportFilter::ImportNextLine(std::uint32_t* progress) {
    const AFX_MAINTAIN_STATE2 context(CsvImportModule());
    try {
        if (!ReadRow()) return false;
        if (SettledFor != Settings.ChangeCount) SettleRun();
        if (CurrentLine % LinesPerProgress == 0) UpdateProgress(progress);
        if (Row.IsBlank()) {
            if (RunObserver != nullptr) RunObserver->OnBlankLine(CurrentPlace());
            ++BlankLines;
            return true;
        }
        std::int64_t time = NoTimestamp;
        if (SettleRowTime(time)) AddRowSamples(time);
        ++CurrentLine;
        return true;
    } catch (CFileException* error) {
        HandleFileError(error, true);
        return false;
    }
}

bool CCsvImportFilter::ReadRow() {
    return Row.Read(SourceFile, Settings.GetSeparatorChar(), Settings.MergeSeparators != 0);
}

void CCsvImportFilter::UpdateProgress(std::uint32_t* progress) {
    // A file that was cut to nothing while it is read has no percentage.
    const std::uint64_t length = SourceFile.GetLength();
    if (length != 0) *progress = static_cast<std::uint32_t>(SourceFile.GetPosition() * 100 / length);
}

bool CCsvImportFilter::SettleRowTime(std::int64_t& time) {
    const char* const bytes = TimeColumns.Second == 0 ? Row.BytesOf(TimeColumns.First) : nullptr;
    const auto text = [&] {
        return Settings.JoinTimestampText(TimeColumns, Row.CellOf(TimeColumns.First),
                                          Row.CellOf(TimeColumns.Second), JoinedTimeText);
    };
    const std::int64_t row = CurrentLine - Settings.GetFirstDataLine();
    const RowTimestamp result = bytes != nullptr
                                    ? MakeRowTimestamp(Settings, row, bytes, *TimeContext, Times)
                                    : MakeRowTimestamp(Settings, row, text(), *TimeContext, Times);
    if (!TimesOfRange.FirstStored) NoteRangeTime(result);
    if (result.Before1990) AddFileMessage(IdBefore1990);
    if (!result.Accepted) {
        if (Guide != nullptr && Guide->IsNoRow(DropOf(result, text()))) return false;
        AddMessage(false, -1, false, FormatText(CsvImportModule().LoadString(IdNoTimestamp), MessageLine()));
    }
    if (RunObserver != nullptr) TellObserver(result, result.Accepted ? nullptr : text());
    time = result.Time;
    return result.Accepted;
}

std::int64_t CCsvImportFilter::MessageLine() const {
    if (Guide == nullptr) return CurrentLine;
    return static_cast<std::int64_t>(Guide->SourceLine(static_cast<std::uint64_t>(CurrentLine)));
}

RowPlace CCsvImportFilter::CurrentPlace() const {
    const std::uint64_t line = static_cast<std::uint64_t>(CurrentLine) + BlankLines;
    return {Guide == nullptr ? line : Guide->SourceLine(line), static_cast<std::uint64_t>(MessageLine())};
}

void CCsvImportFilter::TellObserver(const RowTimestamp& row, const char16_t* text) {
    if (row.Before1990) RunObserver->OnTimeBefore1990(CurrentPlace(), row.Time);
    if (row.Accepted) return RunObserver->OnRowStored(CurrentPlace(), row.Time);
    RunObserver->OnRowDropped(DropOf(row, text));
}

DroppedRow CCsvImportFilter::DropOf(const RowTimestamp& row, const char16_t* text) {
    std::optional<std::int64_t> time;
    if (row.HasTime) time = row.Time;
    const CellList& cells = Row.Wide();
    return {CurrentPlace(), row.Reason, text, time, std::span(cells.begin(), cells.size())};
}

void CCsvImportFilter::AddRowSamples(std::int64_t time) {
    WriteSamples(SampleColumns, Row, time, OnRefusedCell);
}

void CCsvImportFilter::SettleRun() {
    Times.Format.emplace(Settings.TimestampFormat.c_str(), Alphabet());
    Times.Correction.reset();
    TimeColumns = Settings.GetTimestampColumns();
    CollectSampleColumns();
    SettledFor = Settings.ChangeCount;
}

void CCsvImportFilter::CollectSampleColumns() {
    SampleColumns.clear();
    SampleColumns.reserve(Signals.size());
    for (int i = 0; i < Settings.GetColumnCount() && i < static_cast<int>(Signals.size()); ++i) {
        CCsvColumnInfo& info = Settings.GetColumn(i);
        const ECsvDataType type = info.GetEffectiveType();
        DM::SignalProxy* const signal = Signals[static_cast<std::size_t>(i)];
        if (!info.ImportColumn || Settings.IsTimestampColumn(i) || signal == nullptr) continue;
        if (type < CsvTypeBoolean || type > CsvTypeString) continue;
        SampleColumns.push_back({i, type, false, &info, signal, Guide});
    }
}

void CCsvImportFilter::ReportWrongCell(const SampleColumn& column, const char16_t* cell) {
    if (Guide != nullptr && Guide->IsMissing(column.Index, cell)) return;
    AddMessage(false, column.Index, false, LoadAppString(IdWrongCell), cell, column.Info->GetDisplayName(),
               MessageLine(), LoadSubString(IdDataTypeNames, static_cast<unsigned>(column.Type)));
    if (RunObserver != nullptr) RunObserver->OnCellRefused({CurrentPlace(), column.Index, column.Type, cell});
}
