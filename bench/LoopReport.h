// What an engine of bench/compare prints: one line of JSON.
#pragma once

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <vector>

struct TimeTaken {
    double Wall, Cpu;  // seconds
};

// Measures from its making on.
class Stopwatch {
  public:
    TimeTaken Taken() const {
        return {Seconds(), static_cast<double>(std::clock() - CpuStart) / CLOCKS_PER_SEC};
    }

  private:
    double Seconds() const {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - Start).count();
    }

    const std::clock_t CpuStart = std::clock();
    const std::chrono::steady_clock::time_point Start = std::chrono::steady_clock::now();
};

// `sums`: one for each column without the times; see bench/compare.
inline void PrintReport(const char* engine, std::uint64_t rows, const std::vector<double>& sums,
                        TimeTaken taken) {
    std::printf("{\"engine\": \"%s\", \"rows\": %llu, \"sums\": [", engine,
                static_cast<unsigned long long>(rows));
    for (std::size_t column = 0; column < sums.size(); ++column) {
        std::printf("%s%.17g", column == 0 ? "" : ", ", sums[column]);
    }
    std::printf("], \"seconds\": %.6f, \"cpu\": %.6f}\n", taken.Wall, taken.Cpu);
}
