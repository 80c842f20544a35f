// Between the record and the user's profile.
#include <cmath>
#include <cstring>

#include "platform/framework/Locale.h"
#include "platform/framework/WinApp.h"
#include "resources/ModuleResources.h"
#include "settings/LiveSettings.h"
#include "settings/SettingsTable.h"

namespace {

// Reads a block of exactly the size of `value`; else `value` stays.
template <class Value>
void LoadBlock(ProfileValues& profile, const char16_t* key, Value& value) {
    const std::optional<ProfileBlock> block = profile.ReadBlock(SettingsSection, key);
    if (block && block->size() == sizeof value) std::memcpy(&value, block->data(), sizeof value);
}

template <class Value>
void SaveBlock(CWinApp& app, const char16_t* key, const Value& value) {
    ProfileBlock block(sizeof value);
    std::memcpy(block.data(), &value, sizeof value);
    app.WriteProfileBinary(SettingsSection, key, block);
}

// Reads one setting into a record.
struct Loader {
    ProfileValues& Profile;
    const char16_t* Key;
    CCsvImportSettings& Record;

    void operator()(const IntSetting& setting) const {
        const int stored = Profile.ReadInt(SettingsSection, Key).value_or(setting.Default);
        Record.*setting.Field = std::clamp(stored, setting.Lowest, setting.Highest);
        if (setting.Detected.Field != nullptr) Record.*setting.Detected.Field = Record.*setting.Field;
    }
    void operator()(const TextSetting& setting) const {
        Record.*setting.Field = Profile.ReadText(SettingsSection, Key).value_or(std::u16string());
    }
    void operator()(const MomentSetting& setting) const {
        Record.*setting.Field = CurrentSeconds();
        LoadBlock(Profile, Key, Record.*setting.Field);
    }
    void operator()(const RealSetting& setting) const {
        Record.*setting.Field = setting.Default;
        LoadBlock(Profile, Key, Record.*setting.Field);
        if (std::isnan(Record.*setting.Field)) Record.*setting.Field = setting.Default;
    }
};

// Writes one setting of a record.
struct Saver {
    CWinApp& App;
    const char16_t* Key;
    const CCsvImportSettings& Record;

    void operator()(const IntSetting& setting) const {
        App.WriteProfileInt(SettingsSection, Key, Record.*setting.Field);
    }
    void operator()(const TextSetting& setting) const {
        App.WriteProfileString(SettingsSection, Key, Record.*setting.Field);
    }
    void operator()(const MomentSetting& setting) const { SaveBlock(App, Key, Record.*setting.Field); }
    void operator()(const RealSetting& setting) const { SaveBlock(App, Key, Record.*setting.Field); }
};

// The module's application, whatever context the caller is in: the profile is this module's own.
CWinApp& App() {
    return *CsvImportModule().App;
}

}  // namespace

CCsvImportSettings::CCsvImportSettings() {
    const std::shared_ptr<ProfileValues> profile = App().GetProfileNow();
    for (const Setting& setting : SettingsTable)
        std::visit(Loader{*profile, setting.Key, *this}, setting.Kind);
    EnterLiveSettings(this);
}

CCsvImportSettings::~CCsvImportSettings() {
    LeaveLiveSettings(this);
}

void CCsvImportSettings::SaveToProfile() const {
    App().BeginProfileWrites();
    for (std::size_t i = 0; i < SharedSettingCount; ++i) {
        std::visit(Saver{App(), SettingsTable[i].Key, *this}, SettingsTable[i].Kind);
    }
    App().EndProfileWrites();
}

void CCsvImportSettings::SaveSidecarOption() {
    const Setting& setting = SettingsTable[SharedSettingCount];
    std::visit(Saver{App(), setting.Key, *this}, setting.Kind);
    for (CCsvImportSettings* other : GetLiveSettings()) {
        if (other != this) other->SaveSidecarFile = SaveSidecarFile;
    }
}

bool CCsvImportSettings::SaveAtOk(bool asDefault) {
    App().BeginProfileWrites();
    SaveSidecarOption();
    if (asDefault) {
        CopyToAllInstances();
        SaveToProfile();
    }
    return App().EndProfileWrites();
}
