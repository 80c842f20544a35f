// The program's own texts in the user's language. They stand in English where they are said, so that the code
// reads; a German table per area stands beside.
#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin {

// The language of the texts from now on: "de" German, every other code English. English before the first
// call.
void SetPhraseLanguage(std::string_view code);

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
