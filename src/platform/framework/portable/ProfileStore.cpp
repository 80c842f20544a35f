#include "platform/framework/ProfileStore.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cstdlib>

#include "platform/framework/File.h"
#include "platform/framework/Path.h"
#include "platform/framework/ProfileText.h"
#include "platform/framework/Text.h"
#include "platform/framework/portable/FileCalls.h"

namespace {

// Holds the lock file beside the profile for as long as it lives, so that of two processes that write at once
// neither loses the other's value. The profile itself can't be the lock: it is replaced while it is held.
class WriteLock {
  public:
    explicit WriteLock(const std::string& path)
        : Descriptor(Uninterrupted([&] {
              return GetFileCalls().Open((path + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
          })) {
        if (Descriptor >= 0) Uninterrupted([&] { return GetFileCalls().Lock(Descriptor, LOCK_EX); });
    }
    WriteLock(const WriteLock&) = delete;
    WriteLock& operator=(const WriteLock&) = delete;
    ~WriteLock() {
        if (Descriptor >= 0) GetFileCalls().Close(Descriptor);
    }
    bool IsHeld() const { return Descriptor >= 0; }

  private:
    int Descriptor;
};

// Makes the folder of a file and those above it.
void MakeFolders(const std::string& path) {
    for (std::size_t at = path.find('/', 1); at != std::string::npos; at = path.find('/', at + 1)) {
        mkdir(path.substr(0, at).c_str(), 0700);
    }
}

// The bytes of a file. A file that doesn't exist is empty; nothing means that it can't be read, and so must
// not be written over either.
std::optional<std::string> ReadWholeFile(const std::u16string& path) {
    CFile file;
    CFileException error(false);
    if (!file.Open(path.c_str(), CFile::modeRead, &error)) {
        if (error.Cause == CFileException::fileNotFound) return std::string();
        return std::nullopt;
    }
    try {
        std::string bytes;
        constexpr std::size_t Block = 16384;
        std::size_t count = 0;
        do {
            const std::size_t size = bytes.size();
            bytes.resize(size + Block);
            count = file.Read(bytes.data() + size, Block);
            bytes.resize(size + count);
        } while (count != 0);
        return bytes;
    } catch (CFileException* failure) {
        failure->Delete();
        return std::nullopt;
    }
}

class FileProfile : public ProfileStore {
  public:
    explicit FileProfile(std::u16string path) : Path(std::move(path)) {}

    std::optional<std::int32_t> ReadInt(const std::u16string& section, const std::u16string& key) override {
        const auto value = Find(section, key);
        return value ? IntFromProfileText(*value) : std::nullopt;
    }
    std::optional<std::u16string> ReadText(const std::u16string& section,
                                           const std::u16string& key) override {
        const auto value = Find(section, key);
        return value ? UnquoteProfileText(*value) : std::nullopt;
    }
    std::optional<ProfileBlock> ReadBlock(const std::u16string& section, const std::u16string& key) override {
        const auto value = Find(section, key);
        return value ? BlockFromProfileText(*value) : std::nullopt;
    }
    bool WriteInt(const std::u16string& section, const std::u16string& key, std::int32_t value) override {
        return Store(section, key, std::to_string(value));
    }
    bool WriteText(const std::u16string& section, const std::u16string& key,
                   const std::u16string& value) override {
        return Store(section, key, QuoteProfileText(value));
    }
    bool WriteBlock(const std::u16string& section, const std::u16string& key,
                    const ProfileBlock& value) override {
        return Store(section, key, BlockToProfileText(value));
    }

  private:
    std::optional<std::string> Find(const std::u16string& section, const std::u16string& key) const {
        const auto bytes = ReadWholeFile(Path);
        if (!bytes) return std::nullopt;
        return ProfileText(*bytes).Find(Utf16ToUtf8(section), Utf16ToUtf8(key));
    }

    // Reads the file afresh under the lock, so that values which other processes wrote meanwhile survive.
    bool Store(const std::u16string& section, const std::u16string& key, const std::string& value) const {
        MakeFolders(PathToNative(Path));
        const WriteLock lock(PathToNative(Path));
        if (!lock.IsHeld()) return false;
        const auto bytes = ReadWholeFile(Path);
        if (!bytes) return false;
        ProfileText text(*bytes);
        text.Set(Utf16ToUtf8(section), Utf16ToUtf8(key), value);
        try {
            ReplaceFile(Path, text.ToBytes());
        } catch (CFileException* failure) {
            failure->Delete();
            return false;
        }
        return true;
    }

    const std::u16string Path;
};

// An environment variable that is set and not empty, else the fallback.
std::string EnvironmentOr(const char* name, const std::string& fallback) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != 0 ? value : fallback;
}

}  // namespace

std::unique_ptr<ProfileStore> OpenUserProfile(const std::u16string& company, const std::u16string& profile) {
    const std::string folder = EnvironmentOr("XDG_CONFIG_HOME", EnvironmentOr("HOME", "") + "/.config");
    return OpenProfileFile(PathFromNative(folder) + u"/" + company + u"/" + profile + u".ini");
}

std::unique_ptr<ProfileStore> OpenProfileFile(const std::u16string& path) {
    return std::make_unique<FileProfile>(path);
}
