#include "platform/support/ProfileOverlay.h"

void ProfileOverlay::Set(const std::u16string& section, const std::u16string& key, Value value) {
    Values[{section, key}] = std::move(value);
}

template <class Kind>
std::optional<Kind> ProfileOverlay::Find(const std::u16string& section, const std::u16string& key,
                                         bool& covered) const {
    const auto found = Values.find({section, key});
    covered = found != Values.end();
    if (!covered) return std::nullopt;
    const Kind* const value = std::get_if<Kind>(&found->second);
    return value == nullptr ? std::nullopt : std::optional<Kind>(*value);
}

std::optional<std::int32_t> ProfileOverlay::ReadInt(const std::u16string& section,
                                                    const std::u16string& key) {
    bool covered = false;
    auto value = Find<std::int32_t>(section, key, covered);
    return covered ? value : Store->ReadInt(section, key);
}

std::optional<std::u16string> ProfileOverlay::ReadText(const std::u16string& section,
                                                       const std::u16string& key) {
    bool covered = false;
    auto value = Find<std::u16string>(section, key, covered);
    return covered ? value : Store->ReadText(section, key);
}

std::optional<ProfileBlock> ProfileOverlay::ReadBlock(const std::u16string& section,
                                                      const std::u16string& key) {
    bool covered = false;
    auto value = Find<ProfileBlock>(section, key, covered);
    return covered ? value : Store->ReadBlock(section, key);
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
