// Text that others wrote, as a terminal may show it.
#pragma once

#include <string>
#include <string_view>

// True for what a terminal or an editor obeys instead of showing it: control characters, the separators of
// lines and paragraphs, and the marks that set the direction of a text.
constexpr bool IsObeyed(char32_t point) {
    return point < 0x20 || (point >= 0x7F && point < 0xA0) || point == 0x061C || point == 0x200E ||
           point == 0x200F || (point >= 0x2028 && point <= 0x202E) || (point >= 0x2066 && point <= 0x2069);
}

// The text in UTF-8, on one line, with each such character as \x1B (below U+0080) or \u202E, and each byte
// that is no UTF-8 as \xFF. What has been made visible stays as it is when it comes here again; a text that
// holds such letters itself looks the same.
std::string MakeVisible(std::string_view text);
