#include "platform/framework/VisibleText.h"

#include <cstdio>

#include "platform/framework/Text.h"

std::string MakeVisible(std::string_view text) {
    constexpr char32_t NotUtf8 = 0xFFFD;  // of one byte: no UTF-8
    std::string visible;
    visible.reserve(text.size());
    while (!text.empty()) {
        std::size_t length = 1;
        const char32_t point = DecodeUtf8Point(text, length);
        const bool isStrayByte = point == NotUtf8 && length == 1;
        if (isStrayByte || IsObeyed(point)) {
            const unsigned shown = isStrayByte ? static_cast<unsigned char>(text[0]) : point;
            char escape[8];
            std::snprintf(escape, sizeof escape, isStrayByte || point < 0x80 ? "\\x%02X" : "\\u%04X", shown);
            visible += escape;
        } else {
            visible += text.substr(0, length);
        }
        text.remove_prefix(length);
    }
    return visible;
}
