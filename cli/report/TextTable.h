// Columns of text that line up.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "host/Words.h"

namespace kelvarin::cli {

class TextTable {
  public:
    enum class Align { Left, Right };

    explicit TextTable(std::vector<Align> columns) : Columns(std::move(columns)) {}

    // One row; has a cell per column.
    void AddRow(std::vector<std::string> cells) { Rows.push_back(std::move(cells)); }

    // Writes the rows, each behind `indent`, two blanks between columns, none at the end of a line. A column
    // that is empty in every row takes no room. On a terminal the widest columns are cut until a row fits.
    void Write(std::ostream& out, const std::string& indent) const;

  private:
    const std::vector<Align> Columns;
    std::vector<std::vector<std::string>> Rows;
};

}  // namespace kelvarin::cli
