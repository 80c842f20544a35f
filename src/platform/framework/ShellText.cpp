#include "platform/framework/ShellText.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "platform/framework/Text.h"
#include "platform/framework/VisibleText.h"

namespace {

// "\342\200\256": what all shells that know $'...' read alike.
std::string OctalEscapes(std::string_view bytes) {
    std::string escapes;
    for (const char byte : bytes) {
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\%03o",
                      static_cast<unsigned>(static_cast<unsigned char>(byte)));
        escapes += escape;
    }
    return escapes;
}

}  // namespace

std::string ShellQuoted(const std::string& word) {
    const bool isPlain = !word.empty() && std::all_of(word.begin(), word.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '=' ||
               c == '.';
    });
    if (isPlain) return word;
    std::string quoted = "'";
    for (std::string_view rest = word; !rest.empty();) {
        std::size_t length = 1;
        DecodeUtf8Point(rest, length);
        const std::string_view character = rest.substr(0, length);
        rest.remove_prefix(length);
        if (character == "'") {
            quoted += "'\\''";
        } else if (MakeVisible(character) == character) {
            quoted += character;
        } else {
            quoted += "'$'" + OctalEscapes(character) + "''";
        }
    }
    return quoted + "'";
}
