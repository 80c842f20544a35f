#include "settings/LiveSettings.h"

#include <algorithm>

#include "settings/SettingsTable.h"

namespace {

// Made at its first use; the host destroys every filter before it unloads the module.
std::vector<CCsvImportSettings*>& Instances() {
    static std::vector<CCsvImportSettings*> s_Instances;
    return s_Instances;
}

}  // namespace

void EnterLiveSettings(CCsvImportSettings* record) {
    Instances().push_back(record);
}

void LeaveLiveSettings(const CCsvImportSettings* record) {
    auto& instances = Instances();
    instances.erase(std::remove(instances.begin(), instances.end(), record), instances.end());
}

const std::vector<CCsvImportSettings*>& GetLiveSettings() {
    return Instances();
}

void CCsvImportSettings::CopyToAllInstances() const {
    for (CCsvImportSettings* other : Instances()) {
        if (other == this) continue;
        for (std::size_t i = 0; i < SharedSettingCount; ++i) {
            std::visit([&](const auto& setting) { other->*setting.Field = this->*setting.Field; },
                       SettingsTable[i].Kind);
        }
        ++other->ChangeCount;
    }
}
