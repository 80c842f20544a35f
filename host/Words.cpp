#include "host/Words.h"

#include <algorithm>

#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin {

namespace {

bool StartsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

std::string SeparatorInWords(const Reading& format) {
    std::string separator;
    if (format.Separator >= 0 && format.Separator < 4) {
        separator = SeparatorName(format.Separator);
    } else if (!format.OtherSeparator.empty()) {
        separator = "'" + Utf16ToUtf8(format.OtherSeparator.substr(0, 1)) + "'";
    } else {
        return Phrase("no separator");
    }
    return format.MergeSeparators ? Phrase("separated by {}, neighbours merged", separator)
                                  : Phrase("separated by {}", separator);
}

}  // namespace

std::string SeparatorName(int separator) {
    const std::string words[] = {Phrase("semicolon"), Phrase("comma"), Phrase("tab"), Phrase("space")};
    return words[separator];
}

std::string FormatInWords(const Reading& format) {
    const std::string separator = SeparatorInWords(format);
    if (format.HeaderLine == 0)
        return Phrase("{}; no header, data from line {}", separator, format.FirstDataLine);
    return Phrase("{}; header in line {}, data from line {}", separator, format.HeaderLine,
                  format.FirstDataLine);
}

std::string DataTypeInWords(int type) {
    const std::string words[] = {Phrase("no type"),           Phrase("boolean"),     Phrase("integer"),
                                 Phrase("integer with unit"), Phrase("hexadecimal"), Phrase("float"),
                                 Phrase("float with unit"),   Phrase("character"),   Phrase("text")};
    return type >= 0 && type <= 8 ? words[type] : words[0];
}

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

}  // namespace kelvarin
