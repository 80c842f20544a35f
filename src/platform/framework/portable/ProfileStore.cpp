#include "platform/framework/ProfileStore.h"

#include <cstdlib>

#include "platform/framework/Path.h"

namespace {

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
