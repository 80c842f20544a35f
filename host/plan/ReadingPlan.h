// How a file is to be read: found once, and followed by whatever reads, explains or rewrites the file.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/plan/TimeSearch.h"

namespace kelvarin::plan {
enum class ColumnType { Text, Character, Boolean, Integer, Hexadecimal, Float };

// What the cells of a column are, as far as they were looked at.
struct CellCounts {
    std::uint64_t Empty = 0, Missing = 0;  // blank; markers
    std::uint64_t Whole = 0, Decimal = 0, Truth = 0, Single = 0, Text = 0;
    std::uint64_t Nulls = 0, Ones = 0;  // of Whole
    std::uint64_t NotNumbers = 0;       // of Missing: "NaN"
    std::uint64_t Amounts = 0;          // of Text: numbers with AmountUnit after them
    std::u16string AmountUnit;
    std::u16string Word;                              // the first of Text
    bool IsOneWord = true;                            // all of Text are the same
    std::uint64_t DecimalAmounts = 0;                 // of Amounts
    std::uint64_t HexDigits = 0, Prefixed = 0;        // cells of hexadecimal digits alone; those with 0x
    std::uint64_t Letters = 0;                        // of HexDigits: with a letter
    std::size_t LeastLength = 0, MostLength = 0;      // of HexDigits
    std::uint32_t DigitPlaces = 0, LetterPlaces = 0;  // of HexDigits: bits, from the right, that hold some
    bool IsTooLong = false;                           // a whole number beyond 64 bits

    // Adds so many cells of one text. `mark` is the decimal mark of the file.
    void Add(std::u16string_view cell, char16_t mark);

    // Adds so many cells of one text that is no plain number and not empty.
    void Add(std::u16string_view cell, char16_t mark, const CellFacts& facts, std::uint64_t cells = 1);
    // The cells of another file, or of other rows.
    void Add(const CellCounts& other);

    // Cells that hold a value.
    std::uint64_t Filled() const { return Whole + Decimal + Truth + Text; }

    // `isCount`: the column's name or unit says that its numbers are no truth values. `isBesideHexadecimal`:
    // another column of the table is hexadecimal.
    ColumnType Type(bool isCount, bool isBesideHexadecimal = false) const;

    bool operator==(const CellCounts&) const = default;

  private:
    void AddHexDigits(std::u16string_view cell, std::uint64_t cells);
    void AddNumber(std::u16string_view cell, const NumberLook& look, char16_t mark, std::uint64_t cells);
    void AddWord(std::u16string_view cell, char16_t mark, std::uint64_t cells);
    bool IsHexadecimal(bool isBesideOthers) const;
};

struct PlannedColumn {
    std::u16string Name;  // empty: it has none in the file
    std::u16string Unit;
    ColumnType Type = ColumnType::Text;
    bool IsTime = false;      // its cells make the time of the row
    bool HasAmounts = false;  // its cells name their unit
    CellCounts Cells = {};    // of the rows looked at
};

// True for the name of a number that counts: "Cycle", "Step".
bool IsCountName(std::u16string_view name);

// What a plan has to do with those of other files.
struct Kinship {
    std::size_t Files = 1;                 // of the kind that were looked at, this one among them
    std::size_t Others = 0;                // files of other kinds that were looked at with them
    std::u16string PlanFile;               // the kind was read from there; empty: it was found
    std::u16string OrderFile;              // the file that proves the order of day and month; empty for none
    std::vector<std::string> Differences;  // from the others, a sentence each, in UTF-8
};

struct ReadingPlan {
    FixedTable Fixed;  // before it was looked for
    Cut How;
    std::size_t Width = 0;                       // cells of most rows
    std::uint64_t FirstLine = 1;                 // of the table, from 1; 0 if it begins far below in the file
    std::uint64_t NamesLine = 0, UnitsLine = 0;  // 0 for none
    char16_t Mark = u'.';                        // the decimal mark
    std::vector<PlannedColumn> Columns;
    std::vector<CellCounts> Elsewhere;  // of other files of the kind, by column; empty if there are none
    std::optional<FoundTimes> Times;
    std::vector<OtherTable> Others;  // of the file
    FileSample Sample;               // what was looked at
    TableRows Rows;                  // of the sample
    std::u16string Missing;          // the number that the file declares for missing values; empty for none
    std::size_t RowsLookedAt = 0;
    bool IsWholeLookedAt = false;  // every line of the file was looked at
    bool EndsInTotal = false;      // the last row has the time of the first: it sums up the others
    std::optional<Kinship> Kin;    // nothing for a file that was looked at alone

    // True for a line, from 1, of another table with another width.
    bool IsOfOther(std::uint64_t line) const;

    // Rows of another table below have times too, which the module would read on.
    bool HaveOthersTimes() const;

    // True for a cell that holds the number that the file declares for missing values, in any form:
    // "-9999.0".
    bool IsDeclaredMissing(std::u16string_view cell) const;
};

// The plan of a table. What its rows leave open is as in the plan `like` of a file of the same kind; the
// times are then in the same columns. `like` may be null.
ReadingPlan PlanOf(const FileSample& sample, const FoundTable& table, const ReadingPlan* like);

// Nothing if the lines hold no such table.
std::optional<ReadingPlan> FindPlan(const FileSample& sample, const FixedTable& fixed = {});

// Nothing if the file has no table. `find` is called with a sample of the file, and with longer ones while
// the table begins below the lines that were counted. `firstLine` is where it begins at least. Raises
// CFileException.
using FindInSample = std::function<std::optional<ReadingPlan>(const FileSample& sample)>;
std::optional<ReadingPlan> FindPlan(const std::u16string& path, const FindInSample& find,
                                    std::uint64_t firstLine = 0);

// Nothing if the file has no such table. Raises CFileException.
std::optional<ReadingPlan> FindPlan(const std::u16string& path, const FixedTable& fixed = {});
}  // namespace kelvarin::plan
