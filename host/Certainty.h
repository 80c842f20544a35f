// How sure an automatic finding is.
#pragma once

#include <string>
#include <vector>

namespace kelvarin {
enum class Certainty { Certain, Likely, Uncertain };

// "certain", "likely" or "a guess".
std::string CertaintyInWords(Certainty certainty);

// "certain", "likely" or "guess", the same in every language.
const char* CodeOf(Certainty certainty);

// One assumption about a file, in UTF-8 and in the language in force.
struct Assumption {
    std::string Kind;  // "table", "times", "rows", "units", "types" or "copy"
    std::string Text;  // what was found
    Certainty Sureness = Certainty::Certain;
    std::vector<std::string> Objections = {};  // what speaks against it, a phrase each
};
}  // namespace kelvarin
