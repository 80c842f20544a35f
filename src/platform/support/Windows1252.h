// The code page of Western Windows, which most measurement files without a mark are written in.
#pragma once

#include <string>
#include <string_view>

// Decodes bytes of Windows-1252, reusing the storage of `text`. Each of the five bytes that the code page
// leaves undefined becomes the control character of its value.
void DecodeWindows1252(std::string_view bytes, std::u16string& text);
