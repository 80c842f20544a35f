#include "cli/Complaints.h"

#include <iostream>

#include "cli/report/Style.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {

void ComplainAbout(const std::string& file, const std::string& reason) {
    Complain(file + ": " + reason);
}

std::string PrintableName(const std::string& file) {
    return Utf16ToUtf8(PathFromNative(file));
}

void Complain(const std::string& reason) {
    std::cout.flush();
    std::cerr << StyledForErrors(Style::Failure, "kelvarin-import:") << " " << reason << std::endl;
}

}  // namespace kelvarin::cli
