// The host's objects for a run that keeps nothing.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "contract/ImportFilter.h"
#include "host/ModuleLoader.h"
#include "host/check/NullStore.h"

namespace kelvarin::check {

// Where relative measurement time begins here: the fixed epoch, 1980-01-01 00:00 at UTC+1. In nanoseconds.
constexpr std::int64_t RelativeTimeBase = 315'529'200'000'000'000;

// A filter for one file with a null store. Relative times begin at RelativeTimeBase.
class CheckHost : private IDeviceHost, private IRelativeTimeContext {
  public:
    CheckHost(const ModuleLoader& module, const std::u16string& path);

    CImportFilter& Filter() { return *ImportFilter; }
    NullStore& Store() { return Device; }

  private:
    CDevice* CreateDevice(std::u16string, const char16_t*, int) override { return &Device; }
    void FinishDevice(CDevice*) override {}
    std::int64_t GetBaseTime() override { return RelativeTimeBase; }
    bool QueryFixedBaseB() override { return false; }
    bool QueryFixedBaseA() override { return false; }

    NullStore Device;  // outlives the filter's use of its signals
    std::unique_ptr<CImportFilter> ImportFilter;
};

}  // namespace kelvarin::check
