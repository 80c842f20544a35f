// How values are stored: as they lie in memory.
#pragma once

#include <cstdint>
#include <type_traits>

#include "host/hdf5/ChunkedDataset.h"

namespace kelvarin::hdf5 {

// For double, std::int64_t, std::uint32_t, char16_t, and std::uint8_t, which also stands for truth.
template <class Value>
ElementType ElementOf() {
    if constexpr (std::is_same_v<Value, double>) return {H5T_NATIVE_DOUBLE, sizeof(Value)};
    if constexpr (std::is_same_v<Value, std::int64_t>) return {H5T_NATIVE_INT64, sizeof(Value)};
    if constexpr (std::is_same_v<Value, std::uint32_t>) return {H5T_NATIVE_UINT32, sizeof(Value)};
    if constexpr (std::is_same_v<Value, char16_t>) return {H5T_NATIVE_UINT16, sizeof(Value)};
    return {H5T_NATIVE_UINT8, 1};
}

}  // namespace kelvarin::hdf5
