// Where in a file something happened.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace kelvarin::check {

// A line of the file, as an editor counts it, and as the module counts it: without blank lines in the table.
struct FilePlace {
    std::uint64_t Line = 0;
    std::uint64_t ModuleLine = 0;
    std::u16string Text;  // the cell or the line
};

// Counts places and keeps the first few and the last.
class FilePlaces {
  public:
    static constexpr std::size_t MostKept = 8;

    // `weight` is for how many places this one stands.
    void Add(FilePlace place, std::uint64_t weight = 1) {
        Number += weight;
        if (First.size() < MostKept) First.push_back(place);
        Newest = std::move(place);
    }

    // The places of another, which lie behind these.
    void Append(const FilePlaces& other) {
        Number += other.Number;
        for (const FilePlace& place : other.First) {
            if (First.size() < MostKept) First.push_back(place);
        }
        if (other.Number != 0) Newest = other.Newest;
    }

    // More places like the last one.
    void AddUnseen(std::uint64_t number) { Number += number; }

    std::uint64_t Count() const { return Number; }
    const std::vector<FilePlace>& FirstFew() const { return First; }
    const FilePlace& Last() const { return Newest; }  // of no meaning without a place

  private:
    std::uint64_t Number = 0;
    std::vector<FilePlace> First;
    FilePlace Newest;
};

}  // namespace kelvarin::check
