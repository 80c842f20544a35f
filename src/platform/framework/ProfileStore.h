// Where settings of the user live between runs: sections of named values of three kinds.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

using ProfileBlock = std::vector<std::uint8_t>;

// Whether values can be read from a store at all.
struct ProfileState {
    enum EKind { Readable, Missing, Unreadable, Nowhere };

    EKind Kind = Readable;  // Missing: the first write makes it. Nowhere: the system names no place for it
    std::u16string Reason = {};  // in the system's words; empty if it is readable
};

// Values that can be read. One that is absent, or of another kind than asked for, reads as nothing.
class ProfileValues {
  public:
    virtual ~ProfileValues() = default;

    virtual std::optional<std::int32_t> ReadInt(const std::u16string& section, const std::u16string& key) = 0;
    virtual std::optional<std::u16string> ReadText(const std::u16string& section,
                                                   const std::u16string& key) = 0;
    virtual std::optional<ProfileBlock> ReadBlock(const std::u16string& section,
                                                  const std::u16string& key) = 0;
};

// A store. Writing answers whether the value now stands in the store.
class ProfileStore : public ProfileValues {
  public:
    // All values as they are now, for somebody who reads many of them: a store in a file is read once for
    // all. Null for a store in which each value is read by itself anyhow.
    virtual std::shared_ptr<ProfileValues> Now() { return nullptr; }

    virtual bool WriteInt(const std::u16string& section, const std::u16string& key, std::int32_t value) = 0;
    virtual bool WriteText(const std::u16string& section, const std::u16string& key,
                           const std::u16string& value) = 0;
    virtual bool WriteBlock(const std::u16string& section, const std::u16string& key,
                            const ProfileBlock& value) = 0;

    // What is written between these two is stored in one step by EndWrites, which returns whether that was
    // done; until then the old values are read. They may be nested; the outermost pair counts. A store that
    // has no such step stores each value as it is written.
    virtual void BeginWrites() {}
    virtual bool EndWrites() { return true; }

    virtual ProfileState State() const { return {}; }

    // Why a write failed, the first that did: in the system's words; empty if none has failed.
    virtual std::u16string WriteFailure() const { return {}; }
};

// The user's own store of a program: the registry on Windows; elsewhere the file
// $XDG_CONFIG_HOME/<company>/<profile>.ini, by default under ~/.config. If neither variable is set the store
// is empty and nothing can be written to it.
std::unique_ptr<ProfileStore> OpenUserProfile(const std::u16string& company, const std::u16string& profile);

// A store in one file. The file need not exist; it is made by the first write, its folder too.
std::unique_ptr<ProfileStore> OpenProfileFile(const std::u16string& path);

// Makes every application of this process use this store instead of the user's own; null ends that. The host
// calls it before it loads a module.
void SetProcessProfile(std::shared_ptr<ProfileStore> store);

// The store set by SetProcessProfile, or null.
std::shared_ptr<ProfileStore> GetProcessProfile();
