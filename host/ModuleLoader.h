// The import module and the filters that it makes.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "contract/ImportDllInfo.h"
#include "contract/ImportFilter.h"
#include "platform/framework/SharedLibrary.h"

namespace kelvarin {
// The path of a module by its name, such as "csv-import": beside the program, where a build and a zip have
// it, or else in the plug-in folder of an installed tree. Whether it is there isn't said.
std::u16string FindModule(const std::u16string& name);

// One module, loaded to the end of this object, which outlives every filter made by it. Filters read settings
// and texts that are the process's, so one thread at a time makes them.
class ModuleLoader {
  public:
    ModuleLoader() = default;

    // A module that is there already, such as a test's; Load isn't called then.
    explicit ModuleLoader(CImportDllInfo& info) : Info(&info) {}

    // Loads the module beside the program, or else the one in the plug-in folder of an installed tree. Empty,
    // or why it can't be used: one sentence in UTF-8.
    std::string Load();

    // The same for a front end that is itself a library, in `folder`; `plugins` is the path of the plug-in
    // folder from there.
    std::string Load(const std::u16string& folder, const std::u16string& plugins);

    // A filter for the file at a path, with the settings that are in force now. Never null; whether there is
    // such a file shows only when it is read.
    std::unique_ptr<CImportFilter> MakeFilter(const std::u16string& path) const;

    // The items of a string of the module that are separated by vertical bars.
    std::vector<std::u16string> ResourceItems(unsigned id) const;

  private:
    SharedLibrary Library;
    CImportDllInfo* Info = nullptr;  // the module's
};
}  // namespace kelvarin
