// Text in UTF-16: conversion to and from UTF-8, and the few tests on characters that the module needs.
// Nothing here depends on the process's locale.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Copies the ASCII characters at the start of `bytes` to `out`, one code unit each, and answers how many they
// are. `out` must have room for `bytes.size()` units.
std::size_t WidenAscii(std::string_view bytes, char16_t* out);

// Decodes `bytes` as strict UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF) into `text`.
// False for anything else; `text` is then undefined. The storage of `text` is reused.
bool DecodeUtf8(std::string_view bytes, std::u16string& text);

// UTF-8 to UTF-16; every byte that belongs to no valid sequence becomes U+FFFD.
std::u16string Utf8ToUtf16(std::string_view bytes);

// The code point at the start of `bytes`, which must not be empty, and how many bytes it takes; U+FFFD of one
// byte where no valid sequence starts.
char32_t DecodeUtf8Point(std::string_view bytes, std::size_t& length);

// Appends one code point up to U+10FFFF as UTF-8.
void AppendUtf8(char32_t point, std::string& out);

// UTF-16 to UTF-8; a lone surrogate becomes U+FFFD.
std::string Utf16ToUtf8(std::u16string_view text);

// Space, tab, line feed, vertical tab, form feed, carriage return. No other character is white space anywhere
// in this system.
constexpr bool IsWhiteSpace(char16_t c) {
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

// "0" to "9" of ASCII only.
constexpr bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

// The view without white space at both ends.
std::u16string_view TrimWhiteSpace(std::u16string_view text);

// True if both texts are equal, the letters A to Z compared without regard to case.
bool EqualsIgnoreCase(std::u16string_view a, std::u16string_view b);

// `text` with every occurrence of `what` replaced by `with`, from left to right. `what` must not be empty.
std::u16string ReplaceAll(std::u16string text, std::u16string_view what, std::u16string_view with);
