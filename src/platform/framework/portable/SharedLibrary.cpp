#include "platform/framework/SharedLibrary.h"

#include <dlfcn.h>
#include <sys/auxv.h>
#include <unistd.h>

#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>
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
    // The program itself goes by the name that it was given, which may be none of a file.
    return folder.starts_with(u'/') ? folder : ProgramFolder();
}

const void* ImageOfCode(const void* address) {
    Dl_info place{};
    return dladdr(address, &place) == 0 ? nullptr : place.dli_fbase;
}

std::u16string ProgramFolder() {
    std::vector<char> path(PATH_MAX + 1);
    ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    if (length <= 0) {
        // Where /proc is missing, the path that the program was started by, which the kernel hands on.
        const auto started = static_cast<std::uintptr_t>(getauxval(AT_EXECFN));
        if (started == 0 || realpath(reinterpret_cast<const char*>(started), path.data()) == nullptr)
            return {};
        length = static_cast<ssize_t>(std::strlen(path.data()));
    }
    return PathFolder(PathFromNative({path.data(), static_cast<std::size_t>(length)}));
}
