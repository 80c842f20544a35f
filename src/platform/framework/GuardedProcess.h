// Work that may crash or never end, such as that of a library on a damaged file, in a process of its own.
#pragma once

#include <chrono>
#include <functional>
#include <string>

// How the work ended.
struct GuardedResult {
    enum { Done, Crashed, Stalled, NotStarted } End = Done;
    int Status = 0;      // after Done: what the work returned; after Crashed: the signal
    std::string Reason;  // after NotStarted: the system's
};

// Does the work in a copy of this process, which takes nothing back but the output of std::cout. The copy
// ends with this process, gets its Ctrl-C, and may take 4 GiB of memory more than this process has. It is
// ended when it has used `patience` of processor time since the last ReportLife: a slow disk is no reason. On
// Windows the work is done in this process.
GuardedResult RunGuarded(const std::function<int()>& work, std::chrono::seconds patience);

// Called by guarded work again and again, to say that it goes on. Does nothing elsewhere.
void ReportLife();
