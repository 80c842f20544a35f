#include <optional>

#include "platform/framework/File.h"
#include "platform/framework/FileLock.h"
#include "platform/framework/ProfileStore.h"
#include "platform/framework/ProfileText.h"
#include "platform/framework/ReplacingFile.h"
#include "platform/framework/Text.h"

namespace {

// The bytes of a file, or nothing if it doesn't exist. Raises CFileException for one that can't be read.
// `error` says why it can't be opened.
std::optional<std::string> ReadWholeFile(const std::u16string& path, CFileException& error) {
    CFile file;
    if (!file.Open(path.c_str(), CFile::modeRead, &error)) {
        // Not raised: most users have no profile, and each file that is read asks for it.
        if (error.Cause == CFileException::fileNotFound) return std::nullopt;
        throw new CFileException(error);
    }
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
}

struct ProfileEntry {
    std::string Section, Key, Value;
};

// Reads the file afresh under the lock, so that values which other processes wrote meanwhile survive.
void StoreUnderLock(const std::u16string& path, const std::vector<ProfileEntry>& entries) {
    CFileException error;
    ProfileText text(ReadWholeFile(path, error).value_or(std::string()));
    for (const ProfileEntry& entry : entries) text.Set(entry.Section, entry.Key, entry.Value);
    ReplaceFile(path, text.ToBytes());
}

// What a file held when it was read; nothing if it could not be.
class FileValues : public ProfileValues {
  public:
    explicit FileValues(const std::u16string& path) {
        try {
            CFileException error;
            if (const auto bytes = ReadWholeFile(path, error)) Text.emplace(*bytes);
        } catch (CFileException* failure) {
            failure->Delete();
        }
    }

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

  private:
    std::optional<std::string> Find(const std::u16string& section, const std::u16string& key) const {
        return Text ? Text->Find(Utf16ToUtf8(section), Utf16ToUtf8(key)) : std::nullopt;
    }

    std::optional<ProfileText> Text;
};

class FileProfile : public ProfileStore {
  public:
    explicit FileProfile(std::u16string path) : Path(std::move(path)) {}

    std::optional<std::int32_t> ReadInt(const std::u16string& section, const std::u16string& key) override {
        return FileValues(Path).ReadInt(section, key);
    }
    std::optional<std::u16string> ReadText(const std::u16string& section,
                                           const std::u16string& key) override {
        return FileValues(Path).ReadText(section, key);
    }
    std::optional<ProfileBlock> ReadBlock(const std::u16string& section, const std::u16string& key) override {
        return FileValues(Path).ReadBlock(section, key);
    }
    std::shared_ptr<ProfileValues> Now() override { return std::make_shared<FileValues>(Path); }
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
    void BeginWrites() override { ++Depth; }
    bool EndWrites() override { return --Depth > 0 || StoreWaiting(); }
    ProfileState State() const override {
        const auto reason = [this](const CFileException& failure) {
            return Path + u": " + DescribeFileError(failure);
        };
        try {
            CFileException error;
            if (ReadWholeFile(Path, error)) return {};
            return {ProfileState::Missing, reason(error)};
        } catch (CFileException* failure) {
            const ProfileState state{ProfileState::Unreadable, reason(*failure)};
            failure->Delete();
            return state;
        }
    }
    std::u16string WriteFailure() const override { return Failure; }

  private:
    bool Store(const std::u16string& section, const std::u16string& key, const std::string& value) {
        Waiting.push_back({Utf16ToUtf8(section), Utf16ToUtf8(key), value});
        return Depth > 0 || StoreWaiting();
    }

    // Stores what was written since the last time, in one step.
    bool StoreWaiting() {
        const std::vector<ProfileEntry> entries = std::move(Waiting);
        Waiting.clear();
        if (entries.empty()) return true;
        try {
            LockAndStore(entries);
            return true;
        } catch (CFileException* failure) {
            if (Failure.empty()) Failure = DescribeFileError(*failure);
            failure->Delete();
            return false;
        }
    }

    void LockAndStore(const std::vector<ProfileEntry>& entries) const {
        MakeFolders(Path);
        // The profile itself can't be the lock: it is replaced while that is held.
        const FileLock lock(Path + u".lock");
        if (lock.IsHeld()) return StoreUnderLock(Path, entries);
        if (lock.GetError().Cause != CFileException::accessDenied) lock.RaiseError();
        // In a folder that takes no new file it is written in place, and so can be the lock after all.
        const FileLock own(Path, FileLock::Make::Never);
        if (!own.IsHeld()) own.RaiseError();
        StoreUnderLock(Path, entries);
    }

    const std::u16string Path;
    std::vector<ProfileEntry> Waiting;  // not stored yet
    int Depth = 0;                      // of BeginWrites
    std::u16string Failure;
};

}  // namespace

std::unique_ptr<ProfileStore> OpenProfileFile(const std::u16string& path) {
    return std::make_unique<FileProfile>(path);
}
