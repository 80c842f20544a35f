// A profile that nobody else sees.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <variant>

#include "platform/framework/ProfileStore.h"

// A store in memory, empty at first.
class MemoryProfile : public ProfileStore {
  public:
    std::optional<std::int32_t> ReadInt(const std::u16string& section, const std::u16string& key) override;
    std::optional<std::u16string> ReadText(const std::u16string& section, const std::u16string& key) override;
    std::optional<ProfileBlock> ReadBlock(const std::u16string& section, const std::u16string& key) override;
    bool WriteInt(const std::u16string& section, const std::u16string& key, std::int32_t value) override;
    bool WriteText(const std::u16string& section, const std::u16string& key,
                   const std::u16string& value) override;
    bool WriteBlock(const std::u16string& section, const std::u16string& key,
                    const ProfileBlock& value) override;

    // Every value as "section/key=value", a line each, sorted: numbers in decimal, texts in double quotes,
    // blocks as hex digits.
    std::string ToText() const;

    bool Refuses = false;  // every write fails

  private:
    using Value = std::variant<std::int32_t, std::u16string, ProfileBlock>;

    template <class Kind>
    std::optional<Kind> Read(const std::u16string& section, const std::u16string& key) const;
    bool Write(const std::u16string& section, const std::u16string& key, Value value);

    std::map<std::pair<std::u16string, std::u16string>, Value> Values;
};
