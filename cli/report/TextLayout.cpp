#include "cli/report/TextLayout.h"

#include <algorithm>
#include <cstdlib>

#include "platform/framework/Terminal.h"

namespace kelvarin::cli {

namespace {

std::string WithStyle(Style style, const std::string& text, bool isTerminal) {
    const char* const noColour = std::getenv("NO_COLOR");
    const char* const terminal = std::getenv("TERM");
    const bool isDumb = terminal != nullptr && std::string(terminal) == "dumb";
    if (text.empty() || !isTerminal || isDumb || (noColour != nullptr && *noColour != '\0')) return text;
    constexpr const char* Codes[] = {"1", "36", "33", "31"};  // bold, cyan, yellow, red
    return std::string("\033[") + Codes[static_cast<int>(style)] + "m" + text + "\033[0m";
}

// Narrows the widest columns until they fit into a line of the terminal.
void FitWidths(std::vector<std::size_t>& widths, std::size_t indent) {
    constexpr std::size_t Narrowest = 8;
    const std::size_t line = OutputWidth();
    while (line != 0) {
        std::size_t end = indent;
        for (const std::size_t width : widths) end += width == 0 ? 0 : width + 2;
        const auto widest = std::max_element(widths.begin(), widths.end());
        if (end <= line + 2 || *widest <= Narrowest) return;
        --*widest;
    }
}

}  // namespace

std::string Styled(Style style, const std::string& text) {
    return WithStyle(style, text, IsOutputTerminal());
}

std::string StyledForErrors(Style style, const std::string& text) {
    return WithStyle(style, text, IsErrorTerminal());
}

std::string ReportHeading(const std::string& text) {
    return "  " + Styled(Style::Label, text);
}

std::string ReportLabel(const std::string& text) {
    constexpr std::size_t Width = 10;
    const std::size_t width = TextWidth(text);
    return ReportHeading(text) + std::string(width < Width ? Width - width : 1, ' ');
}

void TextTable::Write(std::ostream& out, const std::string& indent) const {
    std::vector<std::size_t> widths(Columns.size(), 0);
    for (const auto& row : Rows) {
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], TextWidth(row[i]));
    }
    FitWidths(widths, indent.size());
    for (const auto& row : Rows) {
        std::string line = indent;
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (widths[i] == 0) continue;
            const std::string cell = TextWidth(row[i]) <= widths[i] ? row[i] : OneLine(row[i], widths[i] - 1);
            const std::string padding(widths[i] - TextWidth(cell), ' ');
            line += Columns[i] == Align::Right ? padding + cell : cell + padding;
            line += "  ";
        }
        line.erase(line.find_last_not_of(' ') + 1);
        out << line << "\n";
    }
}

}  // namespace kelvarin::cli
