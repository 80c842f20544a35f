#include "app/check/CheckHost.h"

CheckHost::CheckHost(ImportFilterFactory factory, const std::u16string& path)
    : ImportFilter(factory(path.c_str())) {
    ImportFilter->DeviceHost = this;
    ImportFilter->TimeContext = this;
}
