#include "host/check/TimeProbe.h"

#include <cstring>
#include <fstream>
#include <memory>
#include <random>
#include <utility>

#include "host/SettingText.h"
#include "host/check/CheckHost.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"
#include "platform/support/ProfileOverlay.h"

namespace kelvarin::check {

namespace {

std::filesystem::path UnusedName() {
    std::random_device random;
    std::error_code ignored;
    return std::filesystem::temp_directory_path(ignored) /
           ("kelvarin-check-" + std::to_string(random()) + ".csv");
}

// The settings that read the time of a lone first line.
void SetProbe(SettingsLayer& layer, const TimeSource& reading, const std::u16string& format) {
    layer.Set(u"AutoFormat", 0);
    layer.Set(u"FirstLine", 1);
    layer.Set(u"ImportHeader", 0);
    layer.Set(u"Separator", reading.Separator);
    layer.Set("OtherSeparator", Utf16ToUtf8(reading.OtherSeparator));
    layer.Set(u"MergeSeparators", reading.MergeSeparators);
    layer.Set(u"DateSetting", static_cast<std::int32_t>(reading.DateFrom));
    layer.Set(u"DateColumn", reading.DateColumn);
    layer.Set("StartDate", "946728000");
    layer.Set(u"TimeSetting", 0);
    layer.Set(u"TimeColumn", reading.TimeColumn);
    layer.Set(u"Adjust", 0);
    layer.Set("TimestampFormat", Utf16ToUtf8(format));
}

}  // namespace

TimeProbe::TimeProbe(const ModuleLoader& module, TimeSource reading)
    : Module(module), Reading(std::move(reading)), File(UnusedName()) {}

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
    SettingsLayer layer;
    SetProbe(layer, Reading, format);
    const std::u8string name = File.u8string();
    CheckHost host(Module, PathFromNative(std::string(name.begin(), name.end())));
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

}  // namespace kelvarin::check
