// The object through which the host works on one source file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "analysis/RowCells.h"
#include "contract/ImportFilter.h"
#include "contract/StdioFileEx.h"
#include "plugin/FilterInterfaces.h"
#include "plugin/SampleWriter.h"
#include "settings/CsvImportSettings.h"
#include "settings/CsvInfoFile.h"
#include "timestamp/RowTimestamp.h"

// Idle: the file is closed and there is no device. BeginImport makes it running, EndImport idle again. What
// lasts between an analysis and a run is the settings alone. File errors end in a message, never in an
// exception.
class CCsvImportFilter : public CImportFilter {
  public:
    // Reads the profile into the settings, and lays the sidecar over them if it reads without an error.
    // Doesn't open the source file.
    explicit CCsvImportFilter(const char16_t* path);
    ~CCsvImportFilter() override;

    // --- Questions and options (CsvImportFilter.cpp) ---
    std::u16string GetFileFilter() override;
    bool HasOptionDialog() override;
    void CopyOptionsFrom(CImportFilter& other) override;  // another CCsvImportFilter

    // --- Settings dialog (FilterDialog.cpp) ---
    std::int64_t ShowOptionDialog() override;

    // --- Analysis (FilterAnalysis.cpp) ---
    bool AnalyzeFile() override;

    // --- Run (BeginImport.cpp, ImportNextLine.cpp) ---
    bool BeginImport() override;
    bool ImportNextLine(std::uint32_t* progress) override;
    void EndImport() override;

    // What the optional interfaces tell and set.
    const CCsvImportSettings& GetSettings() const { return Settings; }
    const std::u16string& GetSidecarWarning() const { return SidecarWarning; }
    const std::u16string& GetFileFailure() const { return FileFailure; }
    const std::string& GetSidecarFailure() const { return SidecarFailure; }
    void ObserveAnalysis(IAnalysisObserver* observer) { AnalysisObserver = observer; }
    void ObserveRun(IRunObserver* observer) { RunObserver = observer; }
    void ChooseColumns(std::vector<ColumnChoice> choices) { ColumnChoices = std::move(choices); }
    void FollowGuide(IReadingGuide* guide) { Guide = guide; }
    void ReadFormatsBy(const std::u16string& letters) { ChosenAlphabet.emplace(letters); }

    // --- A run in ranges (RangeReading.cpp), as IRangeReading has it ---
    RunState GetState() const;
    std::uint64_t GetOffset() const { return SourceFile.GetPosition(); }
    void SetState(const RunState& state);
    bool FindLineStart(std::uint64_t from, std::optional<std::uint64_t>& start);
    bool Follow(CCsvImportFilter& leader);
    RangeLines LoadRange(std::uint64_t begin, std::optional<std::uint64_t> end);
    void BeginRange(const RunState& state);
    const RangeTimes& GetRangeTimes() const { return TimesOfRange; }

    // Of the formats that runs read times by.
    const FieldAlphabet& Alphabet() const;

  private:
    // Lays the sidecar over the settings, or makes the warning about it.
    void ReadSidecar();

    // Opens, analyses and closes the source file. With `requireColumns` a file without any column fails; with
    // `reportFailure` a failure gives a message.
    bool RunAnalysis(bool reportFailure, bool requireColumns);

    // Opens the source file for reading, exclusively; raises FileError.
    void OpenSourceFile();

    // Consumes a file error: message 1400 if asked for.
    void HandleFileError(CFileException* error, bool report);

    // Adds a message of string `id` that concerns the file as a whole.
    void AddFileMessage(unsigned id);

    // What the host knows of the columns (GuidedReading.cpp).
    void ApplyColumnChoices();
    const std::u16string& ChosenUnit(int column) const;  // empty for none

    // Steps of BeginImport.
    bool HasColumnToImport();
    bool SkipToFirstDataLine();
    bool MakeDevice();
    bool MakeSignals();
    bool MakeSignal(int column);

    // Steps of ImportNextLine.
    bool ReadRow();  // false at the end of the file
    void UpdateProgress(std::uint32_t* progress);
    bool SettleRowTime(std::int64_t& time);
    std::int64_t MessageLine() const;  // that messages name for the row being read
    RowPlace CurrentPlace() const;
    void TellObserver(const RowTimestamp& row, const char16_t* text);
    DroppedRow DropOf(const RowTimestamp& row, const char16_t* text);
    void AddRowSamples(std::int64_t time);
    void SettleRun();  // what a run keeps of the settings; again if they have changed meanwhile
    void CollectSampleColumns();
    void NoteRangeTime(const RowTimestamp& row);
    void TakeState(const RunState& state);
    void ReportWrongCell(const SampleColumn& column, const char16_t* cell);

    CCsvImportSettings Settings;
    CCsvInfoFile InfoFile;
    CStdioFileEx SourceFile;        // closed except during an analysis or a run
    std::u16string SidecarWarning;  // about a sidecar with errors; empty if there is none
    std::string SidecarFailure;     // why the last dialog's sidecar is not written; empty if it is
    std::int64_t CurrentLine = 0;   // 1-based number of the line being read; blank lines of a run don't count
    RowCells Row;                   // the line just read
    std::u16string JoinedTimeText;  // a row's date and time cells, kept for its storage
    CFileException FileError{false};  // filled by a failing Open
    std::u16string FileFailure;       // why the source file could not be used the last time
    CDevice* Device = nullptr;        // of the run; the host's
    RunTimes Times;
    std::vector<DM::SignalProxy*> Signals;    // per column index, null without signal; the store's
    std::vector<SampleColumn> SampleColumns;  // the columns that get samples, in order
    CCsvImportSettings::TimestampColumns TimeColumns{};
    std::optional<std::uint32_t> SettledFor;  // ChangeCount of the settings that the run has settled
    const RefusedCellHandler OnRefusedCell = [this](const SampleColumn& column, const char16_t* cell) {
        ReportWrongCell(column, cell);
    };
    std::uint64_t BlankLines = 0;  // of the run so far
    RangeTimes TimesOfRange;
    CFilterInterfaces OptionalInterfaces{*this};
    IAnalysisObserver* AnalysisObserver = nullptr;  // the host's; null for none
    IRunObserver* RunObserver = nullptr;            // the host's; null for none
    std::vector<ColumnChoice> ColumnChoices;        // the host's
    std::optional<FieldAlphabet> ChosenAlphabet;    // the host's; nothing for that of the language
    IReadingGuide* Guide = nullptr;                 // the host's; null for none
};
