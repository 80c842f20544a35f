// Where in a file something happened.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace kelvarin::check {

struct FilePlace {
    std::uint64_t Line = 0;        // of the file, from 1
    std::uint64_t ModuleLine = 0;  // as the module's messages count: without blank lines; 0 for a blank line
    std::u16string Text;           // the cell or the row
};

// Counts places, which come in the order of the file, and keeps the first few and the last.
class FilePlaces {
  public:
    static constexpr std::size_t MostKept = 8;

    void Add(FilePlace place) {
        ++Number;
        if (First.size() < MostKept) First.push_back(place);
        Newest = std::move(place);
    }

    // The places of another list, all of them further down in the file.
    void Append(const FilePlaces& other) {
        Number += other.Number;
        const std::size_t room = std::min(MostKept - First.size(), other.First.size());
        First.insert(First.end(), other.First.begin(),
                     other.First.begin() + static_cast<std::ptrdiff_t>(room));
        if (other.Number != 0) Newest = other.Newest;
    }

    std::uint64_t Count() const { return Number; }
    const std::vector<FilePlace>& FirstFew() const { return First; }
    const FilePlace& Last() const { return Newest; }  // meaningless without a place

  private:
    std::uint64_t Number = 0;
    std::vector<FilePlace> First;
    FilePlace Newest;
};

}  // namespace kelvarin::check
