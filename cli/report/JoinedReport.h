// Several files that were imported as one device, for people and for scripts.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/report/JsonReport.h"
#include "cli/report/TextLayout.h"
#include "host/store/JoinedDevice.h"

namespace kelvarin::cli {
// What became of one of them, in the order in which they were joined.
struct JoinedFile {
    std::string File;
    std::uint64_t Lines = 0;  // that were read
    store::JoinedPart Part;
    std::optional<std::int64_t>
        Gap;  // ns between its first row and the last one before, if longer than usual
    MessageList Messages;
};

// The files with their rows, the gaps and overlaps between them, what was assumed, the signals and the
// messages of each file.
void WriteJoinedText(ReportStream out, const std::vector<JoinedFile>& files, const ImportDocument& document,
                     bool isRelative);

// The document of an import, with the key "joined".
void WriteJoinedJson(std::ostream& out, const std::vector<JoinedFile>& files, const ImportDocument& document);
}  // namespace kelvarin::cli
