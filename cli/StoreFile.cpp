#include "cli/StoreFile.h"

#include "cli/Complaints.h"
#include "host/language/Phrase.h"

namespace kelvarin::cli {

bool StoreFile::Open() {
    if (Path.empty()) return true;
    std::string complaint;
    File = store::CreateSampleFile(Path, complaint);
    return File != nullptr || Fail(complaint);
}

store::DeviceSink* StoreFile::BeginRun() {
    return File == nullptr ? nullptr : &File->BeginDevice();
}

bool StoreFile::EndRun(const HostSession& session, bool isDone) {
    if (File == nullptr) return true;
    ++Runs;
    if (!isDone) {
        File->DropDevice();
        return true;
    }
    ++Kept;
    const std::string reason = File->KeepDevice(*session.Device(), session.Origin());
    return reason.empty() || Fail(reason);
}

bool StoreFile::Finish() {
    if (File == nullptr) return Path.empty();
    if (Kept == 0) {
        File.reset();
        ComplainAbout(Path, Phrase("not written, since no file gave samples"));
        return false;
    }
    const std::string reason = File->Finish();
    File.reset();
    if (!reason.empty()) return Fail(reason);
    if (Kept < Runs) ComplainAbout(Path, Phrase("holds {} of {} files", Kept, Runs));
    return true;
}

void StoreFile::Abandon() {
    if (File == nullptr) return;
    File.reset();
    ComplainAbout(Path, Phrase("not written, since the run was interrupted"));
}

bool StoreFile::Fail(const std::string& reason) {
    File.reset();
    ComplainAbout(Path, Phrase("can't be written: {}; what was there before is unchanged. Make room, or name "
                               "another file in --store",
                               reason));
    return false;
}

}  // namespace kelvarin::cli
