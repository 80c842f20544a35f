#include "host/Words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <iterator>

#include "contract/DataStore.h"
#include "contract/DeviceHost.h"
#include "contract/FixedTimes.h"
#include "contract/TimeStamp.h"
#include "host/language/Phrase.h"
#include "host/plan/Cells.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"
#include "platform/framework/VisibleText.h"

namespace kelvarin {
namespace {
constexpr std::int64_t Second = 1'000'000'000;
constexpr std::int64_t Day = 86'400 * Second;

std::string SeparatorInWords(const Reading& format) {
    std::string separator;
    if (format.Separator >= 0 && format.Separator < SeparatorOther) {
        separator = SeparatorName(format.Separator);
    } else if (!format.OtherSeparator.empty()) {
        separator = "'" + Utf16ToUtf8(format.OtherSeparator.substr(0, 1)) + "'";
    } else {
        return Phrase("no separator");
    }
    return format.MergeSeparators ? Phrase("separated by {}, neighbours merged", separator)
                                  : Phrase("separated by {}", separator);
}

template <class Value>
Value Load(const void* data) {
    Value value;
    std::memcpy(&value, data, sizeof value);
    return value;
}

std::string FirstCharacters(const std::string& text, std::size_t count) {
    const auto isBeyond = [&](char byte) { return StartsCharacter(byte) && count-- == 0; };
    return {text.begin(), std::find_if(text.begin(), text.end(), isBeyond)};
}

std::string ShortNumber(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.6g", value);
    return text.data();
}
}  // namespace

std::string SeparatorName(int separator) {
    const std::string words[] = {Phrase("semicolon"), Phrase("comma"), Phrase("tab"), Phrase("space")};
    return words[separator];
}

std::string FormatInWords(const Reading& format) {
    const std::string separator = SeparatorInWords(format);
    if (format.HeaderLine == 0)
        return Phrase("{}; no header, data from line {}", separator, format.FirstDataLine);
    return Phrase("{}; header in line {}, data from line {}", separator, format.HeaderLine,
                  format.FirstDataLine);
}

std::string DataTypeInWords(int type) {
    const std::string words[] = {Phrase("no type"),           Phrase("boolean"),     Phrase("integer"),
                                 Phrase("integer with unit"), Phrase("hexadecimal"), Phrase("float"),
                                 Phrase("float with unit"),   Phrase("character"),   Phrase("text")};
    return type >= 0 && type < static_cast<int>(std::size(words)) ? words[type] : words[0];
}

std::string ShortestText(double number) {
    if (std::isnan(number)) return "nan";  // without the sign that it may have
    constexpr std::size_t Capacity = 32;
    char digits[Capacity];
    return {digits, std::to_chars(digits, digits + Capacity, number).ptr};
}

std::string SampleText(std::uint32_t type, const void* data, std::uint32_t size) {
    switch (type) {
        case KelvarinBool:
            return Load<std::uint8_t>(data) != 0 ? "true" : "false";
        case KelvarinInt64:
            return std::to_string(Load<std::int64_t>(data));
        case KelvarinDouble:
            return ShortestText(Load<double>(data));
        case KelvarinChar16:
            return Utf16ToUtf8(std::u16string(1, Load<char16_t>(data)));
        default:
            break;
    }
    std::u16string text(size / sizeof(char16_t), u'\0');
    if (size != 0) std::memcpy(text.data(), data, size);
    return "\"" + Utf16ToUtf8(text) + "\"";
}

std::size_t TextWidth(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), StartsCharacter));
}

std::string OneLine(const std::string& text, std::size_t width) {
    // What is made visible only grows, so that the rest of a long text need not be looked at.
    const std::string shown = MakeVisible(FirstCharacters(text, width + 1));
    return TextWidth(shown) <= width ? shown : FirstCharacters(shown, width) + "…";
}

std::string MomentInWords(const Reading& format, std::int64_t time) {
    if (format.DateSetting != DateNone) return Utf16ToUtf8(CTimeStamp(time).ToText());
    return Utf16ToUtf8(CTimeStampSpan(WrappingSubtract(time, RelativeTimeEpoch)).ToText());
}

std::string SpanInWords(std::int64_t nanoseconds) {
    if (nanoseconds < 120 * Second) return SpanInWords(static_cast<double>(nanoseconds));
    const std::int64_t days = nanoseconds < 2 * Day ? 0 : nanoseconds / Day;
    const std::string rest = Utf16ToUtf8(CTimeStampSpan(nanoseconds - days * Day).ToText());
    if (days == 0) return rest;
    return nanoseconds % Day == 0 ? Phrase("{} days", days) : Phrase("{} days {}", days, rest);
}

std::string SpanInWords(double nanoseconds) {
    if (nanoseconds < 1e3) return ShortNumber(nanoseconds) + " ns";
    if (nanoseconds < 1e6) return ShortNumber(nanoseconds / 1e3) + " µs";
    if (nanoseconds < 1e9) return ShortNumber(nanoseconds / 1e6) + " ms";
    return ShortNumber(nanoseconds / 1e9) + " s";
}

std::string RowsInWords(std::uint64_t count) {
    return count == 1 ? Phrase("1 row") : Phrase("{} rows", count);
}

std::string CellsInWords(std::uint64_t count) {
    return count == 1 ? Phrase("1 cell") : Phrase("{} cells", count);
}

std::string Quoted(const std::u16string& text, std::size_t width) {
    std::u16string shown(TrimWhiteSpace(text));
    std::replace(shown.begin(), shown.end(), u'\t', u' ');
    return "\"" + OneLine(Utf16ToUtf8(shown), width) + "\"";
}

bool IsMissingValue(std::u16string_view text) {
    return plan::IsMissing(TrimWhiteSpace(text));
}
}  // namespace kelvarin
