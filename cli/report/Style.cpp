#include "cli/report/Style.h"

#include <cstdlib>

#include "cli/report/TextTable.h"
#include "platform/framework/Terminal.h"

namespace kelvarin::cli {

namespace {

bool WantsColour() {
    const char* const noColour = std::getenv("NO_COLOR");
    const char* const terminal = std::getenv("TERM");
    const bool isDumb = terminal != nullptr && std::string(terminal) == "dumb";
    return (noColour == nullptr || *noColour == '\0') && !isDumb;
}

std::string WithStyle(Style style, const std::string& text) {
    constexpr const char* Codes[] = {"1", "36", "33", "31"};  // bold, cyan, yellow, red
    return std::string("\033[") + Codes[static_cast<int>(style)] + "m" + text + "\033[0m";
}

}  // namespace

std::string Styled(Style style, const std::string& text) {
    static const bool isColoured = IsOutputTerminal() && WantsColour();
    return isColoured && !text.empty() ? WithStyle(style, text) : text;
}

std::string StyledForErrors(Style style, const std::string& text) {
    static const bool isColoured = IsErrorTerminal() && WantsColour();
    return isColoured && !text.empty() ? WithStyle(style, text) : text;
}

std::string ReportHeading(const std::string& text) {
    return "  " + Styled(Style::Label, text);
}

std::string ReportLabel(const std::string& text) {
    constexpr std::size_t Width = 10;
    const std::size_t width = TextWidth(text);
    return ReportHeading(text) + std::string(width < Width ? Width - width : 1, ' ');
}

}  // namespace kelvarin::cli
