// The cells of one line.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <vector>

// Zero-terminated texts inside the line's own buffer, never null. Valid until the next line is read into it;
// the list itself is kept from line to line, and its room with it: unlike a vector's, its size can change
// without touching the entries. A Unit is what the line is made of.
template <class Unit>
class CellsOf {
  public:
    CellsOf() = default;
    CellsOf(std::initializer_list<Unit*> cells) : Entries(cells), Count(cells.size()) {}

    std::size_t size() const { return Count; }
    Unit* operator[](std::size_t index) const { return Entries[index]; }
    Unit* const* begin() const { return Entries.data(); }
    Unit* const* end() const { return Entries.data() + Count; }

    void clear() { Count = 0; }
    void push_back(Unit* cell) { *MakeRoom(1) = cell, ++Count; }

    // Room for `count` more cells behind those there are; the caller writes them, then says the new size.
    Unit** MakeRoom(std::size_t count) {
        if (Entries.size() < Count + count) Entries.resize(2 * Count + count);
        return Entries.data() + Count;
    }
    void SetSize(std::size_t size) { Count = size; }

  private:
    std::vector<Unit*> Entries;
    std::size_t Count = 0;
};

using CellList = CellsOf<char16_t>;
using ByteCellList = CellsOf<char>;  // of a line of ASCII
