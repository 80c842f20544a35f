// The settings of one test, given as short texts.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "kit/MemoryProfile.h"
#include "platform/support/ProfileOverlay.h"
#include "settings/CsvImportSettings.h"

// "key=value" for any key of the profile. A moment is seconds since 1970, or a local date and time such as
// "StartDate=2020-02-01 08:00:00".
using SettingList = std::vector<std::string>;

// Both lists; what stands in the second wins.
SettingList Joined(SettingList common, const SettingList& more);

// The profile of the process for as long as it lives: the settings given, over an empty store that takes what
// is written. The profile before it then comes back.
class TestProfile {
  public:
    explicit TestProfile(const SettingList& settings = {});
    TestProfile(const TestProfile&) = delete;
    TestProfile& operator=(const TestProfile&) = delete;
    ~TestProfile() { SetProcessProfile(Previous); }

    // The layer of the settings, for values of another kind than their key's.
    ProfileOverlay& Layer() { return *Overlay; }

    // What was written since.
    MemoryProfile& Written() { return *Store; }

  private:
    const std::shared_ptr<ProfileStore> Previous = GetProcessProfile();
    const std::shared_ptr<MemoryProfile> Store = std::make_shared<MemoryProfile>();
    const std::shared_ptr<ProfileOverlay> Overlay = std::make_shared<ProfileOverlay>(Store);
};

// A record as a filter reads it from a profile with these settings.
CCsvImportSettings MakeSettings(const SettingList& settings = {});
