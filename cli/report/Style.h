// How a terminal shows what matters.
#pragma once

#include <string>

namespace kelvarin::cli {

enum class Style {
    Heading,  // the file that is talked about
    Label,    // what a line is about
    Warning,  // what may surprise
    Failure   // what went wrong
};

// The text in a style. Unchanged if standard output is no terminal, or the environment has NO_COLOR.
std::string Styled(Style style, const std::string& text);

// The same for standard error.
std::string StyledForErrors(Style style, const std::string& text);

// The text as the heading of the lines below it, without a line end.
std::string ReportHeading(const std::string& text);

// The text as the label of a report's line, padded to the width of all labels.
std::string ReportLabel(const std::string& text);

}  // namespace kelvarin::cli
