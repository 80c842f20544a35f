// The two objects that the host hands to a filter before a run.
#pragma once

#include <cstdint>
#include <string>

#include "contract/DataStore.h"

// A device of one import. It belongs to the host.
class CDevice {
  public:
    virtual ~CDevice() = default;
    virtual DM::SourceProxy* GetDmSource() = 0;
};

// Makes devices and takes them back.
class IDeviceHost {
  public:
    virtual ~IDeviceHost() = default;

    // A new device, or null if none can be had. A filter passes 0 for `reserved`.
    virtual CDevice* CreateDevice(std::u16string name, const char16_t* description, int reserved) = 0;

    // Ends the filter's use of a device.
    virtual void FinishDevice(CDevice* device) = 0;
};


// Where relative measurement time begins.
class IRelativeTimeContext {
  public:
    virtual ~IRelativeTimeContext() = default;

    // The timestamp at which relative time begins, in nanoseconds.
    virtual std::int64_t GetBaseTime() = 0;

    // A true from either selects the fixed epoch of relative time instead of GetBaseTime.
    virtual bool QueryFixedBaseB() = 0;
    virtual bool QueryFixedBaseA() = 0;
};
