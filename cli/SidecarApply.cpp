#include "cli/SidecarApply.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <nlohmann/json.hpp>

#include "cli/Complaints.h"
#include "cli/ExitStatus.h"
#include "cli/many/Tally.h"
#include "host/FileList.h"
#include "host/language/Phrase.h"
#include "host/sidecar/Sidecars.h"
#include "platform/framework/File.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {

using Json = nlohmann::ordered_json;

namespace {

std::string BytesOf(const std::u16string& path) {
    std::ifstream file(PathForStream(path), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

// Empty, or why it couldn't be written.
std::string CopyTo(const std::u16string& path, const std::string& bytes) {
    try {
        ReplaceFile(path, bytes);
        return {};
    } catch (CFileException* error) {
        const std::string reason = Utf16ToUtf8(DescribeFileError(*error));
        error->Delete();
        return reason;
    }
}

// Copied whole, so that what only a human or another program reads in it stays.
std::string Apply(const sidecar::SidecarFit& fit, const std::string& bytes, const std::string& file,
                  bool force) {
    const std::u16string path = PathFromNative(file);
    const std::u16string target = path + u".info";
    std::error_code ignored;
    if (!force && std::filesystem::exists(PathForStream(target), ignored))
        return Phrase("{} exists already; --force replaces it", Utf16ToUtf8(PathStripPath(target)));
    const std::string reason = fit.WhyUnfit(path);
    return reason.empty() ? CopyTo(target, bytes) : reason;
}

void Report(const std::string& file, const std::string& reason, bool json) {
    if (json) {
        const Json document = {
            {"file", PrintableName(file)}, {"written", reason.empty()}, {"reason", reason}};
        std::cout << document.dump() << "\n";
    } else if (reason.empty()) {
        std::cout << PrintableName(file) << ".info\n";
    }
    if (!reason.empty()) ComplainAbout(file, reason);
}

}  // namespace

int ApplySidecar(const ModuleLoader& module, const std::string& sidecar,
                 const std::vector<std::string>& files, bool force, bool json) {
    const std::u16string path = PathFromNative(sidecar);
    const sidecar::SidecarFit fit(module, path);
    if (!fit.Complaint().empty()) {
        ComplainAbout(sidecar, fit.Complaint());
        return ExitFileFailed;
    }
    if (!fit.KnowsNames())
        ComplainAbout(sidecar,
                      Phrase("its own file is not beside it, so that names of columns are not compared"));
    const std::string bytes = BytesOf(path);
    Tally tally;
    for (const std::string& file : ListFiles(files, false).Files) {
        if (PathFromNative(file) + u".info" == path) continue;
        const std::string reason = Apply(fit, bytes, file, force);
        Report(file, reason, json);
        ++tally.Files;
        if (!reason.empty()) tally.Failed.push_back(file);
    }
    Complain(TallyText(tally, Phrase("with the sidecar")));
    return tally.Failed.empty() ? ExitDone : ExitFileFailed;
}

}  // namespace kelvarin::cli
