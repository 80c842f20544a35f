#include "contract/SupportFunctions.h"

#include "contract/DialogFunctions.h"
#include "platform/framework/Language.h"
#include "platform/framework/Module.h"
#include "platform/framework/Path.h"

std::u16string GetCommonProfileName() {
    return u"kelvarin";
}

namespace {

std::string s_PreferredLanguage;

}  // namespace

void SetPreferredLanguage(const std::string& code) {
    s_PreferredLanguage = code;
}

std::string LanguageInForce() {
    return s_PreferredLanguage.empty() ? UserLanguage() : s_PreferredLanguage;
}

bool LoadLanguageDll() {
    ModuleState* const module = GetCurrentModule();
    if (module == nullptr) return false;
    return LoadLanguage(*module, LanguageInForce());
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
