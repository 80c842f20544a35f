// How reports stand on a terminal: styles, labels, and columns that line up.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "host/Words.h"

namespace kelvarin::cli {

enum class Style {
    Heading,  // the file that a report is about
    Label,    // what a line is about
    Warning,  // what may surprise
    Failure   // what went wrong
};

// The text in a style for standard output or standard error. Unchanged if that is no terminal, or the
// environment has NO_COLOR.
std::string Styled(Style style, const std::string& text);
std::string StyledForErrors(Style style, const std::string& text);

// The text as the heading of the lines below it, without a line end.
std::string ReportHeading(const std::string& text);

// The text as the label of a report's line, padded to the width of all labels.
std::string ReportLabel(const std::string& text);

class TextTable {
  public:
    enum class Align { Left, Right };

    explicit TextTable(std::vector<Align> columns) : Columns(std::move(columns)) {}

    // One row; has a cell per column.
    void AddRow(std::vector<std::string> cells) { Rows.push_back(std::move(cells)); }

    // Writes the rows, each after `indent`, two blanks between columns, none at the end of a line. A column
    // that is empty in every row takes no room. On a terminal the widest columns are cut until a row fits.
    void Write(std::ostream& out, const std::string& indent) const;

  private:
    const std::vector<Align> Columns;
    std::vector<std::vector<std::string>> Rows;
};

}  // namespace kelvarin::cli
