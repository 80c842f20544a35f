#include "timestamp/FormatLetters.h"

#include "resources/ModuleResources.h"
#include "resources/ResourceIds.h"

namespace {

std::u16string s_FormatLetters;
std::u16string s_NeutralLetters;

// Loads a letter string while it is empty. A table without it gives letters that no format holds.
const std::u16string& LoadLetters(std::u16string& letters, unsigned id) {
    if (letters.empty()) {
        letters = CsvImportModule().LoadString(id);
        letters.resize(LetterCount, u'\0');
    }
    return letters;
}

}  // namespace

const std::u16string& GetFormatLetters() {
    return LoadLetters(s_FormatLetters, IdFormatLetters);
}

void LocalizeFormatLetters(std::u16string& format) {
    const std::u16string& own = GetFormatLetters();
    const std::u16string& neutral = LoadLetters(s_NeutralLetters, IdNeutralFormatLetters);
    for (std::size_t i = 0; i < LetterCount; ++i) {
        for (char16_t& c : format) {
            if (c == neutral[i]) c = own[i];
        }
    }
}
