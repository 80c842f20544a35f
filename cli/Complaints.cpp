#include "cli/Complaints.h"

#include <algorithm>
#include <iostream>

#include "cli/report/TextLayout.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/StandardStreams.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {
int WorseStatus(int one, int other) {
    constexpr int Order[] = {ExitDone, ExitFindings, ExitFileFailed, ExitWrongUsage, ExitInterrupted};
    return std::find(std::begin(Order), std::end(Order), one) <
                   std::find(std::begin(Order), std::end(Order), other)
               ? other
               : one;
}

void Complain(const std::string& reason) {
    std::cout.flush();
    ReportStream(std::cerr) << StyledForErrors(Style::Failure, "kelvarin-import:") << " " << reason << "\n";
}

void ComplainAbout(const std::string& file, const std::string& reason) {
    Complain(file + ": " + reason);
}

int Fail(const std::string& file, const std::string& reason) {
    ComplainAbout(file, reason);
    return ExitFileFailed;
}

int Finish(const std::string& file, const std::string& reason) {
    return reason.empty() ? int{ExitDone} : Fail(file, reason);
}

int FinishOutput(int status) {
    const OutputState state = CloseOutput();
    if (state == OutputState::ReaderGone) return ExitReaderGone;
    if (state == OutputState::Written) return status;
    Complain(Phrase("standard output can't be written: {}", OutputFailure()));
    return WorseStatus(status, ExitFileFailed);
}

std::string PrintableName(const std::string& file) {
    return Utf16ToUtf8(PathFromNative(file));
}
}  // namespace kelvarin::cli
