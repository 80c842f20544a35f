// Any text as a line: the cells lie in the line's own buffer and are those that the grammar gives.
#include <fuzzer/FuzzedDataProvider.h>

#include "analysis/SplitLine.h"
#include "analysis/SplitPaddedLine.h"
#include "fuzz/kit/Check.h"
#include "kit/WalkCells.h"
#include "settings/CsvImportSettings.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const auto index = input.ConsumeIntegralInRange<unsigned>(0, 4);
    const bool merge = input.ConsumeBool(), oddSeparator = input.ConsumeBool();
    const char16_t separator = oddSeparator ? u'µ' : SeparatorCharOf(index);
    static CellList kept;  // as a run keeps it from line to line
    const std::u16string line = Utf8ToUtf16(input.ConsumeRemainingBytesAsString());
    const std::vector<std::u16string> expected = WalkCells(line, separator, merge);
    const SeparatorCounts counts = CountSeparators(line);
    const bool isPlain = line.find_first_of(std::u16string_view(u"\0\n\r'", 4)) == line.npos;

    const std::size_t length = line.size();
    for (const bool padded : {false, true}) {
        std::u16string text = line;
        if (padded) text.append(LinePadding, u'\0');
        text.shrink_to_fit();  // so that AddressSanitizer sees what is read behind it
        (padded ? SplitPaddedLine : SplitLine)(text.data(), separator, merge, kept);
        Check(kept.size() == expected.size(), "as many cells as the grammar gives");
        for (std::size_t i = 0; i < kept.size(); ++i) {
            const bool inside = kept[i] >= text.data() && kept[i] <= text.data() + length;
            Check(inside && (i == 0 || kept[i] > kept[i - 1]), "cells lie in the line, in order");
            Check(kept[i] == expected[i], "the cells are those of the grammar");
        }
    }
    if (isPlain && !merge && !oddSeparator && index < FixedSeparatorCount) {
        Check(static_cast<std::size_t>(counts[index].All) + 1 == kept.size(), "a cell more than separators");
    }
    return 0;
}
