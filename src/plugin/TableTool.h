// The module's answer to a host that looks for the format of a file's times.
#pragma once

#include "host/TableTool.h"

class CTableTool : public ITableTool {
  public:
    bool SampleTable(const char16_t* sourcePath, const char16_t* sidecarPath, TableSample& sample,
                     std::string& reason) override;
    std::vector<std::int64_t> ReadTimes(const std::u16string& format,
                                        const std::vector<std::u16string>& texts, bool hasDate) override;
    std::u16string FormatLetters() override;
};
