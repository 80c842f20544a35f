// What an analysis reported of its decisions, kept to be explained.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "contract/AnalysisObserver.h"
#include "contract/ImportFilter.h"
#include "settings/DataType.h"

namespace kelvarin::explain {
// Semicolon, comma, tab and space, the indices 0 to 3 of the setting.
constexpr int SeparatorsCounted = 4;

// `type` is an ECsvDataType but CsvTypeUndefined.
constexpr bool Contains(DataTypeSet set, int type) {
    return (set >> (type - 1) & 1) != 0;
}

struct SeenLine {
    int Line;
    std::u16string Text;  // its beginning
    std::array<SeparatorRun, SeparatorsCounted> Runs;

    const SeparatorRun& Run(int separator) const { return Runs[static_cast<std::size_t>(separator)]; }
};

// A JudgedCell with the beginning of its text.
struct SeenCell {
    std::u16string Text;
    DataTypeSet Fits, Before, After;
};

struct SeenRow {
    int Line;
    std::size_t CellCount;
    std::vector<SeenCell> Cells;  // of a row of data; not those of columns beyond MostColumns
};

// Some cells of a column.
struct CellGroup {
    std::size_t Count = 0;
    int FirstLine = 0;
    std::u16string FirstText;
};

// Keeps what a filter's last analysis reported; of wide tables the first columns only, so that a file of very
// long lines costs no memory.
class AnalysisRecord : private IAnalysisObserver {
  public:
    static constexpr std::size_t MostColumns = 200;
    static constexpr std::size_t LongestLine = 8000;
    static constexpr std::size_t LongestText = 400;  // of a cell

    AnalysisRecord() = default;
    AnalysisRecord(const AnalysisRecord&) = delete;
    AnalysisRecord& operator=(const AnalysisRecord&) = delete;

    // Observes the analyses of a filter, which must not outlive the record. False if the filter has no
    // IObservedAnalysis.
    bool ListenTo(CImportFilter& filter);

    std::vector<SeenLine> Counted;  // the lines that aren't blank
    int Separator = 0;              // the winner of the count
    int RunStart = 0;               // of the winner
    std::vector<TestedLine> Tested;
    int DetectedFirstLine = 0;
    bool DetectedHeader = false;
    int FirstLine = 0;          // of the table as it was read
    bool Header = false;        // FirstLine holds the names
    std::vector<SeenRow> Rows;  // with the header's
    TableEnd End = TableEnd::EndOfFile;
    int EndLine = 0;

    // The text of a counted line, or an empty one.
    std::u16string TextOf(int line) const;

    // The rows of data.
    std::size_t DataRows() const { return Rows.size() - (Header && !Rows.empty() ? 1 : 0); }

    // The type that the rows left to a column, from 0; CsvTypeUndefined without a cell.
    int TypeOf(std::size_t column) const;

    // The cells of a column that pass a test of a SeenCell.
    template <class Test>
    CellGroup CellsWhere(std::size_t column, Test&& passes) const {
        CellGroup group;
        for (const SeenRow& row : Rows) {
            if (column >= row.Cells.size() || !passes(row.Cells[column]) || group.Count++ != 0) continue;
            group.FirstLine = row.Line;
            group.FirstText = row.Cells[column].Text;
        }
        return group;
    }

  private:
    void OnLineCounted(int line, std::u16string_view text, std::span<const SeparatorRun> runs) override;
    void OnSeparatorChosen(int separator, int firstLine) override {
        Separator = separator;
        RunStart = firstLine;
        Tested.clear();
    }
    void OnLineTested(const TestedLine& line) override { Tested.push_back(line); }
    void OnFormatDetected(int firstLine, bool header) override {
        DetectedFirstLine = firstLine;
        DetectedHeader = header;
    }
    void OnTableBegun(int firstLine, bool header) override {
        FirstLine = firstLine;
        Header = header;
        Rows.clear();
    }
    void OnRow(int line, std::size_t cells) override { Rows.push_back({line, cells, {}}); }
    void OnCell(const JudgedCell& cell) override;
    void OnTableEnded(TableEnd why, int line) override {
        End = why;
        EndLine = line;
    }
};
}  // namespace kelvarin::explain
