#include "kit/TestProfile.h"

#include <charconv>
#include <cstdio>
#include <cstring>
#include <stdexcept>

#include "kit/LocalMoment.h"
#include "platform/framework/Text.h"
#include "settings/SettingsTable.h"

namespace {

template <class Number>
ProfileBlock BlockOf(Number number) {
    ProfileBlock block(sizeof number);
    std::memcpy(block.data(), &number, sizeof number);
    return block;
}

std::int64_t MomentOf(const std::string& text) {
    int year, month, day, hour, minute, second;
    const int found =
        std::sscanf(text.c_str(), "%d-%d-%d %d:%d:%d", &year, &month, &day, &hour, &minute, &second);
    return found == 6 ? LocalSeconds(year, month, day, hour, minute, second) : std::stoll(text);
}

// The stored value of a setting's text.
struct ValueOf {
    const std::string& Text;

    ProfileOverlay::Value operator()(const IntSetting&) const { return std::stoi(Text); }
    ProfileOverlay::Value operator()(const TextSetting&) const { return Utf8ToUtf16(Text); }
    ProfileOverlay::Value operator()(const MomentSetting&) const { return BlockOf(MomentOf(Text)); }
    ProfileOverlay::Value operator()(const RealSetting&) const {
        // Not stod, which looks for the locale's own decimal mark.
        double number = 0.0;
        std::from_chars(Text.data(), Text.data() + Text.size(), number);
        return BlockOf(number);
    }
};

const Setting& FindSetting(const std::u16string& key) {
    for (const Setting& setting : SettingsTable) {
        if (key == setting.Key) return setting;
    }
    throw std::invalid_argument("no such setting: " + Utf16ToUtf8(key));
}

void SetFromText(ProfileOverlay& overlay, const std::string& text) {
    const std::size_t equals = text.find('=');
    const std::u16string key = Utf8ToUtf16(text.substr(0, equals));
    const std::string value = text.substr(equals + 1);
    overlay.Set(SettingsSection, key, std::visit(ValueOf{value}, FindSetting(key).Kind));
}

}  // namespace

SettingList Joined(SettingList common, const SettingList& more) {
    common.insert(common.end(), more.begin(), more.end());
    return common;
}

TestProfile::TestProfile(const SettingList& settings)
    : Previous(GetProcessProfile()),
      Store(std::make_shared<MemoryProfile>()),
      Overlay(std::make_shared<ProfileOverlay>(Store)) {
    for (const std::string& setting : settings) SetFromText(*Overlay, setting);
    SetProcessProfile(Overlay);
}

TestProfile::~TestProfile() {
    SetProcessProfile(Previous);
}

CCsvImportSettings MakeSettings(const SettingList& settings) {
    const TestProfile profile(settings);
    return CCsvImportSettings();
}
