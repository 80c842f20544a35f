#include "platform/framework/ProfileStore.h"

#include <cstring>

#include "platform/framework/win32/Api.h"

namespace {

// A key under the user's own, a sub-key per section. The registry itself keeps writers apart.
class RegistryProfile : public ProfileStore {
  public:
    explicit RegistryProfile(std::u16string root) : Root(std::move(root)) {}

    std::optional<std::int32_t> ReadInt(const std::u16string& section, const std::u16string& key) override {
        const auto bytes = Read(section, key, REG_DWORD);
        std::int32_t value = 0;
        if (!bytes || bytes->size() != sizeof value) return std::nullopt;
        std::memcpy(&value, bytes->data(), sizeof value);
        return value;
    }
    std::optional<std::u16string> ReadText(const std::u16string& section,
                                           const std::u16string& key) override {
        const auto bytes = Read(section, key, REG_SZ);
        if (!bytes) return std::nullopt;
        std::u16string text(bytes->size() / sizeof(char16_t), u'\0');
        std::memcpy(text.data(), bytes->data(), text.size() * sizeof(char16_t));
        return std::u16string(text.c_str());  // the stored zero ends it
    }
    std::optional<ProfileBlock> ReadBlock(const std::u16string& section, const std::u16string& key) override {
        return Read(section, key, REG_BINARY);
    }
    bool WriteInt(const std::u16string& section, const std::u16string& key, std::int32_t value) override {
        return Write(section, key, REG_DWORD, &value, sizeof value);
    }
    bool WriteText(const std::u16string& section, const std::u16string& key,
                   const std::u16string& value) override {
        return Write(section, key, REG_SZ, value.c_str(), (value.size() + 1) * sizeof(char16_t));
    }
    bool WriteBlock(const std::u16string& section, const std::u16string& key,
                    const ProfileBlock& value) override {
        return Write(section, key, REG_BINARY, value.data(), value.size());
    }

  private:
    // The bytes of a value of that type.
    std::optional<ProfileBlock> Read(const std::u16string& section, const std::u16string& key,
                                     DWORD type) const {
        HKEY handle = nullptr;
        if (RegOpenKeyExW(HKEY_CURRENT_USER, W(Root + section), 0, KEY_READ, &handle) != ERROR_SUCCESS)
            return std::nullopt;
        ProfileBlock bytes;
        DWORD found = 0;
        DWORD size = 0;
        LSTATUS status = RegQueryValueExW(handle, W(key), nullptr, &found, nullptr, &size);
        // Another process may enlarge the value between asking for its size and reading it.
        do {
            bytes.resize(size + sizeof(char16_t));
            size = static_cast<DWORD>(bytes.size());
            if (status == ERROR_SUCCESS || status == ERROR_MORE_DATA)
                status = RegQueryValueExW(handle, W(key), nullptr, &found, bytes.data(), &size);
        } while (status == ERROR_MORE_DATA);
        RegCloseKey(handle);
        if (status != ERROR_SUCCESS || found != type) return std::nullopt;
        bytes.resize(size);
        return bytes;
    }

    bool Write(const std::u16string& section, const std::u16string& key, DWORD type, const void* data,
               std::size_t size) const {
        HKEY handle = nullptr;
        if (RegCreateKeyExW(HKEY_CURRENT_USER, W(Root + section), 0, nullptr, 0, KEY_WRITE, nullptr, &handle,
                            nullptr) != ERROR_SUCCESS)
            return false;
        const LSTATUS status =
            RegSetValueExW(handle, W(key), 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(size));
        RegCloseKey(handle);
        return status == ERROR_SUCCESS;
    }

    const std::u16string Root;  // ends in a separator
};

}  // namespace

std::unique_ptr<ProfileStore> OpenUserProfile(const std::u16string& company, const std::u16string& profile) {
    return std::make_unique<RegistryProfile>(u"Software\\" + company + u"\\" + profile + u"\\");
}
