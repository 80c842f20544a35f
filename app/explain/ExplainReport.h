// An explanation in words and as JSON.
#pragma once

#include <ostream>

#include "app/explain/Explanation.h"

void WriteExplanationText(std::ostream& out, const std::string& file, const Explanation& explanation);
void WriteExplanationJson(std::ostream& out, const std::string& file, const Explanation& explanation);
