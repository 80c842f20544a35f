#include "kit/TestProfile.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <stdexcept>

#include "kit/LocalMoment.h"
#include "settings/SettingsTable.h"

// The stored value of a setting's text.
static ProfileOverlay::Value ValueOf(const Setting& setting, const std::string& text) {
    if (std::holds_alternative<IntSetting>(setting.Kind)) return std::stoi(text);
    if (std::holds_alternative<TextSetting>(setting.Kind)) return Utf8ToUtf16(text);
    ProfileBlock block(8);
    if (std::holds_alternative<RealSetting>(setting.Kind)) {
        double number = 0.0;
        std::from_chars(text.data(), text.data() + text.size(), number);
        std::memcpy(block.data(), &number, 8);
    } else {
        int year, month, day, hour, minute, second;
        const int found =
            std::sscanf(text.c_str(), "%d-%d-%d %d:%d:%d", &year, &month, &day, &hour, &minute, &second);
        const std::int64_t moment =
            found == 6 ? LocalSeconds(year, month, day, hour, minute, second) : std::stoll(text);
        std::memcpy(block.data(), &moment, 8);
    }
    return block;
}

SettingList Joined(SettingList common, const SettingList& more) {
    common.insert(common.end(), more.begin(), more.end());
    return common;
}

TestProfile::TestProfile(const SettingList& settings) {
    for (const std::string& text : settings) {
        const std::size_t equals = text.find('=');
        const std::u16string key = Utf8ToUtf16(text.substr(0, equals));
        const auto* const setting = std::find_if(std::begin(SettingsTable), std::end(SettingsTable),
                                                 [&](const Setting& s) { return key == s.Key; });
        if (setting == std::end(SettingsTable)) throw std::invalid_argument("no such setting: " + text);
        Overlay->Set(SettingsSection, key, ValueOf(*setting, text.substr(equals + 1)));
    }
    SetProcessProfile(Overlay);
}

CCsvImportSettings MakeSettings(const SettingList& settings) {
    const TestProfile profile(settings);
    return CCsvImportSettings();
}
