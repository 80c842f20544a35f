#include "host/SupportFunctions.h"

#include "host/DialogFunctions.h"
#include "platform/framework/Module.h"
#include "platform/framework/Path.h"

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
    return ExtractSubString(module->LoadString(id), index, u',', true);
}

namespace PathUtil {

std::u16string FindFileName(const std::u16string& path) {
    return PathStripPath(path);
}

}  // namespace PathUtil
