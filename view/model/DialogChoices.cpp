#include "view/model/DialogChoices.h"

#include <algorithm>
#include <set>
#include <string>

#include "host/plan/AutomaticReading.h"
#include "platform/framework/Text.h"

namespace kelvarin::view {
void TakeChoices(std::vector<ParsedSetting>& chosen, const SettingList& before, const SettingList& after) {
    std::set<std::string> keys;
    for (const ParsedSetting& old : chosen) keys.insert(Utf16ToUtf8(old.Key));
    for (const auto& setting : after) {
        if (std::find(before.begin(), before.end(), setting) == before.end()) keys.insert(setting.first);
    }
    const bool hasTimes = std::any_of(keys.begin(), keys.end(), plan::IsTimeKey);
    const bool hasTable = std::any_of(keys.begin(), keys.end(), plan::IsTableKey);
    for (const auto& [key, value] : after) {
        // The table is looked for as long as times are, whatever is chosen of it.
        const bool isBeside = hasTimes && (plan::IsTimeKey(key) || (hasTable && plan::IsTableKey(key)));
        ParsedSetting setting;
        if ((keys.count(key) == 0 && !isBeside) || !ParseSetting(key, value, setting).empty()) continue;
        std::erase_if(chosen, [&](const ParsedSetting& old) { return old.Key == setting.Key; });
        chosen.push_back(std::move(setting));
    }
}
}  // namespace kelvarin::view
