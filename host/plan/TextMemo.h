// Remembers what became of the texts of a column: few of them come again and again.
#pragma once

#include <algorithm>
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

        bool Holds(std::u16string_view cell) const {
            return std::equal(cell.begin(), cell.end(), Cell.begin(), Cell.end());
        }
        std::size_t WrittenSize() const { return Padded.size() - RowText::Step; }
    };

    // The entry of a cell, which is not empty; null if it isn't remembered.
    Entry* Find(std::u16string_view cell);

    // The entry that Remember may put the cell into that Find hasn't found. Null for a text too long to be
    // remembered, and for all once too few came again.
    Entry* Place();

    // Puts a cell into its place, instead of what that holds.
    void Remember(Entry& place, std::u16string_view cell, std::string_view written);

    std::vector<Entry>& All() { return Entries; }

  private:
    std::vector<Entry> Entries;  // pairs, of either of which a text may have one
    Entry* Pair = nullptr;       // of the cell that Find was asked for; null if it can't be remembered
    std::uint64_t Asked = 0, Remembered = 0;
    bool IsGivenUp = false;
};
}  // namespace kelvarin::plan
