// Optional interface of a filter: what its analysis decides, told step by step to a host that explains it to
// its user.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "contract/DataTypeSet.h"

// How regular one separator is up to a line.
struct SeparatorRun {
    int Start = 0;               // the line from which on each line that isn't blank has had LastCount of it
    std::int32_t LastCount = 0;  // in the line itself, outside quotes
};

// A line in the search for the first line of data.
struct TestedLine {
    int Line;             // of the file, from 1
    std::size_t Cells;    // at least 1
    std::size_t Numbers;  // of the cells
    std::size_t Needed;   // so many numbers make a line of data

    bool IsData() const { return Numbers >= Needed; }
};

// A cell in the column analysis.
struct JudgedCell {
    int Line;                  // of the file, from 1
    int Column;                // from 0
    std::u16string_view Text;  // valid during the call
    DataTypeSet Fits;          // what the cell would leave of all types, beside the unit that the column has
    DataTypeSet Before;        // what the cells above have left
    DataTypeSet After;         // what is left now; the lowest is the column's type
};

// Why the column analysis went no further.
enum class TableEnd { EndOfFile, EmptyLine, EnoughRows };

// Called on the thread of the analysis, in this order. Lines are those of the file, from 1.
class IAnalysisObserver {
  public:
    virtual ~IAnalysisObserver() = default;

    // A line that isn't blank was counted, without the white space at its ends. A run per separator, in the
    // order semicolon, comma, tab, space. The text is valid during the call.
    virtual void OnLineCounted(int line, std::u16string_view text, std::span<const SeparatorRun> runs) = 0;
    virtual void OnSeparatorChosen(int separator, int firstLine) = 0;
    virtual void OnLineTested(const TestedLine& line) = 0;
    virtual void OnFormatDetected(int firstLine, bool header) = 0;

    // The table's columns are settled from `firstLine` on; with `header` that line holds the names.
    virtual void OnTableBegun(int firstLine, bool header) = 0;
    virtual void OnRow(int line, std::size_t cells) = 0;
    virtual void OnCell(const JudgedCell& cell) = 0;

    // `line` is the one that ended the table: empty, not there, or no longer read.
    virtual void OnTableEnded(TableEnd why, int line) = 0;
};

class IObservedAnalysis {
  public:
    static constexpr const char* Id = "kelvarin.ObservedAnalysis/1";

    virtual ~IObservedAnalysis() = default;

    // Who is told by the filter's analyses from now on; null for nobody, as at first. The observer must
    // outlive the last analysis.
    virtual void ObserveAnalysis(IAnalysisObserver* observer) = 0;
};
