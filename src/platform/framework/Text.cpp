#include "platform/framework/Text.h"

#include <cstdint>

#include "simd/Units.h"

namespace {

constexpr char32_t Replacement = 0xFFFD;

// One code point decoded from UTF-8: its value and the bytes it took; 0 bytes mark an invalid sequence.
struct DecodedPoint {
    char32_t Value;
    std::size_t Bytes;
};

DecodedPoint DecodePoint(std::string_view bytes) {
    constexpr DecodedPoint Invalid{Replacement, 0};
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned first = byte(0);
    if (first < 0x80) return {first, 1};
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || bytes.size() < length) return Invalid;
    char32_t value = first & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return Invalid;
        value = (value << 6) | (byte(i) & 0x3Fu);
    }
    const char32_t least = length == 4 ? 0x10000 : length == 3 ? 0x800 : 0x80;
    if (value < least || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) return Invalid;
    return {value, length};
}

// Writes one code point as one or two units and answers the place behind them.
char16_t* PutPoint(char32_t point, char16_t* out) {
    if (point < 0x10000) {
        *out++ = static_cast<char16_t>(point);
        return out;
    }
    *out++ = static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10));
    *out++ = static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
    return out;
}

constexpr bool IsHighSurrogate(char16_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
constexpr bool IsLowSurrogate(char16_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}
constexpr char16_t LowerAscii(char16_t c) {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
}

// Decodes into `text`, which has a unit of room per byte. With `strict` an invalid byte ends the walk with
// false; without it becomes U+FFFD.
bool Decode(std::string_view bytes, std::u16string& text, bool strict) {
    text.resize(bytes.size());
    char16_t* out = text.data();
    std::size_t at = 0;
    while (at < bytes.size()) {
        const std::size_t ascii = WidenAscii(bytes.substr(at), out);
        at += ascii;
        out += ascii;
        if (at == bytes.size()) break;
        const DecodedPoint point = DecodePoint(bytes.substr(at));
        if (point.Bytes == 0 && strict) return false;
        out = PutPoint(point.Value, out);
        at += point.Bytes == 0 ? 1 : point.Bytes;
    }
    text.resize(static_cast<std::size_t>(out - text.data()));
    return true;
}

}  // namespace

std::size_t WidenAscii(std::string_view bytes, char16_t* out) {
    constexpr std::size_t Block = simd::BytesPerBlock;
    const std::size_t size = bytes.size();
    std::size_t at = 0;
    for (; at + Block <= size && simd::WidenBlock(bytes.data() + at, out + at); at += Block) {
    }
    // The last block once more from where it is whole: what it widens twice comes out the same.
    if (at < size && at + Block > size && size >= Block &&
        simd::WidenBlock(bytes.data() + size - Block, out + size - Block))
        return size;
    for (; at < size; ++at) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        if (byte >= 0x80) break;
        out[at] = byte;
    }
    return at;
}

char32_t DecodeUtf8Point(std::string_view bytes, std::size_t& length) {
    const DecodedPoint point = DecodePoint(bytes);
    length = point.Bytes == 0 ? 1 : point.Bytes;
    return point.Value;
}

void AppendUtf8(char32_t point, std::string& out) {
    const auto put = [&](char32_t byte) { out += static_cast<char>(byte); };
    if (point < 0x80) {
        put(point);
    } else if (point < 0x800) {
        put(0xC0 | (point >> 6));
        put(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        put(0xE0 | (point >> 12));
        put(0x80 | ((point >> 6) & 0x3F));
        put(0x80 | (point & 0x3F));
    } else {
        put(0xF0 | (point >> 18));
        put(0x80 | ((point >> 12) & 0x3F));
        put(0x80 | ((point >> 6) & 0x3F));
        put(0x80 | (point & 0x3F));
    }
}

bool DecodeUtf8(std::string_view bytes, std::u16string& text) {
    return Decode(bytes, text, true);
}

std::u16string Utf8ToUtf16(std::string_view bytes) {
    std::u16string text;
    Decode(bytes, text, false);
    return text;
}

std::string Utf16ToUtf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (IsHighSurrogate(c) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            const char32_t high = c - 0xD800u;
            AppendUtf8(0x10000 + (high << 10) + (text[++i] - 0xDC00u), bytes);
        } else {
            AppendUtf8(IsHighSurrogate(c) || IsLowSurrogate(c) ? Replacement : c, bytes);
        }
    }
    return bytes;
}

std::u16string_view TrimWhiteSpace(std::u16string_view text) {
    while (!text.empty() && IsWhiteSpace(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsWhiteSpace(text.back())) text.remove_suffix(1);
    return text;
}

bool EqualsIgnoreCase(std::u16string_view a, std::u16string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (LowerAscii(a[i]) != LowerAscii(b[i])) return false;
    }
    return true;
}

std::u16string ReplaceAll(std::u16string text, std::u16string_view what, std::u16string_view with) {
    for (std::size_t at = text.find(what); at != std::u16string::npos;
         at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
    }
    return text;
}
