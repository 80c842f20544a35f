// A small XML text read into a tree.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// An element with its attributes, its own text (references replaced, CDATA included, children left out) and
// its children, in the order of the text.
struct XmlElement {
    std::string Name;
    std::vector<std::pair<std::string, std::string>> Attributes;
    std::string Text;
    std::vector<XmlElement> Children;
    std::size_t Offset = 0;  // byte position of its "<"

    // The first child of this name, or null.
    const XmlElement* FindChild(std::string_view name) const;

    // The value of an attribute, or null.
    const std::string* FindAttribute(std::string_view name) const;
};

// Where a text stops being well-formed, and why.
struct XmlError {
    std::size_t Offset = 0;  // byte position
    std::string Reason;      // a clause in English, without a full stop
};

// Reads a text in UTF-8 strictly; the grammar stands in XmlDocument.cpp. Nothing, with `error` filled, if it
// is not well-formed or beyond the limits: 1 MiB, 64 elements deep, no document type. Reads nothing outside
// the text.
std::optional<XmlElement> ReadXmlDocument(std::string_view text, XmlError& error);
