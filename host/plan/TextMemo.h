// Remembers what became of the texts of a column: few of them come again and again.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/plan/RowText.h"

namespace kelvarin::plan {
class TextMemo {
  public:
    struct Entry {
        std::u16string Cell;        // empty: nothing is remembered
        std::string Padded;         // what was written, and RowText::Step bytes more
        std::uint64_t Repeats = 0;  // of the cell that weren't counted yet

        std::size_t WrittenSize() const { return Padded.size() - RowText::Step; }

        bool Holds(std::u16string_view cell) const;
    };

    // The one entry that may hold a cell, which is not empty. Null for a text too long to be remembered, and
    // for all once too few came again.
    Entry* EntryFor(std::u16string_view cell);

    // Puts a cell into its entry, in place of what that holds.
    void Remember(Entry& entry, std::u16string_view cell, std::string_view written);

    std::vector<Entry>& All() { return Entries; }

  private:
    std::vector<Entry> Entries;
    std::uint64_t Asked = 0, Remembered = 0;
};
}  // namespace kelvarin::plan
