// Read errors in files that the filter opens by itself.
#pragma once

#include <filesystem>
#include <string>

// Makes every further read from the file fail that this process has open at `path`. What its reader already
// holds still comes. False if the file isn't open.
bool BreakReading(const std::filesystem::path& path);

// A file that can't be read: where the system has such a thing, one that can be opened and whose every read
// fails.
std::u16string UnreadableFile();
