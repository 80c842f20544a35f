// Whether a sidecar made for one file says right how to read another.
#pragma once

#include <string>

#include "contract/SidecarTool.h"
#include "contract/TableReader.h"
#include "host/ModuleLoader.h"

namespace kelvarin::sidecar {

class SidecarFit {
  public:
    // Reads the sidecar, and the file that it stands beside for the names of its columns.
    SidecarFit(const ModuleLoader& module, const std::u16string& sidecar);

    // Empty, or why the sidecar can be used for no file.
    const std::string& Complaint() const { return WhyUseless; }

    // True if the sidecar's own file is there, so that names can be compared.
    bool KnowsNames() const { return HasSource; }

    // Empty, or why the sidecar doesn't fit this file: other columns, or times that its format doesn't read.
    std::string WhyUnfit(const std::u16string& file) const;

  private:
    bool Sample(const std::u16string& file, TableSample& table, std::string& reason) const;
    std::u16string ValueOf(const char* element) const;
    std::string CompareNames(const TableSample& table) const;
    std::string TryTimes(const TableSample& table) const;

    const ModuleLoader& Module;
    const std::u16string Sidecar;
    SidecarCheck Check;
    std::string WhyUseless;
    bool HasSource = false;
    TableSample Source;
};

}  // namespace kelvarin::sidecar
