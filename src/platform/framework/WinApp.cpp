#include "platform/framework/WinApp.h"

CWinApp::CWinApp(ModuleState& module, const char16_t* appName) : Module(module) {
    if (appName != nullptr) AppName = appName;
    Module.App = this;
}

CWinApp::~CWinApp() {
    if (Module.App == this) Module.App = nullptr;
}

void CWinApp::SetRegistryKey(const char16_t* company) {
    Company = company;
}

std::shared_ptr<ProfileStore> CWinApp::Profile() const {
    if (Written != nullptr) return Written;
    if (auto store = GetProcessProfile()) return store;
    return OpenUserProfile(Company, ProfileName);
}

std::int32_t CWinApp::GetProfileInt(const char16_t* section, const char16_t* entry, std::int32_t fallback) {
    return Profile()->ReadInt(section, entry).value_or(fallback);
}

std::u16string CWinApp::GetProfileString(const char16_t* section, const char16_t* entry,
                                         const std::u16string& fallback) {
    return Profile()->ReadText(section, entry).value_or(fallback);
}

bool CWinApp::GetProfileBinary(const char16_t* section, const char16_t* entry, ProfileBlock& block) {
    auto stored = Profile()->ReadBlock(section, entry);
    block = stored.value_or(ProfileBlock());
    return stored.has_value();
}

std::shared_ptr<ProfileValues> CWinApp::GetProfileNow() {
    const std::shared_ptr<ProfileStore> store = Profile();
    const std::shared_ptr<ProfileValues> values = store->Now();
    return values == nullptr ? store : values;
}

bool CWinApp::WriteProfileInt(const char16_t* section, const char16_t* entry, std::int32_t value) {
    return Profile()->WriteInt(section, entry, value);
}

bool CWinApp::WriteProfileString(const char16_t* section, const char16_t* entry,
                                 const std::u16string& value) {
    return Profile()->WriteText(section, entry, value);
}

bool CWinApp::WriteProfileBinary(const char16_t* section, const char16_t* entry, const ProfileBlock& block) {
    return Profile()->WriteBlock(section, entry, block);
}

void CWinApp::BeginProfileWrites() {
    if (WriteDepth++ == 0) Written = Profile();
    Written->BeginWrites();
}

bool CWinApp::EndProfileWrites() {
    const std::shared_ptr<ProfileStore> store = Written;
    if (--WriteDepth == 0) Written.reset();
    return store->EndWrites();
}
