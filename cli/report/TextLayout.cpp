#include "cli/report/TextLayout.h"

#include <algorithm>

#include "platform/framework/Terminal.h"
#include "platform/framework/VisibleText.h"

namespace kelvarin::cli {
namespace {
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

TerminalText ReportHeading(const std::string& text) {
    return {"  " + Styled(Style::Label, text).Bytes};
}

TerminalText ReportLabel(const std::string& text) {
    constexpr std::size_t Width = 10;
    const std::size_t width = TextWidth(text);
    return {ReportHeading(text).Bytes + std::string(width < Width ? Width - width : 1, ' ')};
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
