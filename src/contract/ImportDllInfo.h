// What a module hands to the host through its one export.
#pragma once

#include <cstdint>

class CImportFilter;

// Makes a filter for the file at a path. The caller owns it and destroys it.
using ImportFilterFactory = CImportFilter* (*)(const char16_t* path);

// Identity of a loaded module, or of its resources.
using ModuleHandle = const void*;

// The record of a module. Belongs to the module. Whatever a host does with a source file goes through the
// filters that the factory makes.
class CImportDllInfo {
  public:
    CImportDllInfo(ModuleHandle instance, ModuleHandle resources, ImportFilterFactory factory)
        : Instance(instance), Resources(resources), Factory(factory) {}
    virtual ~CImportDllInfo() = default;

    const ModuleHandle Instance;   // on Windows the HINSTANCE, elsewhere where the module's image begins
    const ModuleHandle Resources;  // the module's ModuleState
    const ImportFilterFactory Factory;
};

// The answer of the export of every module that this host can use.
constexpr std::uint32_t ImportDllVersion = 0xA5A51003;

// Name and type of the export.
constexpr const char* ImportDllEntryName = "GetKelvarinImportDllInfo";
using ImportDllEntry = std::uint32_t (*)(CImportDllInfo** info);
