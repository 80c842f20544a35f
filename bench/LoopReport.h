// What an engine of bench/compare prints: one line of JSON.
#pragma once

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <vector>

// Wall time since its making, seconds.
class Stopwatch {
  public:
    double Seconds() const {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - Start).count();
    }

  private:
    const std::chrono::steady_clock::time_point Start = std::chrono::steady_clock::now();
};

// `sums`: one for each column without the times; see bench/compare.
inline void PrintReport(const char* engine, std::uint64_t rows, const std::vector<double>& sums,
                        double seconds) {
    std::printf("{\"engine\": \"%s\", \"rows\": %llu, \"sums\": [", engine,
                static_cast<unsigned long long>(rows));
    for (std::size_t column = 0; column < sums.size(); ++column) {
        std::printf("%s%.17g", column == 0 ? "" : ", ", sums[column]);
    }
    std::printf("], \"seconds\": %.6f}\n", seconds);
}
