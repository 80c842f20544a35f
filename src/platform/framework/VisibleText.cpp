#include "platform/framework/VisibleText.h"

#include <algorithm>
#include <cstdio>

#include "platform/framework/Text.h"

namespace {

// What nearly every text is made of.
bool IsPlain(char c) {
    return c >= ' ' && c <= '~';
}

}  // namespace

std::string MakeVisible(std::string_view text) {
    constexpr char32_t NotUtf8 = 0xFFFD;  // of one byte: no UTF-8
    std::string visible;
    visible.reserve(text.size());
    while (!text.empty()) {
        const auto special = std::find_if_not(text.begin(), text.end(), IsPlain);
        visible.append(text.begin(), special);
        text.remove_prefix(static_cast<std::size_t>(special - text.begin()));
        if (text.empty()) break;
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
