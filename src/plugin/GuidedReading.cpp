// What the host knows of the file, over what the analysis has found.
#include <algorithm>
#include <utility>

#include "plugin/CsvImportFilter.h"
#include "timestamp/FormatLetters.h"

void CFilterInterfaces::ChooseColumns(std::vector<ColumnChoice> choices) {
    Owner.ChooseColumns(std::move(choices));
}

void CFilterInterfaces::FollowGuide(IReadingGuide* guide) {
    Owner.FollowGuide(guide);
}

void CFilterInterfaces::ReadFormatsBy(const std::u16string& letters) {
    if (letters.size() == LetterCount) Owner.ReadFormatsBy(letters);
}

const FieldAlphabet& CCsvImportFilter::Alphabet() const {
    return ChosenAlphabet ? *ChosenAlphabet : GetFieldAlphabet();
}

void CCsvImportFilter::ApplyColumnChoices() {
    for (const ColumnChoice& choice : ColumnChoices) {
        if (choice.Column < 0) continue;
        Settings.ColumnCount = std::max(Settings.ColumnCount, choice.Column + 1);
        CCsvColumnInfo& info = Settings.GetColumn(choice.Column);
        if (!choice.Name.empty()) info.UserName = choice.Name;
        if (choice.Type >= CsvTypeBoolean && choice.Type <= CsvTypeString)
            info.UserType = static_cast<ECsvDataType>(choice.Type);
        // Without a cell among the first rows the analysis leaves a column out.
        info.ImportColumn = choice.Import && info.GetEffectiveType() != CsvTypeUndefined;
    }
}

const std::u16string& CCsvImportFilter::ChosenUnit(int column) const {
    static const std::u16string none;
    const auto choice = std::find_if(ColumnChoices.begin(), ColumnChoices.end(),
                                     [column](const ColumnChoice& one) { return one.Column == column; });
    return choice == ColumnChoices.end() ? none : choice->Unit;
}
