#include "platform/framework/Path.h"

#include "platform/framework/win32/Api.h"

namespace {

constexpr const char16_t* Separators = u"\\/";

}  // namespace

std::u16string ApiPath(const std::u16string& path) {
    constexpr DWORD LongestPlain = 240;  // leaves room for the name of a temporary file
    const DWORD size = GetFullPathNameW(W(path), 0, nullptr, nullptr);
    if (size < LongestPlain || path.compare(0, 4, u"\\\\?\\") == 0) return path;
    std::u16string full(size, u'\0');
    full.resize(GetFullPathNameW(W(path), size, W(full.data()), nullptr));
    if (full.compare(0, 2, u"\\\\") == 0) return u"\\\\?\\UNC" + full.substr(1);
    return u"\\\\?\\" + full;
}

std::filesystem::path PathForStream(const std::u16string& path) {
    return ApiPath(path);
}

std::u16string PathStripPath(const std::u16string& path) {
    const std::size_t at = path.find_last_of(Separators);
    return at == std::u16string::npos || at + 1 == path.size() ? path : path.substr(at + 1);
}

std::u16string PathFolder(const std::u16string& path) {
    const std::size_t at = path.find_last_of(Separators);
    return at == std::u16string::npos ? std::u16string() : path.substr(0, at);
}
