// Any text as a cell: numbers are those of the runtime, the short way finds what the long one does, and what
// the analysis calls a type the run accepts as that type.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "analysis/SplitPaddedLine.h"
#include "analysis/TextCells.h"
#include "analysis/TypeCandidates.h"
#include "fuzz/kit/Check.h"
#include "kit/FakeHost.h"
#include "platform/framework/Numbers.h"
#include "plugin/SampleWriter.h"

namespace {

bool SameNumber(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) || std::memcmp(&a, &b, sizeof a) == 0;
}

void CheckNumbers(const std::u16string& text) {
    const std::string narrow(text.begin(), text.end());
    const char16_t* end = nullptr;
    char* narrowEnd = nullptr;
    const auto sameEnd = [&] { return end - text.c_str() == narrowEnd - narrow.c_str(); };
    const double number = ParseDouble(text.c_str(), u'.', &end);
    Check(SameNumber(number, std::strtod(narrow.c_str(), &narrowEnd)) && sameEnd(), "a number as strtod's");
    for (const int radix : {10, 16}) {
        const std::int64_t integer = ParseInt64(text.c_str(), &end, radix);
        Check(integer == std::strtoll(narrow.c_str(), &narrowEnd, radix) && sameEnd(), "as strtoll's");
    }
}

void CheckShortWay(std::u16string text) {
    double number = 0.0;
    const char16_t* mark = nullptr;
    const char16_t* end = nullptr;
    if (!ParseShortDecimal(text.c_str(), number, &mark)) return;
    if (mark != nullptr) text[static_cast<std::size_t>(mark - text.c_str())] = u'.';
    Check(SameNumber(number, ParseDouble(text.c_str(), u'.', &end)), "the short way is exact");
    Check(*end == u'\0', "the short way takes whole texts");
}

void CheckTypes(const std::u16string& text) {
    CCsvColumnInfo column;
    column.TypeCandidates.fill(true);
    NarrowTypes(column, text.c_str());
    const CCsvColumnInfo once = column;
    Check(once.DetectedType >= CsvTypeBoolean && once.DetectedType <= CsvTypeString, "every cell has a type");
    NarrowTypes(column, text.c_str());
    Check(column.TypeCandidates == once.TypeCandidates && column.DetectedType == once.DetectedType &&
              column.Unit == once.Unit,
          "the same cell again changes nothing");
    FakeSignal signal(u"", KelvarinString, 0, 0);
    for (int type = CsvTypeBoolean; type <= CsvTypeString; ++type) {
        CCsvColumnInfo fresh = once;
        std::vector<SampleColumn> targets = {{0, static_cast<ECsvDataType>(type), false, &fresh, &signal}};
        std::u16string cell = text + std::u16string(LinePadding, u'\0');
        WriteSamples(targets, {cell.data()}, type, [](const SampleColumn&, const char16_t*) {});
        const bool isRefused = signal.Values.back().starts_with("none(");
        Check(!isRefused || type != once.DetectedType, "a run accepts what the analysis saw");
    }
    Check(signal.Count == CsvTypeString, "each cell is a sample");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), std::min<std::size_t>(size, 511));
    std::u16string text = Utf8ToUtf16(bytes);
    text.resize(std::char_traits<char16_t>::length(text.c_str()));
    if (text.find_first_not_of(u"\u0001\u007f", 0) != text.npos || text.empty()) CheckTypes(text);
    CheckShortWay(text);
    if (std::all_of(text.begin(), text.end(), [](char16_t c) { return c < 128; })) CheckNumbers(text);
    return 0;
}
