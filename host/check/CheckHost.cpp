#include "host/check/CheckHost.h"

namespace kelvarin::check {

CheckHost::CheckHost(const ModuleLoader& module, const std::u16string& path)
    : ImportFilter(module.MakeFilter(path)) {
    ImportFilter->DeviceHost = this;
    ImportFilter->TimeContext = this;
}

}  // namespace kelvarin::check
