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

std::u16string ProgramFolder() {
    std::vector<char> path(4096);
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    if (length <= 0) return u".";
    return PathFolder(PathFromNative({path.data(), static_cast<std::size_t>(length)}));
}
