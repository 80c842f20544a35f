#include "host/Certainty.h"

#include "host/language/Phrase.h"

namespace kelvarin {
std::string CertaintyInWords(Certainty certainty) {
    if (certainty == Certainty::Certain) return Phrase("certain");
    return certainty == Certainty::Likely ? Phrase("likely") : Phrase("a guess");
}
}  // namespace kelvarin
