// The text of a profile file: "[section]" lines and "key=value" lines. A value is a decimal number, a text in
// double quotes (with \" \\ \n \r), or hex: followed by two digits per byte. Any other line is kept as it is.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/framework/ProfileStore.h"

// One profile file in memory, as lines of UTF-8.
class ProfileText {
  public:
    explicit ProfileText(std::string_view bytes);

    // The text behind "key=" in the section, or nothing. The first of several counts.
    std::optional<std::string> Find(const std::string& section, const std::string& key) const;

    // Sets the text behind "key=", in place or at the end of the section, which is made if it is missing.
    void Set(const std::string& section, const std::string& key, const std::string& value);

    // The whole file, every line ended by a line feed.
    std::string ToBytes() const;

  private:
    // Index of the line that holds the key, or where it is to be inserted.
    struct Place {
        std::size_t Line;
        bool Found;
        bool SectionFound;
    };
    Place Locate(const std::string& section, const std::string& key) const;

    bool HasMark;  // a byte order mark, which stays
    std::vector<std::string> Lines;
};

// The three kinds of value, to and from the text behind "key=". Reading answers nothing for another kind.
std::string QuoteProfileText(const std::u16string& text);
std::optional<std::u16string> UnquoteProfileText(std::string_view value);
std::string BlockToProfileText(const ProfileBlock& block);
std::optional<ProfileBlock> BlockFromProfileText(std::string_view value);
std::optional<std::int32_t> IntFromProfileText(std::string_view value);
