#include "app/check/TimeProbe.h"

#include <cstring>
#include <fstream>
#include <memory>
#include <random>
#include <utility>

#include "app/SettingsJson.h"
#include "app/check/CheckHost.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"
#include "platform/support/ProfileOverlay.h"

namespace {

std::filesystem::path UnusedName() {
    std::random_device random;
    std::error_code ignored;
    return std::filesystem::temp_directory_path(ignored) /
           ("kelvarin-check-" + std::to_string(random()) + ".csv");
}

// Any day that leaves room for negative times.
constexpr std::int64_t SomeDay = 946'728'000;

ProfileBlock MomentBlock(std::int64_t seconds) {
    ProfileBlock block(sizeof seconds);
    std::memcpy(block.data(), &seconds, sizeof seconds);
    return block;
}

// The settings that read the time of a lone first line, over the process's profile while the object lives.
class ProbeSettings {
  public:
    ProbeSettings(const TimeSource& reading, const std::u16string& format) : Before(GetProcessProfile()) {
        auto layer = std::make_shared<ProfileOverlay>(Before);
        const auto set = [&](const char16_t* key, ProfileOverlay::Value value) {
            layer->Set(SettingsSectionName(), key, std::move(value));
        };
        set(u"AutoFormat", 0);
        set(u"FirstLine", 1);
        set(u"ImportHeader", 0);
        set(u"Separator", reading.Separator);
        set(u"OtherSeparator", reading.OtherSeparator);
        set(u"MergeSeparators", reading.MergeSeparators);
        set(u"DateSetting", static_cast<std::int32_t>(reading.DateFrom));
        set(u"DateColumn", reading.DateColumn);
        set(u"StartDate", MomentBlock(SomeDay));
        set(u"TimeSetting", 0);
        set(u"TimeColumn", reading.TimeColumn);
        set(u"Adjust", 0);  // a new start time would give every lone row the same time
        set(u"TimestampFormat", format);
        SetProcessProfile(layer);
    }
    ProbeSettings(const ProbeSettings&) = delete;
    ProbeSettings& operator=(const ProbeSettings&) = delete;
    ~ProbeSettings() { SetProcessProfile(Before); }

  private:
    const std::shared_ptr<ProfileStore> Before;
};

}  // namespace

TimeProbe::TimeProbe(ImportFilterFactory factory, TimeSource reading)
    : Factory(factory), Reading(std::move(reading)), File(UnusedName()) {}

TimeProbe::~TimeProbe() {
    std::error_code ignored;
    std::filesystem::remove(File, ignored);
}

std::optional<ProbedTime> TimeProbe::Read(const std::u16string& line, const std::u16string& format) {
    {
        // A new file each time: some file systems write one that is cut to nothing and filled again to the
        // disk at once, which takes a hundred times as long.
        std::error_code ignored;
        std::filesystem::remove(File, ignored);
        std::ofstream out(File, std::ios::binary);
        out << Utf16ToUtf8(line) << "\n";
        if (!out.flush()) return std::nullopt;
    }
    return Import(format);
}

ProbedTime TimeProbe::Import(const std::u16string& format) const {
    const ProbeSettings settings(Reading, format);
    const std::u8string name = File.u8string();
    CheckHost host(Factory, PathFromNative(std::string(name.begin(), name.end())));
    CImportFilter& filter = host.Filter();
    ProbedTime result;
    std::uint32_t progress = 0;
    if (filter.BeginImport() && filter.ImportNextLine(&progress)) {
        result.Reads = true;
        for (const ImportMessage& message : filter.TakeMessages())
            result.Reads &= message.Failure || message.Column != -1;
        result.Time = host.Store().RowTime;
    }
    filter.EndImport();
    return result;
}
