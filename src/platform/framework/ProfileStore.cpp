#include "platform/framework/ProfileStore.h"

#include <utility>

namespace {

std::shared_ptr<ProfileStore>& ProcessProfile() {
    static std::shared_ptr<ProfileStore> store;
    return store;
}

}  // namespace

void SetProcessProfile(std::shared_ptr<ProfileStore> store) {
    ProcessProfile() = std::move(store);
}

std::shared_ptr<ProfileStore> GetProcessProfile() {
    return ProcessProfile();
}
