// A set of lines of a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kelvarin::check {

// Lines by number; a bit each.
class LineSet {
  public:
    void Add(std::uint64_t line) {
        if (Lines.size() <= line) Lines.resize(static_cast<std::size_t>(line) + 1);
        Lines[static_cast<std::size_t>(line)] = true;
    }
    bool Has(std::uint64_t line) const {
        return line < Lines.size() && Lines[static_cast<std::size_t>(line)];
    }
    std::uint64_t End() const { return Lines.size(); }  // no line from here on

  private:
    std::vector<bool> Lines;
};

}  // namespace kelvarin::check
