#include "platform/framework/SharedLibrary.h"

#include <dlfcn.h>
#include <unistd.h>

#include <vector>

#include "platform/framework/Path.h"

SharedLibrary::~SharedLibrary() {
    if (Handle != nullptr) dlclose(Handle);
}

bool SharedLibrary::Load(const std::u16string& path, std::u16string& error) {
    Handle = dlopen(PathToNative(path).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (Handle == nullptr) error = PathFromNative(dlerror());
    return Handle != nullptr;
}

void* SharedLibrary::Find(const char* name) const {
    return dlsym(Handle, name);
}

std::u16string ModuleFileName(const std::u16string& name) {
    return name + u".so";
}

std::u16string FolderOfCode(const void* address) {
    Dl_info place{};
    if (dladdr(address, &place) == 0 || place.dli_fname == nullptr) return ProgramFolder();
    const std::u16string folder = PathFolder(PathFromNative(place.dli_fname));
    return folder.empty() ? ProgramFolder() : folder;  // the program itself may stand without one
}

const void* ImageOfCode(const void* address) {
    Dl_info place{};
    return dladdr(address, &place) == 0 ? nullptr : place.dli_fbase;
}

std::u16string ProgramFolder() {
    std::vector<char> path(4096);
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    if (length <= 0) return u".";
    return PathFolder(PathFromNative({path.data(), static_cast<std::size_t>(length)}));
}
