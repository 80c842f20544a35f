// The rejected rows of a file as a file of their own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kelvarin::check {
// Lines of a file by number, from 1; a bit each.
class LineSet {
  public:
    void Add(std::uint64_t line) {
        if (Lines.size() <= line) Lines.resize(static_cast<std::size_t>(line) + 1);
        Number += Lines[static_cast<std::size_t>(line)] ? 0 : 1;
        Lines[static_cast<std::size_t>(line)] = true;
    }
    bool Has(std::uint64_t line) const {
        return line < Lines.size() && Lines[static_cast<std::size_t>(line)];
    }
    std::uint64_t Count() const { return Number; }
    std::uint64_t End() const { return Lines.size(); }  // no line from here on

  private:
    std::vector<bool> Lines;
    std::uint64_t Number = 0;
};

// Copies all bytes above the data (byte order mark, preamble, header) and then those of the chosen lines, so
// that the same settings import the copy. Returns an empty text, or why the copy could not be written; a file
// that was there before is replaced. No filter may have `from` open.
std::string WriteRejects(const std::u16string& from, const std::u16string& to, std::uint64_t firstDataLine,
                         const LineSet& lines);
}  // namespace kelvarin::check
