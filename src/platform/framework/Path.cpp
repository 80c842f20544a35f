#include "platform/framework/Path.h"

#include "platform/framework/Text.h"

namespace {

constexpr char16_t EscapeBase = 0xDC00;

// Length of the valid UTF-8 sequence at the start of `bytes`, 0 if there is none.
std::size_t SequenceLength(std::string_view bytes, std::u16string& decoded) {
    for (std::size_t length = 1; length <= 4 && length <= bytes.size(); ++length) {
        if (DecodeUtf8(bytes.substr(0, length), decoded)) return length;
    }
    return 0;
}

bool IsEscapedByte(char16_t c) {
    return c >= EscapeBase + 0x80 && c <= EscapeBase + 0xFF;
}

bool IsHighSurrogate(char16_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}

}  // namespace

std::u16string PathFromNative(std::string_view path) {
    std::u16string text;
    std::u16string decoded;
    while (!path.empty()) {
        std::size_t length = SequenceLength(path, decoded);
        if (length == 0) {
            length = 1;
            text += static_cast<char16_t>(EscapeBase + static_cast<unsigned char>(path[0]));
        } else {
            text += decoded;
        }
        path.remove_prefix(length);
    }
    return text;
}

std::string PathToNative(std::u16string_view path) {
    std::string bytes;
    std::size_t begin = 0;
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (!IsEscapedByte(path[i]) || (i > begin && IsHighSurrogate(path[i - 1]))) continue;
        bytes += Utf16ToUtf8(path.substr(begin, i - begin));
        bytes += static_cast<char>(path[i] - EscapeBase);
        begin = i + 1;
    }
    return bytes + Utf16ToUtf8(path.substr(begin));
}
