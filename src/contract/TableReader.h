// Optional interface of a filter: rows of its file, cut as the import cuts them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "contract/DataTypeSet.h"

// One line of a source file.
struct SampledRow {
    std::uint64_t Line = 0;             // of the file, from 1; 0 for a row behind the part that was counted
    std::vector<std::u16string> Cells;  // the first 256, each cut behind 64 characters
};

// A table seen in part: thousands of rows at most, however long the file is.
struct TableSample {
    std::vector<std::u16string> Names;  // of the columns
    std::u16string Separator;           // empty if there is none
    std::vector<SampledRow> Above;      // the last lines above the data, the header among them
    std::vector<SampledRow> Rows;       // data, in the order of the file
    bool IsWhole = false;               // every row is among them; else the first ones and some of the rest
};

// One cell of a line that was cut by a separator of the host's choice.
struct CutCell {
    std::u16string Text;   // its beginning
    DataTypeSet Fits = 0;  // the types that would read it
};

struct CutLine {
    std::uint64_t Line = 0;  // of the file, from 1
    std::size_t CellCount = 0;
    std::vector<CutCell> Cells;  // the first ones, see LineCut
};

// How lines are to be cut.
struct LineCut {
    char16_t Separator = u'\0';
    bool MergeSeparators = false;
    std::uint64_t MostLines = 0;  // from the beginning of the file
    std::size_t MostCells = 256;  // of a line that are kept
    std::size_t CellLength = 64;  // characters of a cell that are kept
};

class ITableReader {
  public:
    static constexpr const char* Id = "kelvarin.TableReader/1";

    virtual ~ITableReader() = default;

    // Samples the filter's file under the settings that an import of it would have; with a sidecar path under
    // those of that sidecar instead of its own. False, with the reason, if there is no table or a file can't
    // be read.
    virtual bool SampleTable(const char16_t* sidecarPath, TableSample& sample, std::string& reason) = 0;

    // The first lines of the filter's file that are not blank, cut in another way than the settings say.
    // False, with the reason, if the file can't be read.
    virtual bool CutLines(const LineCut& cut, std::vector<CutLine>& lines, std::string& reason) = 0;
};
