// The functions of the package beside reading: what is found of a file, why, what an import would lose, and a
// clean copy. Each returns a dict; _native.pyi says what is in it. They raise Failure, or what `progress`
// raises.
#pragma once

#include <pybind11/pybind11.h>

#include <optional>
#include <string>

#include "python/native/ReadFile.h"

namespace kelvarin::python {
namespace py = pybind11;

py::dict AnalyzeFile(const Request& request);
py::dict ExplainFile(const Request& request);
py::dict CheckFile(const Request& request, const py::object& progress);

// `copy` is a path; a file that is there is replaced if `force`.
py::dict PrepareFile(const std::string& path, const std::string& copy, bool force,
                     const py::object& progress);
}  // namespace kelvarin::python
