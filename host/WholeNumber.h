// Numbers of the command line.
#pragma once

#include <charconv>
#include <string>

namespace kelvarin {

// The whole text as a number of this type; false, with `number` undefined, for any other text.
template <class Number>
bool ParseWhole(const std::string& text, Number& number) {
    const char* const end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end;
}

}  // namespace kelvarin
