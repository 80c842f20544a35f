// Which data types fit a cell or a column.
#pragma once

#include <cstdint>

// The type that counts n as a column's type (1 boolean to 8 text) has the bit n - 1.
using DataTypeSet = std::uint32_t;
