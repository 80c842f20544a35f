// What reports look like on a terminal: labels, and columns that line up.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/Words.h"
#include "platform/framework/TerminalText.h"

namespace kelvarin::cli {
// Columns on the terminal that the name of a signal or a column takes at most.
constexpr std::size_t NameWidth = 40;

// The text as the heading of the lines below it, without a line end.
TerminalText ReportHeading(const std::string& text);

// The text as the label of a report's line, padded to the width of all labels.
TerminalText ReportLabel(const std::string& text);

class TextTable {
  public:
    enum class Align { Left, Right };

    explicit TextTable(std::vector<Align> columns) : Columns(std::move(columns)) {}

    // One row; has a cell per column, which is made visible.
    void AddRow(const std::vector<std::string>& cells);

    // Writes the rows, each after `indent`, two blanks between columns, none at the end of a line. A column
    // that is empty in every row takes no room. On a terminal the widest columns are cut until a row fits.
    void Write(ReportStream out, const std::string& indent) const;

  private:
    const std::vector<Align> Columns;
    std::vector<std::vector<std::string>> Rows;
};
}  // namespace kelvarin::cli
