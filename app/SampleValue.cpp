#include "app/SampleValue.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <nlohmann/json.hpp>

#include "host/DataStore.h"
#include "platform/framework/Text.h"

namespace {

template <class Value>
Value Load(const void* data) {
    Value value;
    std::memcpy(&value, data, sizeof value);
    return value;
}

std::u16string LoadText(const void* data, std::uint32_t size) {
    std::u16string text(size / sizeof(char16_t), u'\0');
    if (size != 0) std::memcpy(text.data(), data, size);
    return text;
}

// The shortest digits that read back as the same double.
std::string Digits(double number) {
    constexpr std::size_t Capacity = 32;
    char digits[Capacity];
    const std::to_chars_result end = std::to_chars(digits, digits + Capacity, number);
    return {digits, end.ptr};
}

std::string JsonNumber(double number) {
    if (std::isnan(number)) return "\"NaN\"";
    if (std::isinf(number)) return number > 0 ? "\"Infinity\"" : "\"-Infinity\"";
    std::string digits = Digits(number);
    if (digits.find_first_of(".e") == std::string::npos) digits += ".0";
    return digits;
}

}  // namespace

std::string SampleText(std::uint32_t type, const void* data, std::uint32_t size) {
    switch (type) {
        case KelvarinDouble:
            return Digits(Load<double>(data));
        case KelvarinChar16:
            return Utf16ToUtf8(std::u16string(1, Load<char16_t>(data)));
        case KelvarinString:
            return "\"" + Utf16ToUtf8(LoadText(data, size)) + "\"";
        default:
            return SampleJson(type, data, size);
    }
}

std::string SampleJson(std::uint32_t type, const void* data, std::uint32_t size) {
    switch (type) {
        case KelvarinBool:
            return Load<std::uint8_t>(data) != 0 ? "true" : "false";
        case KelvarinInt64:
            return std::to_string(Load<std::int64_t>(data));
        case KelvarinDouble:
            return JsonNumber(Load<double>(data));
        case KelvarinChar16:
            return std::to_string(Load<char16_t>(data));
        default:
            return nlohmann::json(Utf16ToUtf8(LoadText(data, size))).dump();
    }
}
