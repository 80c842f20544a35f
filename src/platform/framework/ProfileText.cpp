#include "platform/framework/ProfileText.h"

#include <charconv>

#include "platform/framework/Text.h"

namespace {

constexpr std::string_view Mark = "\xEF\xBB\xBF";  // that some editors begin a file in UTF-8 with
constexpr std::string_view HexMark = "hex:";
constexpr char HexDigits[] = "0123456789abcdef";

// The value of one hexadecimal digit, -1 for another character.
int HexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

}  // namespace

ProfileText::ProfileText(std::string_view bytes) : HasMark(bytes.starts_with(Mark)) {
    if (HasMark) bytes.remove_prefix(Mark.size());
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        std::string_view line = bytes.substr(0, end);
        bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
        while (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        Lines.emplace_back(line);
    }
}

ProfileText::Place ProfileText::Locate(const std::string& section, const std::string& key) const {
    const std::string heading = "[" + section + "]";
    const std::string prefix = key + "=";
    Place place{Lines.size(), false, false};
    bool inside = false;
    for (std::size_t i = 0; i < Lines.size(); ++i) {
        const std::string& line = Lines[i];
        if (!line.empty() && line.front() == '[') {
            inside = line == heading;
        }
        if (!inside) continue;
        if (line.compare(0, prefix.size(), prefix) == 0) return {i, true, true};
        if (!line.empty()) place = {i + 1, false, true};
    }
    return place;
}

std::optional<std::string> ProfileText::Find(const std::string& section, const std::string& key) const {
    const Place place = Locate(section, key);
    if (!place.Found) return std::nullopt;
    return Lines[place.Line].substr(key.size() + 1);
}

void ProfileText::Set(const std::string& section, const std::string& key, const std::string& value) {
    const Place place = Locate(section, key);
    if (place.Found) {
        Lines[place.Line] = key + "=" + value;
        return;
    }
    auto at = Lines.begin() + static_cast<std::ptrdiff_t>(place.Line);
    if (!place.SectionFound) at = Lines.insert(at, "[" + section + "]") + 1;
    Lines.insert(at, key + "=" + value);
}

std::string ProfileText::ToBytes() const {
    std::string bytes(HasMark ? Mark : "");
    for (const std::string& line : Lines) bytes += line + "\n";
    return bytes;
}

std::string QuoteProfileText(const std::u16string& text) {
    std::string value = "\"";
    for (const char c : Utf16ToUtf8(text)) {
        if (c == '"' || c == '\\') value += '\\';
        if (c == '\n' || c == '\r') {
            value += c == '\n' ? "\\n" : "\\r";
        } else {
            value += c;
        }
    }
    return value + "\"";
}

std::optional<std::u16string> UnquoteProfileText(std::string_view value) {
    if (value.size() < 2 || value.front() != '"' || value.back() != '"') return std::nullopt;
    value = value.substr(1, value.size() - 2);
    std::string bytes;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '"') return std::nullopt;
        if (value[i] != '\\') {
            bytes += value[i];
            continue;
        }
        if (++i == value.size()) return std::nullopt;
        bytes += value[i] == 'n' ? '\n' : value[i] == 'r' ? '\r' : value[i];
    }
    return Utf8ToUtf16(bytes);
}

std::string BlockToProfileText(const ProfileBlock& block) {
    std::string value(HexMark);
    for (const std::uint8_t byte : block) {
        value += HexDigits[byte >> 4];
        value += HexDigits[byte & 15];
    }
    return value;
}

std::optional<ProfileBlock> BlockFromProfileText(std::string_view value) {
    if (value.substr(0, HexMark.size()) != HexMark) return std::nullopt;
    value.remove_prefix(HexMark.size());
    if (value.size() % 2 != 0) return std::nullopt;
    ProfileBlock block;
    for (std::size_t i = 0; i < value.size(); i += 2) {
        const int high = HexValue(value[i]);
        const int low = HexValue(value[i + 1]);
        if (high < 0 || low < 0) return std::nullopt;
        block.push_back(static_cast<std::uint8_t>(high * 16 + low));
    }
    return block;
}

std::optional<std::int32_t> IntFromProfileText(std::string_view value) {
    std::int32_t number = 0;
    const char* const end = value.data() + value.size();
    const std::from_chars_result result = std::from_chars(value.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
    return number;
}
