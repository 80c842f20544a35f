// Text for people on its way to a terminal: its colours, and nothing in it that the terminal would obey.
#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

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
