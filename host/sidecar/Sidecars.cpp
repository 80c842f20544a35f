#include "host/sidecar/Sidecars.h"

#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::sidecar {

namespace {

std::string NoSidecars() {
    return Phrase("this module has no sidecars");
}

// Lets a filter of the source write its sidecar; empty, or why it was not written.
std::string Write(const ModuleLoader& module, const std::u16string& source,
                  bool (ISidecarTool::*write)(std::string&)) {
    const auto filter = module.MakeFilter(source);
    ISidecarTool* const tool = filter->Find<ISidecarTool>();
    if (tool == nullptr) return NoSidecars();
    std::string reason;
    (tool->*write)(reason);
    return reason;
}

}  // namespace

SidecarCheck CheckSidecar(const ModuleLoader& module, const std::u16string& sidecar) {
    const auto filter = module.MakeFilter(sidecar);
    if (ISidecarTool* const tool = filter->Find<ISidecarTool>()) return tool->CheckSidecar(sidecar.c_str());
    SidecarCheck check;
    check.Errors = -1;
    check.Reason = NoSidecars();
    return check;
}

std::string WriteSidecar(const ModuleLoader& module, const std::u16string& source) {
    return Write(module, source, &ISidecarTool::WriteSidecar);
}

std::string SaveSidecar(const ModuleLoader& module, const std::u16string& source) {
    return Write(module, source, &ISidecarTool::SaveSidecar);
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

}  // namespace kelvarin::sidecar
