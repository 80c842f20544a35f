#include "contract/FixedTimes.h"
#include "host/check/CheckWords.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "contract/DeviceHost.h"
#include "contract/TimeStamp.h"
#include "host/Words.h"
#include "host/language/Phrase.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"

namespace kelvarin::check {

namespace {

constexpr std::int64_t Second = 1'000'000'000;
constexpr std::int64_t Day = 86'400 * Second;
constexpr std::size_t MostNamed = 5;  // lines, beside the last

std::string ShortNumber(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.6g", value);
    return text.data();
}

}  // namespace

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

std::string LinesInWords(const FilePlaces& places) {
    const std::vector<FilePlace>& first = places.FirstFew();
    if (first.empty()) return {};
    if (places.Count() == 1) return Phrase("line {}", first.front().Line);
    std::string lines;
    const std::size_t named = std::min(first.size(), MostNamed);
    for (std::size_t i = 0; i < named; ++i) lines += (i == 0 ? "" : ", ") + std::to_string(first[i].Line);
    const std::uint64_t last = places.Last().Line;
    if (last != first[named - 1].Line)
        lines += (places.Count() > named + 1 ? " ... " : ", ") + std::to_string(last);
    return Phrase("lines {}", lines);
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

}  // namespace kelvarin::check
