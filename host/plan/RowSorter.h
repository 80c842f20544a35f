// Puts the rows of a table in the order of their times, in bounded memory.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/framework/ScratchFile.h"

namespace kelvarin::plan {
struct SortedRow {
    std::int64_t Time = 0;
    std::uint64_t Line = 0;  // of the file
    std::string_view Text;   // valid until the next row
};

// A stable sort: rows of one time keep their order. Rows beyond the bound are sorted piece by piece into a
// file, and the pieces are merged at the end.
class RowSorter {
  public:
    // `mostBytes` of rows are held in memory; one row is, however long.
    explicit RowSorter(std::size_t mostBytes) : MostBytes(mostBytes) {}

    // Adds a row of a line after those of all rows before it. Raises CFileException.
    void Add(std::int64_t time, std::uint64_t line, std::string_view text);

    // Gives all rows in order, until `take` returns false. Nothing can be added afterwards. Raises
    // CFileException.
    void Finish(const std::function<bool(const SortedRow&)>& take);

    // Pieces that went to the disk.
    std::size_t Pieces() const { return Places.size(); }

  private:
    struct Entry {
        std::int64_t Time;
        std::uint64_t Line;
        std::size_t Begin, Size;  // of the text in Texts
    };
    struct Place {
        std::uint64_t Begin, End;  // in the file
    };
    class PieceReader;

    void Sort();
    void WritePiece();
    void Merge(const std::function<bool(const SortedRow&)>& take);

    const std::size_t MostBytes;
    std::vector<Entry> Entries;
    std::string Texts;
    std::unique_ptr<ScratchFile> File;
    std::vector<Place> Places;
};
}  // namespace kelvarin::plan
