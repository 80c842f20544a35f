// The percentage of a run on a terminal.
#pragma once

#include <cstdint>
#include <string>

// One line on standard error that is rewritten and taken away at the end. Nothing at all if that is no
// terminal.
class ProgressLine {
  public:
    explicit ProgressLine(std::string file);
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ~ProgressLine();

    void Show(std::uint32_t percent);

  private:
    const std::string File;
    const bool OnTerminal;
    bool Shown = false;
};
