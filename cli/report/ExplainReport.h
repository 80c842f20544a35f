// An explanation in words and as JSON.
#pragma once

#include <ostream>

#include "host/explain/Explanation.h"

namespace kelvarin::cli {

void WriteExplanationText(std::ostream& out, const std::string& file,
                          const explain::Explanation& explanation);
void WriteExplanationJson(std::ostream& out, const std::string& file,
                          const explain::Explanation& explanation);

}  // namespace kelvarin::cli
