#include "platform/support/ProfileOverlay.h"

#include <algorithm>

void ValuesOver::Set(const std::u16string& section, const std::u16string& key, Value value) {
    std::erase_if(Entries, [&](const Entry& entry) { return entry.Key == key && entry.Section == section; });
    Entries.push_back({section, key, std::move(value)});
}

template <class Kind>
std::optional<Kind> ValuesOver::Find(const std::u16string& section, const std::u16string& key,
                                     bool& covered) const {
    const auto found = std::find_if(Entries.begin(), Entries.end(), [&](const Entry& entry) {
        return entry.Key == key && entry.Section == section;
    });
    covered = found != Entries.end();
    if (!covered) return std::nullopt;
    const Kind* const value = std::get_if<Kind>(&found->Held);
    return value == nullptr ? std::nullopt : std::optional<Kind>(*value);
}

std::optional<std::int32_t> ValuesOver::ReadInt(const std::u16string& section, const std::u16string& key) {
    bool covered = false;
    auto value = Find<std::int32_t>(section, key, covered);
    return covered ? value : Below->ReadInt(section, key);
}

std::optional<std::u16string> ValuesOver::ReadText(const std::u16string& section, const std::u16string& key) {
    bool covered = false;
    auto value = Find<std::u16string>(section, key, covered);
    return covered ? value : Below->ReadText(section, key);
}

std::optional<ProfileBlock> ValuesOver::ReadBlock(const std::u16string& section, const std::u16string& key) {
    bool covered = false;
    auto value = Find<ProfileBlock>(section, key, covered);
    return covered ? value : Below->ReadBlock(section, key);
}

std::shared_ptr<ProfileValues> ProfileOverlay::Now() {
    const std::shared_ptr<ProfileValues> below = Store->Now();
    return std::make_shared<ValuesOver>(below == nullptr ? Values : Values.OverOther(below));
}

bool ProfileOverlay::WriteInt(const std::u16string& section, const std::u16string& key, std::int32_t value) {
    return Store->WriteInt(section, key, value);
}

bool ProfileOverlay::WriteText(const std::u16string& section, const std::u16string& key,
                               const std::u16string& value) {
    return Store->WriteText(section, key, value);
}

bool ProfileOverlay::WriteBlock(const std::u16string& section, const std::u16string& key,
                                const ProfileBlock& value) {
    return Store->WriteBlock(section, key, value);
}
