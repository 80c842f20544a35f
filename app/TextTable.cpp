#include "app/TextTable.h"

#include <algorithm>

namespace {

bool StartsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

}  // namespace

std::size_t TextWidth(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), StartsCharacter));
}

std::string OneLine(const std::string& text, std::size_t width) {
    std::string line;
    std::size_t taken = 0;
    for (const char byte : text) {
        if (StartsCharacter(byte) && taken++ == width) return line + "…";
        const bool isControl = static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
        line += isControl ? '?' : byte;
    }
    return line;
}

void TextTable::Write(std::ostream& out, const std::string& indent) const {
    std::vector<std::size_t> widths(Columns.size(), 0);
    for (const auto& row : Rows) {
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], TextWidth(row[i]));
    }
    for (const auto& row : Rows) {
        std::string line = indent;
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (widths[i] == 0) continue;
            const std::string padding(widths[i] - TextWidth(row[i]), ' ');
            line += Columns[i] == Align::Right ? padding + row[i] : row[i] + padding;
            line += "  ";
        }
        line.erase(line.find_last_not_of(' ') + 1);
        out << line << "\n";
    }
}
