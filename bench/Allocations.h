// Counts allocations of the process.
#pragma once

#include <cstdint>

// Calls of operator new so far.
std::uint64_t CountAllocations();
