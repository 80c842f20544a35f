// Several devices in one file: a column tells whose row it is.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/plan/ReadingPlan.h"

namespace kelvarin::plan {
struct DeviceColumn {
    std::size_t Column = 0;               // from 0
    std::vector<std::u16string> Devices;  // what its cells are, in the order of the file
};

// The column by which the times of a file rise without a repeat in the rows of each device, where those of
// all rows together repeat or fall in one step of four at least. Nothing if no column does that, or if one
// would have more than 16 devices. Reads the whole file by its plan, which must have times. Raises
// CFileException.
std::optional<DeviceColumn> FindDeviceColumn(const std::u16string& path, const ReadingPlan& plan);
}  // namespace kelvarin::plan
