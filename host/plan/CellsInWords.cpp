#include "host/plan/CellsInWords.h"

#include "host/Words.h"
#include "host/language/Phrase.h"

namespace kelvarin::plan {
std::string CellsInWords(const CellCounts& cells) {
    std::string words;
    const auto add = [&words](const std::string& what, std::uint64_t count) {
        if (count == 0) return;
        if (!words.empty()) words += ", ";
        words += what + ": " + std::to_string(count);
    };
    add(Phrase("decimal numbers"), cells.Decimal);
    add(Phrase("whole numbers"), cells.Whole);
    add(Phrase("truth values"), cells.Truth);
    add(Phrase("numbers with a unit"), cells.Amounts);
    add(Phrase("texts"), cells.Text - cells.Amounts);
    if (cells.Text > cells.Amounts) words += " (" + Quoted(cells.Word, 24) + ")";
    add(Phrase("marks of missing values"), cells.Missing);
    add(Phrase("empty cells"), cells.Empty);
    return words;
}
}  // namespace kelvarin::plan
