#include "host/ModuleLoader.h"

#include <filesystem>

#include "host/language/Phrase.h"
#include "platform/framework/Module.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin {
namespace {
// Beside the front end, where a build, a zip and a wheel have it, or else in the plug-in folder.
std::u16string FindModuleIn(const std::u16string& name, const std::u16string& folder,
                            const std::u16string& plugins) {
    const std::u16string beside = folder + u"/" + ModuleFileName(name);
    const std::u16string installed = folder + u"/" + plugins + u"/" + ModuleFileName(name);
    std::error_code unknown;
    const bool isInstalled = !std::filesystem::exists(PathForStream(beside), unknown) &&
                             std::filesystem::exists(PathForStream(installed), unknown);
    return isInstalled ? installed : beside;
}
}  // namespace

std::u16string FindModule(const std::u16string& name) {
    return FindModuleIn(name, ProgramFolder(), Utf8ToUtf16(KELVARIN_PLUGIN_DIR));
}

std::string ModuleLoader::Load() {
    return Load(ProgramFolder(), Utf8ToUtf16(KELVARIN_PLUGIN_DIR));
}

std::string ModuleLoader::Load(const std::u16string& folder, const std::u16string& plugins) {
    const std::u16string path = FindModuleIn(u"csv-import", folder, plugins);
    std::u16string error;
    if (!Library.Load(path, error)) return Utf16ToUtf8(error);
    const auto entry = reinterpret_cast<ImportDllEntry>(Library.Find(ImportDllEntryName));
    if (entry == nullptr) return Phrase("{}: no import module", Utf16ToUtf8(path));
    if (entry(&Info) != ImportDllVersion)
        return Phrase("{}: made for another version of the host", Utf16ToUtf8(path));
    return {};
}

std::unique_ptr<CImportFilter> ModuleLoader::MakeFilter(const std::u16string& path) const {
    return std::unique_ptr<CImportFilter>(Info->Factory(path.c_str()));
}

std::vector<std::u16string> ModuleLoader::ResourceItems(unsigned id) const {
    const std::u16string text = static_cast<const ModuleState*>(Info->Resources)->LoadString(id);
    std::vector<std::u16string> items;
    for (std::size_t begin = 0;;) {
        const std::size_t end = text.find(u'|', begin);
        items.push_back(text.substr(begin, end - begin));
        if (end == std::u16string::npos) return items;
        begin = end + 1;
    }
}
}  // namespace kelvarin
