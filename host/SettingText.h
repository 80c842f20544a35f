// Settings as text, KEY=VALUE each, and the layer that puts them in force.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/support/ProfileOverlay.h"

class CCsvImportSettings;

namespace kelvarin {

// One setting of the profile, ready to be laid over it.
struct ParsedSetting {
    std::u16string Key;
    ProfileOverlay::Value Value;
};

// Keys and values as text, in UTF-8: integers, texts, seconds since 1970, decimal numbers, or "hex:" and the
// bytes of a block.
using SettingList = std::vector<std::pair<std::string, std::string>>;

// Reads the value of a setting. Answers an empty text, or what is wrong and what is allowed.
std::string ParseSetting(const std::string& key, const std::string& value, ParsedSetting& setting);

// All settings of the profile as ParseSetting reads them.
SettingList SettingsAsText(const CCsvImportSettings& settings);

// Lays settings over the process's profile for as long as it lives, so that every filter made meanwhile has
// them. What a sidecar says goes before the profile. Layers end in the reverse order of their making; one
// thread at a time makes layers and filters.
class SettingsLayer {
  public:
    SettingsLayer();
    SettingsLayer(const SettingsLayer&) = delete;
    SettingsLayer& operator=(const SettingsLayer&) = delete;
    ~SettingsLayer();

    void Set(const ParsedSetting& setting);

    // Empty, or what is wrong with the value.
    std::string Set(const std::string& key, const std::string& value);

    // A setting of whole numbers.
    void Set(const char16_t* key, int value);

  private:
    const std::shared_ptr<ProfileStore> Before;
    const std::shared_ptr<ProfileOverlay> Layer;
};

}  // namespace kelvarin
