// Files whose samples go to an HDF5 file.
#pragma once

#include <pybind11/pybind11.h>

#include <string>

#include "python/native/ReadFile.h"

namespace kelvarin::python {
namespace py = pybind11;

// Writes every sample of the file to an HDF5 file at `out`, a path as the system has it, which is there when
// it is complete; until then what was there stays. Returns the numbers of signals and of samples. Raises
// Failure, or what `progress` raises.
py::tuple StoreFile(const Request& request, const std::string& out, const py::object& progress);
}  // namespace kelvarin::python
