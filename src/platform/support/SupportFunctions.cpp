#include "host/SupportFunctions.h"

#include "platform/framework/Module.h"
#include "platform/framework/Path.h"

namespace {

std::u16string TrimBlanks(const std::u16string& text) {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == std::u16string::npos) return {};
    return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

}  // namespace

std::u16string GetCommonProfileName() {
    return u"kelvarin";
}

bool LoadLanguageDll() {
    // The only language there is so far is the one in the modules themselves.
    return false;
}

std::u16string LoadSubString(unsigned id, unsigned index) {
    const ModuleState* const module = GetCurrentModule();
    if (module == nullptr) return {};
    const std::u16string list = module->LoadString(id);
    std::size_t begin = 0;
    for (; index > 0; --index) {
        const std::size_t comma = list.find(u',', begin);
        if (comma == std::u16string::npos) return {};
        begin = comma + 1;
    }
    return TrimBlanks(list.substr(begin, list.find(u',', begin) - begin));
}

namespace PathUtil {

std::u16string FindFileName(const std::u16string& path) {
    return PathStripPath(path);
}

}  // namespace PathUtil
