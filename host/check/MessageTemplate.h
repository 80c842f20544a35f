// Reads the values back out of a message of the module.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvarin::check {

// A message's text with its placeholders %s and %i, in whatever language is in force.
class MessageTemplate {
  public:
    explicit MessageTemplate(std::u16string_view text);

    // What stands in the places of the placeholders, in order; empty if the text is another message. Where
    // a value holds the words behind it, they are taken to belong to the first value.
    std::vector<std::u16string> Read(std::u16string_view text) const;

  private:
    std::vector<std::u16string> Pieces;  // between the placeholders, and at both ends
};

}  // namespace kelvarin::check
