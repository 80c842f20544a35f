// How sure an automatic finding is.
#pragma once

#include <string>

namespace kelvarin {
enum class Certainty { Certain, Likely, Uncertain };

// "certain", "likely" or "a guess".
std::string CertaintyInWords(Certainty certainty);
}  // namespace kelvarin
