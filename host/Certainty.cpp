#include "host/Certainty.h"

#include "host/language/Phrase.h"

namespace kelvarin {
std::string CertaintyInWords(Certainty certainty) {
    if (certainty == Certainty::Certain) return Phrase("certain");
    return certainty == Certainty::Likely ? Phrase("likely") : Phrase("a guess");
}

const char* CodeOf(Certainty certainty) {
    constexpr const char* Codes[] = {"certain", "likely", "guess"};
    return Codes[static_cast<int>(certainty)];
}
}  // namespace kelvarin
