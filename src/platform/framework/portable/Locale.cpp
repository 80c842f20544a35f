#include "platform/framework/Locale.h"

#include <langinfo.h>

#include <clocale>
#include <ctime>

#include "platform/framework/Text.h"

void UseUserLocale() {
    std::setlocale(LC_ALL, "");
}

std::string SystemLanguage() {
    return {};  // here the environment alone says it
}

char16_t LocaleDecimalPoint() {
    // The same text as localeconv's decimal_point, without filling the whole record once per cell.
    const char first = *nl_langinfo(RADIXCHAR);
    return first == 0 ? u'.' : static_cast<unsigned char>(first);
}

std::u16string LocaleDateToday() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    if (localtime_r(&now, &local) == nullptr) return {};
    constexpr std::size_t Capacity = 128;
    char text[Capacity];
    return Utf8ToUtf16({text, std::strftime(text, Capacity, "%x", &local)});
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

std::int64_t FromLocalTime(const LocalTime& local) {
    std::tm parts{};
    parts.tm_year = local.Year - 1900;
    parts.tm_mon = local.Month - 1;
    parts.tm_mday = local.Day;
    parts.tm_hour = local.Hour;
    parts.tm_min = local.Minute;
    parts.tm_sec = local.Second;
    parts.tm_isdst = -1;
    return std::mktime(&parts);
}
