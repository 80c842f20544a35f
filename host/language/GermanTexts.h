// What the library says, in German: a table per area.
#pragma once

#include "host/language/Phrase.h"

namespace kelvarin {

std::span<const Translation> GermanHostTexts();
std::span<const Translation> GermanArchiveTexts();
std::span<const Translation> GermanCheckTexts();
std::span<const Translation> GermanExplainTexts();
std::span<const Translation> GermanGuessTexts();

}  // namespace kelvarin
