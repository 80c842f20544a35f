// Texts for people, in the user's language. They are in English where they are said, so that the code reads;
// other languages have tables from English, the library's in this folder and each front end's in its own. A
// new language of the library is its tables and a row in Phrase.cpp.
#pragma once

#include <concepts>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin {
struct Translation {
    std::string_view English;
    std::string_view Own;
};

// The language of the library's texts from now on, by its code in ISO 639; English before the first call and
// for a code that has no tables. Phrases may be asked for on any thread, but not while the language changes.
void SetPhraseLanguage(std::string_view code);

// Adds texts of a front end in one language, which count if that is the one in force.
void AddPhrases(std::string_view code, std::span<const Translation> texts);

// True if the library's texts are there in this language.
bool HasTexts(std::string_view code);

// The codes of the languages that have texts, with a separator between each two.
std::string TextLanguages(std::string_view separator);

// The library's own tables, one per area.
std::span<const Translation> GermanHostTexts();
std::span<const Translation> GermanArchiveTexts();
std::span<const Translation> GermanCheckTexts();
std::span<const Translation> GermanExplainTexts();
std::span<const Translation> GermanGuessTexts();
std::span<const Translation> GermanPlanTexts();

// The text in the user's language, with the parts put in: "{}" takes the next one, "{2}" the third. A
// translation may name them in another order.
std::string FillPhrase(std::string_view english, const std::vector<std::string>& parts);

inline std::string PhrasePart(std::string_view text) {
    return std::string(text);
}

template <std::integral Whole>
std::string PhrasePart(Whole number) {
    return std::to_string(number);
}

// As FillPhrase, for texts and whole numbers. `english` is a literal, so that tools/check-phrases finds it.
template <typename... Parts>
std::string Phrase(std::string_view english, const Parts&... parts) {
    return FillPhrase(english, {PhrasePart(parts)...});
}
}  // namespace kelvarin
