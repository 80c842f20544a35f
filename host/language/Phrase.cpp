#include "host/language/Phrase.h"

#include <algorithm>
#include <unordered_map>

namespace kelvarin {
namespace {
using TextTable = std::span<const Translation> (*)();

constexpr TextTable German[] = {GermanHostTexts,    GermanArchiveTexts, GermanCheckTexts,
                                GermanExplainTexts, GermanGuessTexts,   GermanPlanTexts};

struct Language {
    std::string_view Code;
    std::span<const TextTable> Tables;
};

constexpr Language Languages[] = {{"de", German}, {"en", {}}};

std::string_view s_Code = "en";
std::unordered_map<std::string_view, std::string_view> s_Words;  // from English

const Language* FindLanguage(std::string_view code) {
    const auto found = std::find_if(std::begin(Languages), std::end(Languages),
                                    [&](const Language& language) { return language.Code == code; });
    return found == std::end(Languages) ? nullptr : found;
}
}  // namespace

void SetPhraseLanguage(std::string_view code) {
    s_Words.clear();
    const Language* const language = FindLanguage(code);
    s_Code = language == nullptr ? "en" : language->Code;
    if (language == nullptr) return;
    for (const TextTable table : language->Tables) AddPhrases(s_Code, table());
}

void AddPhrases(std::string_view code, std::span<const Translation> texts) {
    if (code != s_Code) return;
    for (const Translation& text : texts) s_Words.emplace(text.English, text.Own);
}

bool HasTexts(std::string_view code) {
    return FindLanguage(code) != nullptr;
}

std::string TextLanguages(std::string_view separator) {
    std::string codes;
    for (const Language& language : Languages) {
        if (!codes.empty()) codes += separator;
        codes += language.Code;
    }
    return codes;
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
