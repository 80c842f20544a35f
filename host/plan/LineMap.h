// Which line of a file each line of its copy comes from.
#pragma once

#include <cstdint>
#include <vector>

namespace kelvarin::plan {
// Lines at the same distance from each other, forwards or backwards, take one entry however many they are.
class LineMap {
  public:
    // The next line of the copy comes from this line of the file, from 1; 0 for none.
    void Add(std::uint64_t sourceLine);

    // The line of the file for a line of the copy, from 1; 0 for a line that comes from none or that the copy
    // doesn't have.
    std::uint64_t SourceLine(std::uint64_t copyLine) const;

    // Lines of the copy.
    std::uint64_t Count() const { return Lines; }

    // Entries that they take, of 24 bytes.
    std::size_t Entries() const { return Ranges.size(); }

  private:
    struct Range {
        std::uint64_t First;   // line of the copy, from 1
        std::uint64_t Source;  // line of the file
        std::int64_t Step;     // from each line's Source to the next one's
    };

    std::vector<Range> Ranges;
    std::uint64_t Lines = 0;
    std::uint64_t Last = 0;  // line of the file that was added last
};
}  // namespace kelvarin::plan
