// Profile values for one run of a program, laid over the store.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <variant>

#include "platform/framework/ProfileStore.h"

// A value given here is read before the store's. Writing goes to the store; the layer itself is never stored.
class ProfileOverlay : public ProfileStore {
  public:
    using Value = std::variant<std::int32_t, std::u16string, ProfileBlock>;

    explicit ProfileOverlay(std::shared_ptr<ProfileStore> store) : Store(std::move(store)) {}

    // Lays a value over the store's; a later one of the same key wins.
    void Set(const std::u16string& section, const std::u16string& key, Value value);

    std::optional<std::int32_t> ReadInt(const std::u16string& section, const std::u16string& key) override;
    std::optional<std::u16string> ReadText(const std::u16string& section, const std::u16string& key) override;
    std::optional<ProfileBlock> ReadBlock(const std::u16string& section, const std::u16string& key) override;
    bool WriteInt(const std::u16string& section, const std::u16string& key, std::int32_t value) override;
    bool WriteText(const std::u16string& section, const std::u16string& key,
                   const std::u16string& value) override;
    bool WriteBlock(const std::u16string& section, const std::u16string& key,
                    const ProfileBlock& value) override;
    void BeginWrites() override { Store->BeginWrites(); }
    bool EndWrites() override { return Store->EndWrites(); }
    ProfileState State() const override { return Store->State(); }
    std::u16string WriteFailure() const override { return Store->WriteFailure(); }

  private:
    // The value over a key if it is of this kind. `covered` tells whether there is one of any kind.
    template <class Kind>
    std::optional<Kind> Find(const std::u16string& section, const std::u16string& key, bool& covered) const;

    std::shared_ptr<ProfileStore> Store;
    std::map<std::pair<std::u16string, std::u16string>, Value> Values;
};
