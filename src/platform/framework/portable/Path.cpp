#include "platform/framework/Path.h"

namespace {

constexpr char16_t Separator = u'/';

}  // namespace

std::filesystem::path PathForStream(const std::u16string& path) {
    return PathToNative(path);
}

std::u16string PathStripPath(const std::u16string& path) {
    const std::size_t at = path.rfind(Separator);
    return at == std::u16string::npos || at + 1 == path.size() ? path : path.substr(at + 1);
}

std::u16string PathFolder(const std::u16string& path) {
    const std::size_t at = path.rfind(Separator);
    return at == std::u16string::npos ? std::u16string() : path.substr(0, at);
}
