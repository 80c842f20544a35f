// Sidecars of files, made and checked through the module.
#pragma once

#include <string>

#include "contract/SidecarTool.h"
#include "host/ModuleLoader.h"

namespace kelvarin::sidecar {

// Reads the sidecar at a path; the reason names what is wrong with it.
SidecarCheck CheckSidecar(const ModuleLoader& module, const std::u16string& sidecar);

// Each writes the sidecar of a source file and returns an empty text, or why it was not written: from the
// profile in place of one that exists; or where there is none, such that an import reads the same lines.
std::string WriteSidecar(const ModuleLoader& module, const std::u16string& source);
std::string SaveSidecar(const ModuleLoader& module, const std::u16string& source);

// Empty, or what is wrong with a sidecar.
std::string ComplaintOf(const SidecarCheck& check);

}  // namespace kelvarin::sidecar
