#include "host/plan/FixedTable.h"

#include <algorithm>
#include <string_view>

namespace kelvarin::plan {
FixedTable TableOf(const Reading& reading) {
    const bool hasNames = reading.HeaderLine != 0;
    const int line = hasNames ? reading.HeaderLine : reading.FirstDataLine;
    return {reading.SeparatorSign(), reading.MergeSeparators, static_cast<std::uint64_t>(line), hasNames};
}

FixedTable TableFixedBy(CImportFilter& filter, const std::vector<ParsedSetting>& chosen) {
    const auto isChosen = [&chosen](std::u16string_view key) {
        return std::any_of(chosen.begin(), chosen.end(),
                           [key](const ParsedSetting& setting) { return setting.Key == key; });
    };
    const CCsvImportSettings* const settings = SettingsOf(filter);
    if (settings == nullptr) return {};
    if (settings->AutoFormat != 0 && isChosen(u"AutoFormat")) filter.AnalyzeFile();
    if (settings->AutoFormat == 0 || isChosen(u"AutoFormat")) return TableOf(ReadingOf(filter));
    FixedTable fixed;
    const bool isOther = settings->Separator == SeparatorOther && isChosen(u"OtherSeparator");
    if (isChosen(u"Separator") || isOther) fixed.Separator = ReadingOf(filter).SeparatorSign();
    if (isChosen(u"MergeSeparators")) fixed.Merges = settings->MergeSeparators != 0;
    if (isChosen(u"FirstLine")) fixed.FirstLine = static_cast<std::uint64_t>(settings->FirstLine);
    if (isChosen(u"ImportHeader")) fixed.HasNames = settings->ImportHeader != 0;
    return fixed;
}
}  // namespace kelvarin::plan
