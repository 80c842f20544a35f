#include "host/language/Phrase.h"

#include <unordered_map>

#include "host/language/GermanTexts.h"

namespace kelvarin {

namespace {

using Dictionary = std::unordered_map<std::string_view, std::string_view>;

Dictionary LoadGerman() {
    Dictionary words;
    for (const auto texts : {GermanImportTexts, GermanShellTexts, GermanExplainTexts, GermanCheckTexts,
                             GermanGuessTexts, GermanManyTexts, GermanArchiveTexts}) {
        for (const Translation& text : texts()) words.emplace(text.English, text.German);
    }
    return words;
}

Dictionary s_Words;

}  // namespace

void SetPhraseLanguage(std::string_view code) {
    s_Words = code == "de" ? LoadGerman() : Dictionary();
}

std::string FillPhrase(std::string_view english, const std::vector<std::string>& parts) {
    const auto found = s_Words.find(english);
    const std::string_view phrase = found == s_Words.end() ? english : found->second;
    std::string text;
    std::size_t next = 0;
    for (std::size_t i = 0; i < phrase.size(); ++i) {
        const std::size_t end = phrase[i] == '{' ? phrase.find('}', i) : std::string_view::npos;
        if (end == std::string_view::npos) {
            text += phrase[i];
            continue;
        }
        const std::size_t part = end == i + 2 ? static_cast<std::size_t>(phrase[i + 1] - '0') : next++;
        if (part < parts.size()) text += parts[part];
        i = end;
    }
    return text;
}

}  // namespace kelvarin
