// Sidecars of files, made, checked and compared with other files through the module.
#pragma once

#include <string>

#include "contract/SidecarTool.h"
#include "contract/TableReader.h"
#include "host/ModuleLoader.h"

namespace kelvarin::sidecar {
// Reads the sidecar at a path; the reason names what is wrong with it.
SidecarCheck CheckSidecar(const ModuleLoader& module, const std::u16string& sidecar);

// Empty, or why the sidecar of a source file can't be read though there is one: the file is then read as if
// there were none.
std::string WhyUnread(const std::u16string& source);

// Empty, or what is wrong with a sidecar.
std::string ComplaintOf(const SidecarCheck& check);

// True if there is anything at the path of a source file's sidecar.
bool HasSidecar(const std::u16string& source);

// Writes the sidecar of a source file from the profile, in place of one that exists. An import under it reads
// the same lines as one under the profile. Empty, or why it was not written.
std::string WriteSidecar(const ModuleLoader& module, const std::u16string& source);

// As WriteSidecar, but one that exists is a reason not to.
std::string SaveSidecar(const ModuleLoader& module, const std::u16string& source);

// Whether a sidecar made for one file says right how to read another.
class SidecarFit {
  public:
    // Reads the sidecar, and the file beside it for the names of its columns.
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
    std::string TryTimes(const TableSample& table) const;

    const ModuleLoader& Module;
    const std::u16string Sidecar;
    SidecarCheck Check;
    std::string WhyUseless;
    bool HasSource = false;
    TableSample Source;
};
}  // namespace kelvarin::sidecar
