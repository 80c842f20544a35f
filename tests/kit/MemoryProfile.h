// A profile that nobody else sees.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "platform/framework/Text.h"
#include "platform/support/ProfileOverlay.h"

// A store in memory, empty at first.
class MemoryProfile : public ProfileStore {
    using Text = std::u16string;

  public:
    std::optional<std::int32_t> ReadInt(const Text& section, const Text& key) override {
        return Read<std::int32_t>(section, key);
    }
    std::optional<Text> ReadText(const Text& section, const Text& key) override {
        return Read<Text>(section, key);
    }
    std::optional<ProfileBlock> ReadBlock(const Text& section, const Text& key) override {
        return Read<ProfileBlock>(section, key);
    }
    bool WriteInt(const Text& section, const Text& key, std::int32_t value) override {
        return Write(section, key, value);
    }
    bool WriteText(const Text& section, const Text& key, const Text& value) override {
        return Write(section, key, value);
    }
    bool WriteBlock(const Text& section, const Text& key, const ProfileBlock& value) override {
        return Write(section, key, value);
    }

    // Every value as "section/key=value", a line each, sorted: numbers in decimal, texts in double quotes,
    // blocks as hex digits.
    std::string ToText() const {
        std::string text;
        for (const auto& [place, value] : Values) {
            text += Utf16ToUtf8(place.first) + '/' + Utf16ToUtf8(place.second) + '=';
            if (value.index() == 0) text += std::to_string(std::get<0>(value));
            if (value.index() == 1) text += '"' + Utf16ToUtf8(std::get<1>(value)) + '"';
            if (value.index() == 2) text += "hex:";
            for (const int byte : value.index() == 2 ? std::get<2>(value) : ProfileBlock()) {
                (text += "0123456789abcdef"[byte / 16]) += "0123456789abcdef"[byte % 16];
            }
            text += '\n';
        }
        return text;
    }

    bool Refuses = false;  // every write fails

  private:
    template <class Kind>
    std::optional<Kind> Read(const Text& section, const Text& key) const {
        const auto found = Values.find({section, key});
        if (found == Values.end() || !std::holds_alternative<Kind>(found->second)) return std::nullopt;
        return std::get<Kind>(found->second);
    }
    bool Write(const Text& section, const Text& key, ProfileOverlay::Value value) {
        if (!Refuses) Values[{section, key}] = std::move(value);
        return !Refuses;
    }

    std::map<std::pair<Text, Text>, ProfileOverlay::Value> Values;
};
