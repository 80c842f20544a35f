// What the program says, in German: a table per area.
#pragma once

#include <span>
#include <string_view>

namespace kelvarin {

struct Translation {
    std::string_view English;
    std::string_view German;
};

std::span<const Translation> GermanCheckTexts();
std::span<const Translation> GermanImportTexts();
std::span<const Translation> GermanShellTexts();
std::span<const Translation> GermanExplainTexts();
std::span<const Translation> GermanGuessTexts();
std::span<const Translation> GermanManyTexts();
std::span<const Translation> GermanArchiveTexts();

}  // namespace kelvarin
