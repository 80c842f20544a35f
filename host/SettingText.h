// Settings as text, KEY=VALUE each, and the layer that puts them in force. Texts are UTF-8.
#pragma once

#include <charconv>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/support/ProfileOverlay.h"
#include "settings/SettingsTable.h"

namespace kelvarin {
// One setting of the profile as ParseSetting has read it.
struct ParsedSetting {
    std::u16string Key;
    ProfileOverlay::Value Value;
};

// Keys and values: integers, texts, seconds since 1970, decimal numbers, or "hex:" and the bytes of a block.
using SettingList = std::vector<std::pair<std::string, std::string>>;

// The whole text as a number of this type; false, with `number` undefined, for any other text.
template <class Number>
bool ParseWhole(const std::string& text, Number& number) {
    const char* const end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end;
}

// Reads the value of a setting. Empty, or what is wrong and what is allowed: one clause.
std::string ParseSetting(const std::string& key, const std::string& value, ParsedSetting& setting);

// The same for "KEY=VALUE".
std::string ParseSetting(const std::string& text, ParsedSetting& setting);

// The value of AdjustTime for an amount of less than a day, in nanoseconds: a moment whose local clock shows
// it, on a day without a change of the clock.
std::string AdjustTimeFor(std::int64_t amount);

// All settings of the profile as ParseSetting reads them.
SettingList SettingsAsText(const CCsvImportSettings& settings);

// Makes the user's profile the one that the module reads.
void UseUserProfile();

// Settings laid over the process's profile for the life of the layer: every filter made meanwhile has them,
// unless a sidecar says otherwise. Nothing is stored. Layers end in the reverse order of their making; one
// thread at a time makes layers and filters.
class SettingsLayer {
  public:
    SettingsLayer();
    SettingsLayer(const SettingsLayer&) = delete;
    SettingsLayer& operator=(const SettingsLayer&) = delete;
    ~SettingsLayer() { SetProcessProfile(Before); }

    void Set(const ParsedSetting& setting) { Layer->Set(SettingsSection, setting.Key, setting.Value); }

    // Empty, or what is wrong with the value, as ParseSetting says it.
    std::string Set(const std::string& key, const std::string& value);

    // A setting of whole numbers.
    void Set(const char16_t* key, int value) { Layer->Set(SettingsSection, key, value); }

  private:
    const std::shared_ptr<ProfileStore> Before;
    const std::shared_ptr<ProfileOverlay> Layer;
};
}  // namespace kelvarin
