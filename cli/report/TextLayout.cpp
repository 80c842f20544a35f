#include "cli/report/TextLayout.h"

#include <algorithm>
#include <cstdlib>

#include "platform/framework/Terminal.h"
#include "platform/framework/VisibleText.h"

namespace kelvarin::cli {
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

TerminalText Styled(Style style, const std::string& text) {
    return WithStyle(style, text, IsOutputTerminal());
}

TerminalText StyledForErrors(Style style, const std::string& text) {
    return WithStyle(style, text, IsErrorTerminal());
}

TerminalText ReportHeading(const std::string& text) {
    return {"  " + Styled(Style::Label, text).Bytes};
}

TerminalText ReportLabel(const std::string& text) {
    constexpr std::size_t Width = 10;
    const std::size_t width = TextWidth(text);
    return {ReportHeading(text).Bytes + std::string(width < Width ? Width - width : 1, ' ')};
}

const ReportStream& ReportStream::operator<<(std::string_view text) const {
    Out << MakeVisible(text);
    return *this;
}

const ReportStream& ReportStream::operator<<(const TerminalText& text) const {
    Out << text.Bytes;
    return *this;
}

void TextTable::AddRow(const std::vector<std::string>& cells) {
    std::vector<std::string>& row = Rows.emplace_back();
    for (const std::string& cell : cells) row.push_back(MakeVisible(cell));
}

void TextTable::Write(ReportStream out, const std::string& indent) const {
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
