#include "platform/framework/Language.h"

#include <cstdlib>
#include <list>
#include <string_view>

#include "platform/framework/Locale.h"
#include "platform/framework/SharedLibrary.h"
#include "platform/framework/Text.h"

namespace {

// "de" of "de_DE.UTF-8"; empty for "C", "C.UTF-8" and "POSIX".
std::string LanguageOfLocale(std::string_view locale) {
    const std::string_view language = locale.substr(0, locale.find_first_of("_.@-"));
    return language == "C" || language == "POSIX" ? std::string() : std::string(language);
}

// Only a plain code becomes part of a file's name.
bool IsLanguageCode(const std::string& code) {
    constexpr std::size_t Longest = 3;
    return !code.empty() && code.size() <= Longest &&
           code.find_first_not_of("abcdefghijklmnopqrstuvwxyz") == std::string::npos;
}

}  // namespace

const char16_t* LanguageResources::Translate(const char16_t* own) const {
    for (std::size_t i = 0; i < DialogTextCount; ++i) {
        if (std::u16string_view(DialogTexts[i].Own) == own) return DialogTexts[i].Translated;
    }
    return own;
}

bool LoadLanguage(ModuleState& module, const std::string& code) {
    static std::list<SharedLibrary> loaded;
    if (module.Name.empty() || !IsLanguageCode(code)) return false;
    const std::u16string file = ModuleFileName(module.Name + u"-" + Utf8ToUtf16(code));
    SharedLibrary& library = loaded.emplace_back();
    std::u16string error;
    if (library.Load(FolderOfCode(&module) + u"/" + file, error)) {
        if (const auto entry = reinterpret_cast<LanguageEntry>(library.Find(LanguageEntryName))) {
            module.UseLanguage(entry());
            return true;
        }
    }
    loaded.pop_back();
    return false;
}

std::string UserLanguage() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* const locale = std::getenv(name);
        if (locale != nullptr && *locale != '\0') return LanguageOfLocale(locale);
    }
    return SystemLanguage();
}
