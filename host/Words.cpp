#include "host/Words.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

#include "contract/DataStore.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin {

namespace {

bool StartsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

std::string SeparatorInWords(const Reading& format) {
    std::string separator;
    if (format.Separator >= 0 && format.Separator < SeparatorOther) {
        separator = SeparatorName(format.Separator);
    } else if (!format.OtherSeparator.empty()) {
        separator = "'" + Utf16ToUtf8(format.OtherSeparator.substr(0, 1)) + "'";
    } else {
        return Phrase("no separator");
    }
    return format.MergeSeparators ? Phrase("separated by {}, neighbours merged", separator)
                                  : Phrase("separated by {}", separator);
}

template <class Value>
Value Load(const void* data) {
    Value value;
    std::memcpy(&value, data, sizeof value);
    return value;
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
    return type >= 0 && type < static_cast<int>(std::size(words)) ? words[type] : words[0];
}

std::string ShortestText(double number) {
    if (std::isnan(number)) return "nan";  // without the sign that it may have
    constexpr std::size_t Capacity = 32;
    char digits[Capacity];
    return {digits, std::to_chars(digits, digits + Capacity, number).ptr};
}

std::string SampleText(std::uint32_t type, const void* data, std::uint32_t size) {
    switch (type) {
        case KelvarinBool:
            return Load<std::uint8_t>(data) != 0 ? "true" : "false";
        case KelvarinInt64:
            return std::to_string(Load<std::int64_t>(data));
        case KelvarinDouble:
            return ShortestText(Load<double>(data));
        case KelvarinChar16:
            return Utf16ToUtf8(std::u16string(1, Load<char16_t>(data)));
        default:
            break;
    }
    std::u16string text(size / sizeof(char16_t), u'\0');
    if (size != 0) std::memcpy(text.data(), data, size);
    return "\"" + Utf16ToUtf8(text) + "\"";
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
