// Profile values for one run of a program, laid over the store.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/framework/ProfileStore.h"

// A few values that are read before others.
class ValuesOver : public ProfileValues {
  public:
    using Value = std::variant<std::int32_t, std::u16string, ProfileBlock>;

    explicit ValuesOver(std::shared_ptr<ProfileValues> below) : Below(std::move(below)) {}

    // A later value of the same key wins.
    void Set(const std::u16string& section, const std::u16string& key, Value value);

    // The same values over others.
    ValuesOver OverOther(std::shared_ptr<ProfileValues> below) const {
        ValuesOver values(std::move(below));
        values.Entries = Entries;
        return values;
    }

    std::optional<std::int32_t> ReadInt(const std::u16string& section, const std::u16string& key) override;
    std::optional<std::u16string> ReadText(const std::u16string& section, const std::u16string& key) override;
    std::optional<ProfileBlock> ReadBlock(const std::u16string& section, const std::u16string& key) override;

  private:
    struct Entry {
        std::u16string Section, Key;
        Value Held;
    };

    // The value of a key if it is of this kind. `covered` tells whether there is one of any kind.
    template <class Kind>
    std::optional<Kind> Find(const std::u16string& section, const std::u16string& key, bool& covered) const;

    std::shared_ptr<ProfileValues> Below;
    std::vector<Entry> Entries;
};

// A value given here is read before the store's. Writing goes to the store; the layer itself is never stored.
class ProfileOverlay : public ProfileStore {
  public:
    using Value = ValuesOver::Value;

    explicit ProfileOverlay(const std::shared_ptr<ProfileStore>& store) : Store(store), Values(store) {}

    // Lays a value over the store's; a later one of the same key wins.
    void Set(const std::u16string& section, const std::u16string& key, Value value) {
        Values.Set(section, key, std::move(value));
    }

    std::optional<std::int32_t> ReadInt(const std::u16string& section, const std::u16string& key) override {
        return Values.ReadInt(section, key);
    }
    std::optional<std::u16string> ReadText(const std::u16string& section,
                                           const std::u16string& key) override {
        return Values.ReadText(section, key);
    }
    std::optional<ProfileBlock> ReadBlock(const std::u16string& section, const std::u16string& key) override {
        return Values.ReadBlock(section, key);
    }
    std::shared_ptr<ProfileValues> Now() override;
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
    std::shared_ptr<ProfileStore> Store;
    ValuesOver Values;
};
