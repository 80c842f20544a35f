#include "host/plan/CopyInWords.h"

#include "host/language/Phrase.h"

namespace kelvarin::plan {
std::string LinesInWords(const LinesLeftOut& lines) {
    std::string numbers;
    for (const std::uint64_t number : lines.First)
        numbers += (numbers.empty() ? "" : ", ") + std::to_string(number);
    if (lines.Count > lines.First.size()) numbers += " ...";
    return lines.Count == 1 ? Phrase("{} (line {})", lines.Count, numbers)
                            : Phrase("{} (lines {})", lines.Count, numbers);
}

std::string CopyInWords(const CopyResult& copy) {
    std::string text = Phrase("no settings read this file, so a clean copy is read in its place");
    const auto add = [&text](const std::string& what) { text += "; " + what; };
    if (copy.Sorted) add(Phrase("rows sorted by their times"));
    if (copy.Shift != 0) add(Phrase("times shifted so that the first is 0"));
    if (copy.Rows.Headers.Count != 0) add(Phrase("headers left out: {}", LinesInWords(copy.Rows.Headers)));
    if (copy.Rows.Timeless.Count != 0)
        add(Phrase("lines without a time left out: {}", LinesInWords(copy.Rows.Timeless)));
    if (copy.Rows.OtherTable.Count != 0)
        add(Phrase("rows of other tables left out: {}", LinesInWords(copy.Rows.OtherTable)));
    if (copy.Rows.Totals.Count != 0)
        add(Phrase("a last row that sums up the others left out: {}", LinesInWords(copy.Rows.Totals)));
    if (copy.Changes.Values != 0) add(Phrase("values rewritten: {}", copy.Changes.Values));
    return text;
}
}  // namespace kelvarin::plan
