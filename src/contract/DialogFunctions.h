// Free functions of the host's support library for dialogs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/framework/Dialog.h"

// Enables or disables a control, or several.
void EnableDlgItem(CDialog& dialog, int id, bool enable);
void EnableDlgItems(CDialog& dialog, const int* ids, std::size_t count, bool enable);

// The mean of two colours, `first` counting `weight` times and `second` once. Colours are 0x00BBGGRR.
std::uint32_t MixColors(std::uint32_t first, std::uint32_t second, int weight);

// Lets the user choose a file to open; false without one. `filter` is a description, a vertical bar, a
// pattern.
bool OpenFileDlg(int category, const std::u16string& title, const std::u16string& filter,
                 std::u16string& path);

// Item number `index` of a text delimited by `separator`, without blanks at its ends if `trim`; empty behind
// the last.
std::u16string ExtractSubString(const std::u16string& text, unsigned index, char16_t separator, bool trim);
