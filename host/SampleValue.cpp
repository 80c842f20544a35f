#include "host/SampleValue.h"

#include <charconv>
#include <cstring>

#include "contract/DataStore.h"
#include "platform/framework/Text.h"

namespace kelvarin {

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

}  // namespace

std::string SampleText(std::uint32_t type, const void* data, std::uint32_t size) {
    switch (type) {
        case KelvarinBool:
            return Load<std::uint8_t>(data) != 0 ? "true" : "false";
        case KelvarinInt64:
            return std::to_string(Load<std::int64_t>(data));
        case KelvarinDouble:
            return Digits(Load<double>(data));
        case KelvarinChar16:
            return Utf16ToUtf8(std::u16string(1, Load<char16_t>(data)));
        default:
            return "\"" + Utf16ToUtf8(LoadText(data, size)) + "\"";
    }
}

}  // namespace kelvarin
