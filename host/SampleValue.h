// The value of one sample, as the store's type codes lay it out in bytes.
#pragma once

#include <cstdint>
#include <string>

namespace kelvarin {

// The bytes of a sample as text for people: true, 1.5, "abc". Numbers in their shortest exact form.
std::string SampleText(std::uint32_t type, const void* data, std::uint32_t size);

}  // namespace kelvarin
