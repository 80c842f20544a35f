// The line of a run and its cells.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "contract/StdioFileEx.h"
#include "settings/CellList.h"

// A line stays in bytes as long as all of them are ASCII, which is half the work of a run's every step: a
// cell becomes UTF-16 only where its text is wanted. What the cells say is the same either way.
class RowCells {
  public:
    // Reads the next line and cuts it; false at the end of the file. Raises what the file raises.
    bool Read(CStdioFileEx& file, char16_t separator, bool merge);

    // Passes over the next line, of which nothing is known then but whether it is blank; false at the end of
    // the file.
    bool Pass(CStdioFileEx& file, char16_t separator, bool merge);

    // True if the line holds white space alone, and no separator.
    bool IsBlank() const { return IsBlankLine; }

    bool AreBytes() const { return IsInBytes; }
    const ByteCellList& Bytes() const { return ByteCells; }  // of a line in bytes

    // All cells in UTF-16.
    const CellList& Wide();

    // The cell of a 1-based column in UTF-16, or null if the row has none.
    const char16_t* CellOf(int column);

    // The same in bytes; null for a line in UTF-16 too.
    const char* BytesOf(int column) const;

    // A cell of Bytes() in UTF-16, of its length. May be changed; the same memory for each call with it.
    char16_t* Widen(const char* cell, std::size_t length);

  private:
    bool ReadHeld(CStdioFileEx& file, char16_t separator, bool merge);
    void Split(char16_t separator, bool merge);

    bool IsInBytes = false;
    bool IsBlankLine = false;
    std::vector<char> ByteLine;  // the line in bytes, as it was cut
    ByteCellList ByteCells;
    std::u16string Line;  // the line in UTF-16; of one in bytes what has been widened, each cell in its place
    CellList Cells;
};
