// Paths as UTF-16 text and as the bytes or units that the platform's calls take.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// A path as the program's arguments give it, in UTF-8, as text. A byte that is no UTF-8 becomes the unit
// U+DC00 plus its value, so that PathToNative gives back the same bytes and every file that exists can be
// opened.
std::u16string PathFromNative(std::string_view path);

// The reverse of PathFromNative.
std::string PathToNative(std::u16string_view path);

// The path for a stream of the standard library.
std::filesystem::path PathForStream(const std::u16string& path);

// The last component of a path, with its extension. A path that ends in a separator comes back whole.
std::u16string PathStripPath(const std::u16string& path);

// The path of the folder that holds the last component, without the separator; empty if there is none.
std::u16string PathFolder(const std::u16string& path);
