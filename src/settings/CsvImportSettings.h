// The one record that says how a source file is to be read.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <map>
#include <string>

#include "settings/CellList.h"
#include "settings/CsvColumnInfo.h"

class CStdioFileEx;
class IAnalysisObserver;
class IPreviewTableCallbacks;

// Where the date of a row comes from.
enum EDateSetting : int { DateFromColumn = 0, DateFixed = 1, DateNone = 2 };

// Where the time of a row comes from.
enum ETimeSetting : int { TimeFromColumn = 0, TimeInterval = 1 };

// How a correction acts on the rows' times.
enum EAdjustMode : int { AdjustStart = 0, AdjustForward = 1, AdjustBack = 2 };

// Separator indexes: the four that can be detected, and the user's own.
enum ESeparator : int {
    SeparatorSemicolon = 0,
    SeparatorComma = 1,
    SeparatorTab = 2,
    SeparatorSpace = 3,
    SeparatorOther = 4
};
constexpr int FixedSeparatorCount = 4;

inline constexpr char16_t FixedSeparators[FixedSeparatorCount] = {u';', u',', u'\t', u' '};

// The character of a fixed separator index; NUL from index 4 up.
constexpr char16_t SeparatorCharOf(std::uint32_t index) {
    return index < FixedSeparatorCount ? FixedSeparators[index] : u'\0';
}

// A plain record. Flags are ints holding 0 or 1, since check boxes are bound to them. Column numbers of the
// user count from 1, keys of ColumnMap from 0. A copy is a record of its own and not among the live ones.
class CCsvImportSettings {
  public:
    // Reads the user's profile and enters the record among the live ones. Nothing is reported: what the
    // profile lacks or holds out of range gets its default or the nearest bound.
    CCsvImportSettings();
    CCsvImportSettings(const CCsvImportSettings&) = default;
    CCsvImportSettings& operator=(const CCsvImportSettings&) = default;
    ~CCsvImportSettings();

    int AutoFormat = 0;             // the detected format is taken over at the end of every analysis
    int Separator = 0;              // an ESeparator
    int DetectedSeparator = 0;      // 0..3, or what the profile held
    std::u16string OtherSeparator;  // only the first unit separates
    int MergeSeparators = 0;        // consecutive separators count as one
    int FirstLine = 0;              // from 1: the header line if there is one, else the first data line
    int DetectedFirstLine = 0;
    int ImportHeader = 0;  // FirstLine holds the names
    int DetectedHeader = 0;
    int DateSetting = 0;                      // an EDateSetting
    int DateColumn = 0;                       // from 1
    std::int64_t StartDate = 0;               // seconds since 1970; only the local calendar date counts
    int TimeSetting = 0;                      // an ETimeSetting
    int TimeColumn = 0;                       // from 1
    double IntervalValue = 0;                 // step between rows in IntervalUnit
    int IntervalUnit = 0;                     // an index of IntervalUnits
    int Adjust = 0;                           // the correction is on
    std::int64_t AdjustTime = 0;              // seconds since 1970; only the local time of day counts
    int AdjustMode = 0;                       // an EAdjustMode
    std::u16string TimestampFormat;           // how the date and time cells are read
    std::u16string Description;               // free text about the document
    int SaveSidecarFile = 0;                  // OK in the dialog writes the sidecar file
    std::map<int, CCsvColumnInfo> ColumnMap;  // may hold entries at and beyond ColumnCount
    int ColumnCount = 0;                      // cells of the first analysed line; 0 before an analysis
    std::uint32_t ChangeCount = 0;            // goes up when another record hands its settings on to this one

    // --- Profile (SettingsProfile.cpp) ---

    // Writes all settings of the profile but SaveSidecarFile, unchecked.
    void SaveToProfile() const;

    // Writes SaveSidecarFile to the profile and hands it to every other live record.
    void SaveSidecarOption();

    // What OK of the dialog stores, in one step of the profile: SaveSidecarOption and, `asDefault`,
    // CopyToAllInstances and SaveToProfile. False if the profile could not be written.
    bool SaveAtOk(bool asDefault);

    // --- Live records (LiveSettings.cpp) ---

    // Hands the settings that SaveToProfile writes to every other live record.
    void CopyToAllInstances() const;

    // --- Format and columns (CsvImportSettings.cpp) ---

    // Takes the detected format over if AutoFormat is set.
    void ApplyAutoFormat();

    // The separator in force; NUL for none.
    char16_t GetSeparatorChar() const;

    // FirstLine, at least 1.
    int GetFirstLine() const { return std::max(FirstLine, 1); }

    // The line below the header, or FirstLine without one; at most the greatest int.
    int GetFirstDataLine() const {
        return GetFirstLine() + (ImportHeader != 0 && FirstLine < std::numeric_limits<int>::max() ? 1 : 0);
    }

    // The column's entry, made with default values if absent.
    CCsvColumnInfo& GetColumn(int column) { return ColumnMap[column]; }
    int GetColumnCount() const { return ColumnCount; }

    // PreviewWidth of the column, or `fallback` while none is set.
    int GetPreviewWidth(int column, int fallback);
    void SetPreviewWidth(int column, int width);

    // True for a 0-based column that feeds the timestamp and so is no signal.
    bool IsTimestampColumn(int column) const {
        return (DateSetting == DateFromColumn && column + 1 == DateColumn) ||
               (TimeSetting == TimeFromColumn && column + 1 == TimeColumn);
    }

    // Erases the entries that hold no choice of the user, and forgets the detected type of the others.
    void RemoveDefaultColumns();

    // The text of a row's time: one of its cells, or its date and time cells joined in `joined`, whose
    // storage is reused because rows are many. Empty if a column is missing or none is asked for. What isn't
    // a cell has JoinedPadding zeros behind it.
    static constexpr std::size_t JoinedPadding = 4;
    const char16_t* GetTimestampText(const CellList& cells, std::u16string& joined) const;

    // The 1-based columns of that text in the order of the row, and the text of their cells; the second is 0
    // if one column is enough. A cell is null if the row has none there.
    struct TimestampColumns {
        int First = 0, Second = 0;
    };
    TimestampColumns GetTimestampColumns() const;
    const char16_t* JoinTimestampText(const TimestampColumns& columns, const char16_t* first,
                                      const char16_t* second, std::u16string& joined) const;

    // --- Analysis (folder analysis) ---

    // Finds separator, first line and header in the first 100 lines of the open file. False, with nothing
    // changed, if there is no line. What the file raises passes through. `observer` may be null.
    bool DetectFormat(CStdioFileEx& file, IAnalysisObserver* observer = nullptr);

    // Reads up to 500 rows under the live format and fills ColumnCount and ColumnMap. Each pointer may be
    // null: who is told of columns and cells, what takes the timestamp text of the first data row, and who is
    // told how the types come about. False if the file ends above the table or there is no column. What the
    // file raises passes through.
    bool AnalyzeColumns(CStdioFileEx& file, IPreviewTableCallbacks* callbacks, std::u16string* timestampText,
                        IAnalysisObserver* observer = nullptr);

    // Narrows the type candidates of a column by one cell.
    void AnalyzeCell(int column, const char16_t* cell);

    // --- Timestamps (folder timestamp) ---

    // Nanoseconds to add to a row's time; `firstRowTime` is the time of the first row before correction.
    std::int64_t GetTimeCorrection(std::int64_t firstRowTime) const;
};
