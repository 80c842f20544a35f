#include "cli/StoreFile.h"

#include <chrono>
#include <filesystem>

#include "cli/Complaints.h"
#include "host/HostSession.h"
#include "host/Reading.h"
#include "host/SettingText.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"

namespace kelvarin::cli {

namespace {

store::SampleOrigin OriginOf(const HostSession& session, const std::string& source,
                             std::optional<std::int64_t> baseTime) {
    store::SampleOrigin origin;
    const std::filesystem::path path = PathForStream(PathFromNative(source));
    std::error_code ignored;
    origin.SourceSize = std::filesystem::file_size(path, ignored);
    const auto written = std::filesystem::last_write_time(path, ignored);
    const auto moment = std::chrono::file_clock::to_sys(written).time_since_epoch();
    origin.SourceModified = std::chrono::duration_cast<std::chrono::seconds>(moment).count();
    if (const CCsvImportSettings* const settings = SettingsOf(session.Filter())) {
        for (const auto& [key, value] : SettingsAsText(*settings))
            origin.Settings.push_back(key + "=" + value);
    }
    origin.BaseTime = baseTime;
    origin.IsRelative = ReadingOf(session.Filter()).DateSetting == DateNone;
    return origin;
}

}  // namespace

bool StoreFile::Open() {
    if (Path.empty()) return true;
    std::string complaint;
    File = store::CreateSampleFile(Path, complaint);
    return File != nullptr || Fail(complaint);
}

store::DeviceSink* StoreFile::BeginRun() {
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

}  // namespace kelvarin::cli
