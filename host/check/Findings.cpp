#include "host/check/Findings.h"

#include <algorithm>

#include "host/check/CheckWords.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::check {

namespace {

// How files write that there is no value.
bool IsWordForNothing(const std::u16string& cell) {
    constexpr std::u16string_view Words[] = {u"nan", u"na", u"n/a", u"null", u"none",
                                             u"-",   u"--", u"---", u"?"};
    const std::u16string_view text = TrimWhiteSpace(cell);
    return text.empty() || std::any_of(std::begin(Words), std::end(Words), [&](std::u16string_view word) {
               return EqualsIgnoreCase(text, word);
           });
}

bool AreWordsForNothing(const FilePlaces& cells) {
    const std::vector<FilePlace>& first = cells.FirstFew();
    return IsWordForNothing(cells.Last().Text) &&
           std::all_of(first.begin(), first.end(),
                       [](const FilePlace& place) { return IsWordForNothing(place.Text); });
}

void JudgeCells(const CheckResult& result, std::vector<Finding>& findings) {
    std::uint64_t columns = 0;
    std::uint64_t cells = 0;
    std::string words;
    bool onlyWords = true;
    for (const ColumnCheck& column : result.Columns) {
        if (column.Refused.Count() == 0) continue;
        ++columns;
        cells += column.Refused.Count();
        onlyWords &= AreWordsForNothing(column.Refused);
        if (words.empty()) words = Quoted(column.Refused.FirstFew().front().Text);
    }
    if (cells == 0) return;
    findings.push_back(
        {"refusedCells", true,
         Phrase("{} refused for not being of their column's type, in {}; their samples have no value",
                CellsInWords(cells), columns == 1 ? Phrase("1 column") : Phrase("{} columns", columns)),
         onlyWords ? Phrase("those seen are the file's word for no value, such as {}: "
                            "nothing is lost",
                            words)
                   : Phrase("mend them in a file of their own: --rejects FILE --reject-cells; or "
                            "give the column a type that takes them, in the dialog's page of "
                            "signals")});
}

void JudgeBlankLines(const CheckResult& result, std::vector<Finding>& findings) {
    if (result.Blank.Count() == 0) return;
    findings.push_back({"blankLines",
                        false,
                        Phrase("blank lines in the table: {}; the module's own line numbers don't count them",
                               LinesInWords(result.Blank)),
                        {}});
}

void JudgeSidecar(const CheckResult& result, std::vector<Finding>& findings) {
    if (result.Failure.empty() || result.Failed) return;
    findings.push_back({"sidecar", true, Utf16ToUtf8(result.Failure), {}});
}

}  // namespace

std::vector<Finding> Judge(const CheckResult& result, const std::string& timeAdvice) {
    std::vector<Finding> findings;
    if (result.Series == nullptr) return findings;
    JudgeSidecar(result, findings);
    JudgeDropped(result, timeAdvice, findings);
    JudgeCells(result, findings);
    JudgeTimes(result, findings);
    JudgeBlankLines(result, findings);
    std::stable_partition(findings.begin(), findings.end(), [](const Finding& f) { return f.IsFault; });
    return findings;
}

}  // namespace kelvarin::check
