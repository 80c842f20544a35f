// Any text as a cell: numbers are those of the runtime, the short way finds what the long one does, and what
// the analysis calls a type the run accepts as that type.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "analysis/TextCells.h"
#include "analysis/TypeCandidates.h"
#include "fuzz/kit/Check.h"
#include "kit/FakeHost.h"
#include "kit/MemoryFile.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"
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

// The row of one cell that the text's first line is, read in UTF-16 or in bytes.
void ReadRow(RowCells& row, const std::u16string& text, bool inBytes) {
    constexpr std::u16string_view Separators = u";\t|!";
    const std::size_t unused = Separators.find_first_not_of(text.substr(0, 1));
    const std::u16string line = text + u'\n';  // which there is even of an empty text
    MemoryFile file(line, inBytes);
    row.Read(file, Separators[unused], false);
}

void CheckTypes(const std::u16string& text) {
    RowCells row;
    ReadRow(row, text, false);
    const std::u16string cell = row.CellOf(1);
    CCsvColumnInfo column;
    column.TypeCandidates.fill(true);
    NarrowTypes(column, cell.c_str());
    const CCsvColumnInfo once = column;
    Check(once.DetectedType >= CsvTypeBoolean && once.DetectedType <= CsvTypeString, "every cell has a type");
    NarrowTypes(column, cell.c_str());
    Check(column.TypeCandidates == once.TypeCandidates && column.DetectedType == once.DetectedType &&
              column.Unit == once.Unit,
          "the same cell again changes nothing");
    FakeSignal signals[] = {FakeSignal(u"", KelvarinString, 0, 0), FakeSignal(u"", KelvarinString, 0, 0)};
    for (int type = CsvTypeBoolean; type <= CsvTypeString; ++type) {
        for (const bool inBytes : {false, true}) {
            FakeSignal& signal = signals[inBytes];
            CCsvColumnInfo fresh = once;
            std::vector<SampleColumn> targets = {
                {0, static_cast<ECsvDataType>(type), false, &fresh, &signal}};
            ReadRow(row, text, inBytes);
            WriteSamples(targets, row, type, [](const SampleColumn&, const char16_t*) {});
            const bool isRefused = signal.Values.back().starts_with("none(");
            Check(!isRefused || type != once.DetectedType, "a run accepts what the analysis saw");
        }
    }
    Check(signals[0].Count == CsvTypeString, "each cell is a sample");
    Check(signals[0].Values == signals[1].Values, "a line in bytes gives the same samples");
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
