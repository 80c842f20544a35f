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

// Places in the order of the file: their number, the first few and the last.
struct FilePlaces {
    static constexpr std::size_t MostKept = 8;
    std::uint64_t Count = 0;
    std::vector<FilePlace> FirstFew;
    FilePlace Last;  // meaningless without a place

    void Add(FilePlace place) {
        ++Count;
        if (FirstFew.size() < MostKept) FirstFew.push_back(place);
        Last = std::move(place);
    }

    // The places of another list, all of them further down in the file.
    void Append(const FilePlaces& other) {
        Count += other.Count;
        const std::size_t room = std::min(MostKept - FirstFew.size(), other.FirstFew.size());
        FirstFew.insert(FirstFew.end(), other.FirstFew.begin(),
                        other.FirstFew.begin() + static_cast<std::ptrdiff_t>(room));
        if (other.Count != 0) Last = other.Last;
    }
};
}  // namespace kelvarin::check
