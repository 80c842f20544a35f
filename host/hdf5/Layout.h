// The names and fixed values of a file, which docs/hdf5.md describes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kelvarin::hdf5 {
namespace Layout {
// Of the file.
inline constexpr const char* Format = "format";  // FormatName
inline constexpr const char* FormatName = "kelvarin samples";
inline constexpr const char* Version = "format_version";
inline constexpr std::int64_t KnownVersion = 1;
inline constexpr const char* Writer = "writer";

// Attributes of a device's group.
inline constexpr const char* Name = "name";
inline constexpr const char* Description = "description";
inline constexpr const char* SourceSize = "source_size";
inline constexpr const char* SourceModified = "source_modified";
inline constexpr const char* Settings = "settings";             // a line each
inline constexpr const char* FormatLetters = "format_letters";  // by which the format among them is read
inline constexpr const char* BaseTime = "base_time";
inline constexpr const char* TimeKind = "time_kind";  // Absolute or Relative
inline constexpr const char* Absolute = "absolute";
inline constexpr const char* Relative = "relative";
inline constexpr const char* Automatic = "automatic";  // absent: by settings alone; else one of:
inline constexpr const char* Directly = "settings";    // names, units and types of the columns were found too
inline constexpr const char* ByCopy = "copy";          // of which the settings are

// Of the times.
inline constexpr const char* Epoch = "epoch";
inline constexpr const char* EpochText = "1970-01-01T00:00:00Z";

// Of a signal's group; Name and Unit of the times too.
inline constexpr const char* Symbol = "symbol";
inline constexpr const char* Unit = "unit";
inline constexpr const char* Column = "column";  // from 0, in the source; -1: unknown
inline constexpr const char* Type = "type";      // an EKelvarinType
inline constexpr const char* MetaData = "metadata";

// Data sets.
inline constexpr const char* Time = "time";
inline constexpr const char* Value = "value";
inline constexpr const char* Valid = "valid";
inline constexpr const char* Text = "text";
inline constexpr const char* Length = "length";
}  // namespace Layout

// How an attribute holds several texts.
inline std::string JoinLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += (text.empty() ? "" : "\n") + line;
    return text;
}
}  // namespace kelvarin::hdf5
