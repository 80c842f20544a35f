#include "app/sidecar/SidecarText.h"

#include "app/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

std::string PrintableName(const std::string& file) {
    return Utf16ToUtf8(PathFromNative(file));
}

std::string ComplaintOf(const SidecarCheck& check) {
    if (check.Errors < 0) return check.Reason;
    if (check.Errors > 0) {
        return Phrase("line {}, column {}: {}", check.Line, check.Column, check.Reason);
    }
    if (check.KnownRevision) return {};
    return Phrase("format-rev \"{}\" is unknown, so nothing is read; known are 1 and 2",
                  Utf16ToUtf8(check.Revision));
}
