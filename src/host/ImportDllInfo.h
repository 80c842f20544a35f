// What a module hands to the host through its one export.
#pragma once

#include <cstdint>

class CImportFilter;
class ISidecarTool;
class ITableTool;

// Makes a filter for the file at a path. The caller owns it and destroys it.
using ImportFilterFactory = CImportFilter* (*)(const char16_t* path);

// Identity of a loaded module; on Windows its instance handle.
using ModuleHandle = const void*;

// The record of a module: where its code and its resources lie, and its factory. Belongs to the module.
class CImportDllInfo {
  public:
    CImportDllInfo(ModuleHandle instance, ModuleHandle resources, ImportFilterFactory factory,
                   ISidecarTool* sidecarTool = nullptr, ITableTool* tableTool = nullptr)
        : Instance(instance),
          Resources(resources),
          Factory(factory),
          SidecarTool(sidecarTool),
          TableTool(tableTool) {}
    virtual ~CImportDllInfo() = default;

    const ModuleHandle Instance;
    const ModuleHandle Resources;
    const ImportFilterFactory Factory;
    ISidecarTool* const SidecarTool;  // the module's, for hosts without a dialog; null if it has none
    ITableTool* const TableTool;      // as that one
};

// The answer of the export of every module that this host can use.
constexpr std::uint32_t ImportDllVersion = 0xA5A51003;

// Name and type of the export.
constexpr const char* ImportDllEntryName = "GetKelvarinImportDllInfo";
using ImportDllEntry = std::uint32_t (*)(CImportDllInfo** info);
