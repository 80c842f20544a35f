// What the process has once: the module, the profile, and the right to use them.
#pragma once

#include <chrono>
#include <mutex>

#include "host/ModuleLoader.h"

namespace kelvarin::python {
// The lock of everything that makes filters or changes the settings in force, which are the process's.
class ProcessLock {
  public:
    // Waits for the lock for at most `time`.
    explicit ProcessLock(std::chrono::milliseconds time);

    bool IsHeld() const { return Lock.owns_lock(); }

  private:
    std::unique_lock<std::timed_mutex> Lock;
};

// The module, which is loaded by the first call and to the end of the process, with the user's profile and
// language in force. Under the lock. Raises Failure.
const ModuleLoader& LoadedModule();

// Called in a forked child, in which the thread that held the lock isn't there: the lock is free, and no
// settings are in force but those of the profile.
void BeginForkedChild();
}  // namespace kelvarin::python
