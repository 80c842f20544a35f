#include "platform/framework/ProfileStore.h"

#include <cstdlib>

#include "platform/framework/Path.h"

namespace {

// An environment variable; empty if it is not set.
std::string Environment(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

// What a user without a home has.
class NoProfile : public ProfileStore {
    using Text = std::u16string;

  public:
    std::optional<std::int32_t> ReadInt(const Text&, const Text&) override { return std::nullopt; }
    std::optional<Text> ReadText(const Text&, const Text&) override { return std::nullopt; }
    std::optional<ProfileBlock> ReadBlock(const Text&, const Text&) override { return std::nullopt; }
    bool WriteInt(const Text&, const Text&, std::int32_t) override { return false; }
    bool WriteText(const Text&, const Text&, const Text&) override { return false; }
    bool WriteBlock(const Text&, const Text&, const ProfileBlock&) override { return false; }
    ProfileState State() const override { return {ProfileState::Nowhere, WriteFailure()}; }
    Text WriteFailure() const override { return u"HOME is not set"; }
};

}  // namespace

std::unique_ptr<ProfileStore> OpenUserProfile(const std::u16string& company, const std::u16string& profile) {
    std::string folder = Environment("XDG_CONFIG_HOME");
    const std::string home = Environment("HOME");
    if (folder.empty() && home.empty()) return std::make_unique<NoProfile>();
    if (folder.empty()) folder = home + "/.config";
    return OpenProfileFile(PathFromNative(folder) + u"/" + company + u"/" + profile + u".ini");
}
