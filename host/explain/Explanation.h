// What the analysis of a file reported of its decisions, and all that is explained about the file, gathered
// once for every front end.
#pragma once

#include <array>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "contract/AnalysisObserver.h"
#include "contract/ImportFilter.h"
#include "host/Certainty.h"
#include "host/ModuleLoader.h"
#include "host/Reading.h"
#include "host/Remedy.h"
#include "host/plan/ReadingPlan.h"
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

// A format as the settings of the profile say it.
struct TableFormat {
    int Separator = 0;  // an ESeparator
    int FirstLine = 1;
    bool Header = false;

    int FirstDataLine() const {
        return FirstLine + (Header && FirstLine < std::numeric_limits<int>::max() ? 1 : 0);
    }
    bool operator==(const TableFormat&) const = default;
};

// The table of a plan, to compare with the one that the module took.
struct TableProposal {
    TableFormat Format;
    std::size_t Rows = 0;   // that were looked at
    std::size_t Cells = 0;  // of most of them
    int NamesLine = 0;      // that holds the columns' names; 0 for none
    std::u16string Names;   // the beginning of that line's cells

    // The names are in a line from which the module can't take them.
    bool NamesAreLost() const { return NamesLine != 0 && !(Format.Header && Format.FirstLine == NamesLine); }
};

// What people do not expect of the way a file was read.
struct Warning {
    std::string Kind;         // for scripts, the same in every language
    std::string Text;         // one sentence or more
    kelvarin::Remedy Remedy;  // settings without a text are those of Explanation::Advised
};

struct Explanation {
    const AnalysisRecord& Record;
    Reading Format;
    bool FollowsDetection;  // else the settings name the format
    std::vector<ColumnSummary> Columns;
    std::optional<TableProposal> Proposal = {};
    std::vector<Assumption> Assumed = {};  // table and times of the plan
    SettingList Advised = {};              // that read the file by the plan; empty if it is read so already
    std::u16string AdvisedLetters = {};    // of the format among them, as those of plan::TimeSettings
    bool NeedsCopy = false;                // no settings read the file by the plan, but a copy does
    bool IsOtherTable = false;             // the plan's is not the one that the module took
    std::vector<Warning> Warnings = {};

    // The module should be told to take another table.
    bool IsAdvised() const { return !Advised.empty(); }
};

// The table of a reading.
TableFormat TakenTable(const Reading& reading);

// Compares what the module took, as `record` has it, with the plan of the file, unless a sidecar settles how
// it is read. `filter` has just analysed the file at `path`. The record must outlive the explanation.
Explanation Explain(const ModuleLoader& module, const std::u16string& path, const CImportFilter& filter,
                    const AnalysisRecord& record);

// The same for a filter that follows the plan. Of the warnings only those that the plan leaves.
Explanation ExplainPlanned(const plan::ReadingPlan& plan, const CImportFilter& filter,
                           const AnalysisRecord& record);

// The warnings of an explanation whose other members are set, the most telling first.
std::vector<Warning> FindWarnings(const Explanation& explanation);

// Of these the ones about a file that is read by its plan: values that may mean something else.
std::vector<Warning> FindDoubtfulValues(const Explanation& explanation);

// Why the separator was taken, then why the header, a sentence each.
std::vector<std::string> FormatReasons(const Explanation& explanation);

// The separator that came next and what it would have given.
std::string RunnerUp(const AnalysisRecord& record);

// How far the columns were analysed and what ended it.
std::string RowsRead(const AnalysisRecord& record);

// Why a column has its data type: the cells that ruled the other types out.
struct ColumnReason {
    int Type = CsvTypeUndefined;  // that the analysis settled
    std::size_t Cells = 0;        // of the column
    CellGroup Empty;
    // Per type from boolean, at its number less one: the cell that ruled it out; none while it lasts.
    std::array<CellGroup, CsvTypeCount> Fell;
    int MostType = CsvTypeUndefined;  // of a text column: what most of its cells are, if that isn't text
    std::size_t Most = 0;             // cells of MostType
    CellGroup Others;                 // of a text column: neither empty nor of MostType
};

// `column` counts from 0.
ColumnReason ReasonFor(const AnalysisRecord& record, std::size_t column);

// One sentence without the type itself.
std::string ReasonInWords(const ColumnReason& reason);

// A text of a file in a sentence: quoted, on one line, of 40 characters at most.
std::string Quoted(const std::u16string& text);
}  // namespace kelvarin::explain
