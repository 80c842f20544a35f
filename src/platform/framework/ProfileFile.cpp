#include "platform/framework/File.h"
#include "platform/framework/FileLock.h"
#include "platform/framework/ProfileStore.h"
#include "platform/framework/ProfileText.h"
#include "platform/framework/Text.h"

namespace {

// The bytes of a file. A file that doesn't exist is empty; nothing means that it can't be read, and so must
// not be written over either. `state` says which.
std::optional<std::string> ReadWholeFile(const std::u16string& path, ProfileState& state) {
    CFile file;
    CFileException error(false);
    if (!file.Open(path.c_str(), CFile::modeRead, &error)) {
        const bool isMissing = error.Cause == CFileException::fileNotFound;
        state = {isMissing ? ProfileState::Missing : ProfileState::Unreadable, DescribeFileError(error)};
        return isMissing ? std::optional(std::string()) : std::nullopt;
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
        state = {ProfileState::Unreadable, DescribeFileError(*failure)};
        failure->Delete();
        return std::nullopt;
    }
}

std::u16string WhyNotMade(const std::u16string& path) {
    CFile file;
    CFileException error(false);
    return file.Open(path.c_str(), CFile::modeWrite | CFile::modeCreate, &error) ? std::u16string()
                                                                                 : DescribeFileError(error);
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
    ProfileState State() const override {
        ProfileState state;
        ReadWholeFile(Path, state);
        if (state.Kind != ProfileState::Readable) state.Reason = Path + u": " + state.Reason;
        return state;
    }
    std::u16string WriteFailure() const override { return Failure; }

  private:
    std::optional<std::string> Find(const std::u16string& section, const std::u16string& key) const {
        ProfileState ignored;
        const auto bytes = ReadWholeFile(Path, ignored);
        if (!bytes) return std::nullopt;
        return ProfileText(*bytes).Find(Utf16ToUtf8(section), Utf16ToUtf8(key));
    }

    // Reads the file afresh under the lock, so that values which other processes wrote meanwhile survive.
    bool Store(const std::u16string& section, const std::u16string& key, const std::string& value) {
        try {
            MakeFolders(Path);
            // The profile itself can't be the lock: it is replaced while that is held.
            const std::u16string lockPath = Path + u".lock";
            const FileLock lock(lockPath);
            if (!lock.IsHeld()) return Fail(WhyNotMade(lockPath));
            ProfileState state;
            const auto bytes = ReadWholeFile(Path, state);
            if (!bytes) return Fail(state.Reason);
            ProfileText text(*bytes);
            text.Set(Utf16ToUtf8(section), Utf16ToUtf8(key), value);
            ReplaceFile(Path, text.ToBytes());
        } catch (CFileException* failure) {
            const std::u16string reason = DescribeFileError(*failure);
            failure->Delete();
            return Fail(reason);
        }
        return true;
    }

    bool Fail(const std::u16string& reason) {
        if (Failure.empty()) Failure = reason;
        return false;
    }

    const std::u16string Path;
    std::u16string Failure;
};

}  // namespace

std::unique_ptr<ProfileStore> OpenProfileFile(const std::u16string& path) {
    return std::make_unique<FileProfile>(path);
}
