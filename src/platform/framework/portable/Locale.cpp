#include "platform/framework/Locale.h"

#include <langinfo.h>

#include <clocale>
#include <ctime>
#include <cuchar>
#include <string_view>

#include "platform/framework/Text.h"

namespace {

// A text of the runtime, in the encoding of the locale's characters. One that isn't in that encoding, as its
// category has another, is read as UTF-8.
std::u16string DecodeLocaleText(std::string_view text) {
    std::string decoded;
    std::mbstate_t state{};
    for (std::string_view rest = text; !rest.empty();) {
        char32_t point = 0;
        const std::size_t length = std::mbrtoc32(&point, rest.data(), rest.size(), &state);
        if (length == 0 || length > rest.size()) return Utf8ToUtf16(text);
        AppendUtf8(point, decoded);
        rest.remove_prefix(length);
    }
    return Utf8ToUtf16(decoded);
}

std::u16string LocalTimeText(std::int64_t seconds, const char* format) {
    const std::time_t moment = seconds;
    std::tm local{};
    if (localtime_r(&moment, &local) == nullptr) return {};
    constexpr std::size_t Capacity = 512;
    char text[Capacity];
    return DecodeLocaleText({text, std::strftime(text, Capacity, format, &local)});
}

}  // namespace

void UseUserLocale() {
    std::setlocale(LC_ALL, "");
}

std::string SystemLanguage() {
    return {};  // here the environment alone says it
}

char16_t LocaleDecimalPoint() {
    // The same text as localeconv's decimal_point, without filling the whole record once per cell.
    const char* const point = nl_langinfo(RADIXCHAR);
    const auto first = static_cast<unsigned char>(*point);
    if (first == 0) return u'.';
    return first < 0x80 ? first : DecodeLocaleText(point).front();
}

std::u16string LocaleDate(std::int64_t seconds) {
    return LocalTimeText(seconds, "%x");
}

std::u16string LocaleTime(std::int64_t seconds) {
    return LocalTimeText(seconds, "%X");
}

std::int64_t CurrentSeconds() {
    return std::time(nullptr);
}

bool ToLocalTime(std::int64_t seconds, LocalTime& local) {
    const std::time_t moment = seconds;
    std::tm parts{};
    if (localtime_r(&moment, &parts) == nullptr) return false;
    local = {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
             parts.tm_hour,        parts.tm_min,     parts.tm_sec};
    return true;
}
