// Reads rows of a source file here and there, as the import would.
#pragma once

#include <string>

#include "contract/TableReader.h"

class CCsvImportSettings;

// Fills the rows of the sample, and what stands above them, from the file at this path, whose columns the
// settings know. Reads some MiB at most. Raises what the file raises.
void SampleRows(const std::u16string& path, const CCsvImportSettings& settings, TableSample& sample);
