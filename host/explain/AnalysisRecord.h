// What an analysis told of its decisions, kept to be explained.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "contract/AnalysisObserver.h"
#include "contract/ImportFilter.h"

namespace kelvarin::explain {

constexpr int SeparatorsCounted = 4;
constexpr int DataTypes = 8;

// Numbers of the data types.
enum DataType : int {
    NoType = 0,
    BooleanType = 1,
    IntegerType = 2,
    IntegerUnitType = 3,
    HexType = 4,
    FloatType = 5,
    FloatUnitType = 6,
    CharType = 7,
    TextType = 8
};

constexpr bool Contains(DataTypeSet set, int type) {
    return (set >> (type - 1) & 1) != 0;
}

// The lowest type of a set, or NoType.
int LowestType(DataTypeSet set);

struct SeenLine {
    int Line;
    std::u16string Text;  // its beginning
    std::array<SeparatorRun, SeparatorsCounted> Runs;
};

struct SeenCell {
    std::u16string Text;  // its beginning
    DataTypeSet Fits;
    DataTypeSet Before;
    DataTypeSet After;
};

struct SeenRow {
    int Line;
    std::size_t CellCount;
    std::vector<SeenCell> Cells;  // of a row of data; not those of columns beyond MostColumns
};

// Keeps what a filter's last analysis told; of wide tables the first columns only, so that a file of very
// long lines costs no memory.
class AnalysisRecord : private IAnalysisObserver {
  public:
    static constexpr std::size_t MostColumns = 200;
    static constexpr std::size_t LongestLine = 8000;
    static constexpr std::size_t LongestText = 400;  // of a cell

    AnalysisRecord() = default;
    AnalysisRecord(const AnalysisRecord&) = delete;
    AnalysisRecord& operator=(const AnalysisRecord&) = delete;

    // Listens to the analyses of a filter, which must not outlive the record. False if the filter tells
    // nothing.
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
    const std::u16string& TextOf(int line) const;

    // The rows of data.
    std::size_t DataRows() const { return Rows.size() - (Header && !Rows.empty() ? 1 : 0); }

    // The type that the rows left to a column, from 0; NoType without a cell.
    int TypeOf(std::size_t column) const;

  private:
    void OnLineCounted(int line, std::u16string_view text, std::span<const SeparatorRun> runs) override;
    void OnSeparatorChosen(int separator, int firstLine) override;
    void OnLineTested(const TestedLine& line) override;
    void OnFormatDetected(int firstLine, bool header) override;
    void OnTableBegun(int firstLine, bool header) override;
    void OnRow(int line, std::size_t cells) override;
    void OnCell(const JudgedCell& cell) override;
    void OnTableEnded(TableEnd why, int line) override;
};

}  // namespace kelvarin::explain
