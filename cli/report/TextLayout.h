// What reports look like on a terminal: styles, labels, and columns that line up.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "host/Words.h"

namespace kelvarin::cli {
enum class Style {
    Heading,  // the file that a report is about
    Label,    // what a line is about
    Warning,  // what may surprise
    Failure,  // what went wrong
    Plain     // all else
};

// A text with its colours; what a terminal would obey in the text itself has been made visible.
struct TerminalText {
    std::string Bytes;
};

// The text in a style for standard output or standard error. Without colours if that is no terminal, or the
// environment has NO_COLOR.
TerminalText Styled(Style style, const std::string& text);
TerminalText StyledForErrors(Style style, const std::string& text);

// The text as the heading of the lines below it, without a line end.
TerminalText ReportHeading(const std::string& text);

// The text as the label of a report's line, padded to the width of all labels.
TerminalText ReportLabel(const std::string& text);

// Where text for people goes. The program's literals are written as they are; any other text may be a file's
// and is made visible, so that it can neither end a line nor reach the terminal as a command.
class ReportStream {
  public:
    // The stream must outlive it.
    ReportStream(std::ostream& out) : Out(out) {}

    template <std::size_t Size>
    const ReportStream& operator<<(const char (&literal)[Size]) const {
        Out << literal;
        return *this;
    }
    template <std::size_t Size>
    const ReportStream& operator<<(char (&text)[Size]) const = delete;
    const ReportStream& operator<<(std::string_view text) const;
    const ReportStream& operator<<(const TerminalText& text) const;

  private:
    std::ostream& Out;
};

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
