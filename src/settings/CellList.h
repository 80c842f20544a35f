// The cells of one line.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <vector>

// Zero-terminated texts inside the line's own buffer, never null. Valid until the next line is read into it;
// the list itself is kept from line to line, and its room with it: unlike a vector's, its size can change
// without touching the entries.
class CellList {
  public:
    CellList() = default;
    CellList(std::initializer_list<char16_t*> cells) : Entries(cells), Count(cells.size()) {}

    std::size_t size() const { return Count; }
    char16_t* operator[](std::size_t index) const { return Entries[index]; }
    char16_t* const* begin() const { return Entries.data(); }
    char16_t* const* end() const { return Entries.data() + Count; }

    void clear() { Count = 0; }
    void push_back(char16_t* cell) { *MakeRoom(1) = cell, ++Count; }

    // Room for `count` more cells behind those there are; the caller writes them, then says the new size.
    char16_t** MakeRoom(std::size_t count) {
        if (Entries.size() < Count + count) Entries.resize(2 * Count + count);
        return Entries.data() + Count;
    }
    void SetSize(std::size_t size) { Count = size; }

  private:
    std::vector<char16_t*> Entries;
    std::size_t Count = 0;
};
