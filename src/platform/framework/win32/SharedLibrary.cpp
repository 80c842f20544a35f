#include "platform/framework/SharedLibrary.h"

#include "platform/framework/File.h"
#include "platform/framework/Path.h"
#include "platform/framework/win32/Api.h"

SharedLibrary::~SharedLibrary() {
    if (Handle != nullptr) FreeLibrary(static_cast<HMODULE>(Handle));
}

bool SharedLibrary::Load(const std::u16string& path, std::u16string& error) {
    Handle = LoadLibraryW(W(ApiPath(path)));
    if (Handle != nullptr) return true;
    CFileException reason(false);
    reason.OsError = static_cast<long>(GetLastError());
    error = path + u": " + DescribeFileError(reason);
    return false;
}

void* SharedLibrary::Find(const char* name) const {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(Handle), name));
}

std::u16string ModuleFileName(const std::u16string& name) {
    return name + u".dll";
}

namespace {

HMODULE ModuleOfCode(const void* address) {
    constexpr DWORD ByAddress =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    HMODULE module = nullptr;
    GetModuleHandleExW(ByAddress, static_cast<LPCWSTR>(address), &module);
    return module;
}

}  // namespace

const void* ImageOfCode(const void* address) {
    return ModuleOfCode(address);
}

std::u16string FolderOfCode(const void* address) {
    HMODULE module = ModuleOfCode(address);
    constexpr DWORD Longest = 32768;
    std::u16string path(Longest, u'\0');
    path.resize(GetModuleFileNameW(module, W(path.data()), Longest));
    return PathFolder(path);
}

std::u16string ProgramFolder() {
    return FolderOfCode(nullptr);
}
