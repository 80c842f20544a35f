// What the package's functions fail with: an exception of C++ that becomes one of kelvarin.errors.
#pragma once

#include <cstdint>
#include <string>

#include "host/Remedy.h"

namespace kelvarin::python {
// Each has a class of this name in kelvarin.errors.
enum class FailureKind { Error, FileError, FormatError, SettingError, CopyError };

struct Failure {
    FailureKind Kind = FailureKind::Error;
    std::string Text;        // UTF-8
    std::string File;        // as the system has it; empty for none
    std::uint64_t Line = 0;  // of the file, from 1; 0 for none
    Remedy Advice = {};
    bool SaysExplain = false;  // kelvarin.explain says more
};

// Lets pybind11 turn a Failure into an exception of Python. Once, when the extension is loaded.
void RegisterFailure();
}  // namespace kelvarin::python
