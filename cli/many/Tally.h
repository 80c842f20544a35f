// What became of many files, for one line at the end.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kelvarin::cli {

struct Tally {
    std::size_t Files = 0;            // begun
    std::vector<std::string> Failed;  // as the command line named them
    std::uint64_t Samples = 0;        // stored
    std::size_t WithFindings = 0;     // checked, with something to be looked at

    void Add(const Tally& other);
};

// "26 files: 24 imported, 2 failed: a.csv, b.csv; 1,234,567 samples". `done` is the word for what was done
// with a file; without samples they are not told.
std::string TallyText(const Tally& tally, const std::string& done);

// The line that a copy of the program ends its complaints with, and the tally in it.
std::string TallyLine(const Tally& tally);

// Takes the tally off the end of a copy's complaints; one without it counts nothing.
Tally TakeTally(std::string& complaints);

}  // namespace kelvarin::cli
