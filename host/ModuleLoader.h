// The import module, loaded at run time.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "contract/ImportDllInfo.h"
#include "contract/ImportFilter.h"
#include "platform/framework/Module.h"
#include "platform/framework/SharedLibrary.h"

namespace kelvarin {

// Loads the module that lies beside the program, or in the plug-in folder of an installed tree, and asks its
// one export for the factory.
class ModuleLoader {
  public:
    // Empty, or why the module can't be used.
    std::string Load();

    // A filter for the file at a path, with the settings that are in force now.
    std::unique_ptr<CImportFilter> MakeFilter(const std::u16string& path) const;

    // The items of a string of the module that are separated by vertical bars.
    std::vector<std::u16string> ResourceItems(unsigned id) const;

  private:
    SharedLibrary Library;
    CImportDllInfo* Info = nullptr;  // the module's
};

}  // namespace kelvarin
