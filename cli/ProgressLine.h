// How far a run is, on a terminal.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <utility>

#include "platform/framework/Terminal.h"

namespace kelvarin::cli {
// One line on standard error that is rewritten and removed at the end: percentage, throughput and time left.
// Nothing at all if that is no terminal.
class ProgressLine {
  public:
    // The file's path as given; its size counts for the throughput.
    explicit ProgressLine(std::string file) : File(std::move(file)) {}
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ~ProgressLine() { Clear(); }

    void Show(std::uint32_t percent);

    // Removes the line; Show makes it again.
    void Clear();

  private:
    const std::string File;
    const bool HasTerminal = IsErrorTerminal();
    const std::chrono::steady_clock::time_point Start = std::chrono::steady_clock::now();
    bool Shown = false;
};
}  // namespace kelvarin::cli
