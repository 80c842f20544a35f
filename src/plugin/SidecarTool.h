// The module's answer to a host without a dialog.
#pragma once

#include "host/SidecarTool.h"

class CSidecarTool : public ISidecarTool {
  public:
    bool WriteSidecar(const char16_t* sourcePath, std::string& reason) override;
    bool SaveSidecar(const char16_t* sourcePath, std::string& reason) override;
    SidecarCheck CheckSidecar(const char16_t* sidecarPath) override;
};
