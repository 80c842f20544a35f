#include "cli/StoreFile.h"

#include "cli/Complaints.h"
#include "host/language/Phrase.h"

namespace kelvarin::cli {
bool StoreFile::Open() {
    if (Path.empty()) return true;
    std::string reason;
    File = store::CreateSampleFile(Path, reason);
    return File != nullptr || CheckWritten(reason);
}

store::DeviceSink* StoreFile::BeginRun() {
    if (File == nullptr) return nullptr;
    File->DropDevice();  // of a run that came to no end
    return &File->BeginDevice();
}

bool StoreFile::EndRun(const store::StoredDevice* device, const store::SampleOrigin& origin, bool isDone) {
    if (File == nullptr) return true;
    ++Runs;
    if (!isDone || device == nullptr) {
        File->DropDevice();
        return true;
    }
    ++Kept;
    return CheckWritten(File->KeepDevice(*device, origin));
}

bool StoreFile::Finish() {
    if (File == nullptr) return Path.empty();
    if (Kept == 0) {
        GiveUp(Phrase("not written, since no file gave samples"));
        return false;
    }
    if (!CheckWritten(File->Finish())) return false;
    if (Kept < Runs) ComplainAbout(Path, Phrase("holds {} of {} files", Kept, Runs));
    return true;
}

void StoreFile::Abandon() {
    if (File != nullptr) GiveUp(Phrase("not written, since the run was interrupted"));
}

void StoreFile::GiveUp(const std::string& why) {
    File.reset();
    ComplainAbout(Path, why);
}

bool StoreFile::CheckWritten(const std::string& reason) {
    if (reason.empty()) return true;
    GiveUp(
        Phrase("can't be written: {}; what was there before is unchanged. Make room, or name another "
               "file in --store",
               reason));
    return false;
}
}  // namespace kelvarin::cli
