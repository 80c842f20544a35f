#include "kit/MemoryProfile.h"

#include <cstdio>

#include "platform/framework/Text.h"

namespace {

struct ValueText {
    std::string operator()(std::int32_t number) const { return std::to_string(number); }
    std::string operator()(const std::u16string& text) const { return '"' + Utf16ToUtf8(text) + '"'; }
    std::string operator()(const ProfileBlock& block) const {
        std::string text = "hex:";
        for (const std::uint8_t byte : block) {
            char digits[3];
            std::snprintf(digits, sizeof digits, "%02x", byte);
            text += digits;
        }
        return text;
    }
};

}  // namespace

template <class Kind>
std::optional<Kind> MemoryProfile::Read(const std::u16string& section, const std::u16string& key) const {
    const auto found = Values.find({section, key});
    if (found == Values.end()) return std::nullopt;
    const Kind* const value = std::get_if<Kind>(&found->second);
    return value == nullptr ? std::nullopt : std::optional<Kind>(*value);
}

bool MemoryProfile::Write(const std::u16string& section, const std::u16string& key, Value value) {
    if (Refuses) return false;
    Values[{section, key}] = std::move(value);
    return true;
}

std::optional<std::int32_t> MemoryProfile::ReadInt(const std::u16string& section, const std::u16string& key) {
    return Read<std::int32_t>(section, key);
}

std::optional<std::u16string> MemoryProfile::ReadText(const std::u16string& section,
                                                      const std::u16string& key) {
    return Read<std::u16string>(section, key);
}

std::optional<ProfileBlock> MemoryProfile::ReadBlock(const std::u16string& section,
                                                     const std::u16string& key) {
    return Read<ProfileBlock>(section, key);
}

bool MemoryProfile::WriteInt(const std::u16string& section, const std::u16string& key, std::int32_t value) {
    return Write(section, key, value);
}

bool MemoryProfile::WriteText(const std::u16string& section, const std::u16string& key,
                              const std::u16string& value) {
    return Write(section, key, value);
}

bool MemoryProfile::WriteBlock(const std::u16string& section, const std::u16string& key,
                               const ProfileBlock& value) {
    return Write(section, key, value);
}

std::string MemoryProfile::ToText() const {
    std::string text;
    for (const auto& [place, value] : Values) {
        text += Utf16ToUtf8(place.first) + '/' + Utf16ToUtf8(place.second) + '=' +
                std::visit(ValueText{}, value) + '\n';
    }
    return text;
}
