// Moments that host and filters share. Nanoseconds on the scale of CTimeStamp.
#pragma once

#include <cstdint>

// 01.01.1980 00:00 at UTC+1: base of relative measurement time if the host's base is fixed.
constexpr std::int64_t RelativeTimeEpoch = 315'529'200'000'000'000;

// 01.01.1990 00:00 at UTC+1: the host can't process absolute times before it.
constexpr std::int64_t AbsoluteTimeLimit = 631'148'400'000'000'000;

// The greatest timestamp that is accepted.
constexpr std::int64_t MaxTimestamp = 0x3FFFFFFFFFFFFFFF;
