#include "app/archive/StoreFile.h"

#include <chrono>
#include <filesystem>

#include "app/Complaints.h"
#include "app/HostSession.h"
#include "app/SettingsJson.h"
#include "app/language/Phrase.h"
#include "platform/framework/Path.h"

namespace {

SampleOrigin OriginOf(const HostSession& session, const std::string& source,
                      std::optional<std::int64_t> baseTime) {
    SampleOrigin origin;
    const std::filesystem::path path = PathForStream(PathFromNative(source));
    std::error_code ignored;
    origin.SourceSize = std::filesystem::file_size(path, ignored);
    const auto written = std::filesystem::last_write_time(path, ignored);
    const auto moment = std::chrono::file_clock::to_sys(written).time_since_epoch();
    origin.SourceModified = std::chrono::duration_cast<std::chrono::seconds>(moment).count();
    const CCsvImportSettings& settings = SettingsOf(session.Filter());
    origin.Settings = SettingOptions(settings);
    origin.BaseTime = baseTime;
    constexpr int DateNone = 2;
    origin.IsRelative = SummarizeFormat(settings).DateSetting == DateNone;
    return origin;
}

}  // namespace

bool StoreFile::Open() {
    if (Path.empty()) return true;
    std::string complaint;
    File = CreateSampleFile(Path, complaint);
    return File != nullptr || Fail(complaint);
}

DeviceSink* StoreFile::BeginRun() {
    return File == nullptr ? nullptr : &File->BeginDevice();
}

bool StoreFile::EndRun(const HostSession& session, const std::string& source,
                       std::optional<std::int64_t> baseTime, bool isDone) {
    if (File == nullptr) return true;
    ++Runs;
    if (!isDone) {
        File->DropDevice();
        return true;
    }
    ++Kept;
    const std::string reason = File->KeepDevice(*session.Device(), OriginOf(session, source, baseTime));
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
