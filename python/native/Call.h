// A piece of work that Python waits for, on a thread of its own.
#pragma once

#include <pybind11/pybind11.h>

#include <atomic>
#include <cstdint>
#include <functional>

#include "host/ModuleLoader.h"

namespace kelvarin::python {
namespace py = pybind11;

// What the work shares with the thread that waits for it.
struct CallState {
    std::atomic<bool> Cancel = false;        // ends the work soon after it is true
    std::atomic<std::uint32_t> Percent = 0;  // that is done
};

// Does the work under the lock of the process and returns when it is done. The calling thread lets others
// run Python meanwhile, passes on new percentages to `progress`, a function of a number from 0 to 1 or None,
// and cancels the work after a signal such as Ctrl-C, whose exception it raises. The work must not touch
// Python; what it throws is thrown here.
void DoCall(const std::function<void(const ModuleLoader& module, CallState& state)>& work,
            const py::object& progress);
}  // namespace kelvarin::python
