// The import module, loaded at run time.
#pragma once

#include <string>
#include <vector>

#include "host/ImportDllInfo.h"
#include "platform/framework/Module.h"
#include "platform/framework/SharedLibrary.h"

// Loads the module that lies beside the program, or in the plug-in folder of an installed tree, and asks its
// one export for the factory.
class ModuleLoader {
  public:
    // Empty, or why the module can't be used.
    std::string Load();

    ImportFilterFactory Factory() const { return Info->Factory; }
    ISidecarTool& SidecarTool() const { return *Info->SidecarTool; }
    ITableTool& TableTool() const { return *Info->TableTool; }

    // The items of a string of the module that are separated by vertical bars.
    std::vector<std::u16string> ResourceItems(unsigned id) const;

  private:
    SharedLibrary Library;
    CImportDllInfo* Info = nullptr;  // the module's
};
