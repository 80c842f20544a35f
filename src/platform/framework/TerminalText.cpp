#include "platform/framework/TerminalText.h"

#include <cstdlib>

#include "platform/framework/Terminal.h"
#include "platform/framework/VisibleText.h"

namespace {

TerminalText WithStyle(Style style, const std::string& text, bool isTerminal) {
    const char* const noColour = std::getenv("NO_COLOR");
    const char* const terminal = std::getenv("TERM");
    const bool isDumb = terminal != nullptr && std::string(terminal) == "dumb";
    const bool isPlain = text.empty() || style == Style::Plain || !isTerminal || isDumb;
    if (isPlain || (noColour != nullptr && *noColour != '\0')) return {MakeVisible(text)};
    constexpr const char* Codes[] = {"1", "36", "33", "31"};  // bold, cyan, yellow, red
    return {std::string("\033[") + Codes[static_cast<int>(style)] + "m" + MakeVisible(text) + "\033[0m"};
}

}  // namespace

TerminalText Styled(Style style, const std::string& text) {
    return WithStyle(style, text, IsOutputTerminal());
}

TerminalText StyledForErrors(Style style, const std::string& text) {
    return WithStyle(style, text, IsErrorTerminal());
}

const ReportStream& ReportStream::operator<<(std::string_view text) const {
    Out << MakeVisible(text);
    return *this;
}

const ReportStream& ReportStream::operator<<(const TerminalText& text) const {
    Out << text.Bytes;
    return *this;
}
