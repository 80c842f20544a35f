// What the sidecar command's parts say alike.
#pragma once

#include <string>

#include "host/SidecarTool.h"

// A file's name as valid UTF-8, whatever its bytes are.
std::string PrintableName(const std::string& file);

// Empty, or what is wrong with a sidecar.
std::string ComplaintOf(const SidecarCheck& check);
