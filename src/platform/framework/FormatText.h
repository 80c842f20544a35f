// Fills the placeholders of a resource text. Type-safe, unlike C varargs: a text from a language module can
// name the wrong placeholder, and must then read oddly but never crash.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

// One argument of FormatText: a text or a whole number. Refers to the caller's text; lives for the call only.
class FormatArgument {
  public:
    FormatArgument(std::u16string_view text) : Text(text) {}
    FormatArgument(const std::u16string& text) : Text(text) {}
    FormatArgument(const char16_t* text) : Text(text) {}
    FormatArgument(std::int32_t number) : Number(number), IsNumber(true) {}
    FormatArgument(std::uint32_t number) : Number(number), IsNumber(true) {}
    FormatArgument(std::int64_t number) : Number(number), IsNumber(true) {}

    // The argument as text; a number in decimal.
    std::u16string ToText() const;

  private:
    std::u16string_view Text;
    std::int64_t Number = 0;
    bool IsNumber = false;
};

// The format with each of %s, %i, %d, %u replaced by the next argument, and %% by a percent sign. An argument
// that is missing gives nothing; any other character behind a percent sign stays with it.
std::u16string FormatText(std::u16string_view format, std::initializer_list<FormatArgument> arguments);

template <class... Arguments>
std::u16string FormatText(std::u16string_view format, const Arguments&... arguments) {
    return FormatText(format, std::initializer_list<FormatArgument>{FormatArgument(arguments)...});
}
