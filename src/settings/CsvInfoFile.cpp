// Between the sidecar's values and the record.
#include "settings/CsvInfoFile.h"

#include <cstdio>

#include "contract/TimeStamp.h"
#include "platform/framework/Locale.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"
#include "settings/CsvImportSettings.h"
#include "settings/IntervalUnits.h"

namespace {

constexpr const char16_t* SeparatorTexts[FixedSeparatorCount] = {u";", u",", u"-->", u" "};

// The local date, or the local time of day, of a moment; empty if it has none.
std::u16string DateText(std::int64_t seconds) {
    LocalTime local{};
    if (!ToLocalTime(seconds, local)) return {};
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", local.Year, local.Month, local.Day);
    return Utf8ToUtf16(text);
}

std::u16string DaytimeText(std::int64_t seconds) {
    LocalTime local{};
    if (!ToLocalTime(seconds, local)) return {};
    char text[64];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", local.Hour, local.Minute, local.Second);
    return Utf8ToUtf16(text);
}

// A number one higher or lower; a sidecar may hold any.
std::int32_t Shifted(std::int32_t number, int by) {
    return static_cast<std::int32_t>(WrappingAdd(number, by));
}

// The separator of the sidecar as index and text of the record.
void ApplySeparator(const std::u16string& text, CCsvImportSettings& settings) {
    if (text == u"\t") {
        settings.Separator = SeparatorTab;
        return;
    }
    if (text.empty()) {
        settings.Separator = SeparatorComma;
        settings.OtherSeparator.clear();
        return;
    }
    for (int i = 0; i < FixedSeparatorCount; ++i) {
        if (text != SeparatorTexts[i]) continue;
        settings.Separator = i;
        return;
    }
    settings.Separator = SeparatorOther;
    settings.OtherSeparator = text;
}

}  // namespace

CCsvInfoFile::CCsvInfoFile(const std::u16string& sourcePath) : Path(sourcePath + u".info") {}

void CCsvInfoFile::TakeFromSettings(const CCsvImportSettings& settings) {
    const bool isFixed = settings.Separator >= 0 && settings.Separator < FixedSeparatorCount;
    SeparatorText = isFixed ? SeparatorTexts[settings.Separator] : settings.OtherSeparator;
    StartLine = settings.ImportHeader != 0 ? Shifted(settings.FirstLine, -1) : settings.FirstLine;
    TimeColumn = Shifted(settings.TimeColumn, -1);
    MergeSeparators = settings.MergeSeparators != 0;
    ImportHeader = settings.ImportHeader != 0;
    DateSetting = settings.DateSetting;
    DateColumn = Shifted(settings.DateColumn, -1);
    StartDateText = DateText(settings.StartDate);
    TimeSetting = settings.TimeSetting;
    IntervalValue = settings.IntervalValue;
    if (settings.IntervalUnit >= 0 && settings.IntervalUnit < IntervalUnitCount) {
        IntervalUnitText = IntervalUnits[settings.IntervalUnit].Name;
    }
    TimeAdjustText = settings.Adjust != 0 ? DaytimeText(settings.AdjustTime) : std::u16string();
    if (settings.Adjust != 0) AdjustMode = settings.AdjustMode;
    TimestampFormat = settings.TimestampFormat;
}

void CCsvInfoFile::ApplyToSettings(CCsvImportSettings& settings) const {
    // The analysis must not overwrite what the file says.
    settings.AutoFormat = 0;
    ApplySeparator(SeparatorText, settings);
    settings.FirstLine = settings.DetectedFirstLine = Shifted(StartLine, 1);
    settings.TimeColumn = Shifted(TimeColumn, 1);
    settings.MergeSeparators = MergeSeparators ? 1 : 0;
    settings.ImportHeader = settings.DetectedHeader = ImportHeader ? 1 : 0;
    settings.DateSetting = DateSetting;
    if (DateSetting == DateFromColumn) settings.DateColumn = Shifted(DateColumn, 1);
    CTimeStamp stamp;
    if (DateSetting == DateFixed && stamp.fromString(StartDateText, u"YYYY-MM-DD", 0)) {
        settings.StartDate = stamp.GetCTime().Seconds;
    }
    settings.TimeSetting = TimeSetting;
    settings.IntervalValue = IntervalValue;
    for (int i = 0; i < IntervalUnitCount; ++i) {
        if (IntervalUnitText == IntervalUnits[i].Name) settings.IntervalUnit = i;
    }
    settings.Adjust = TimeAdjustText.empty() ? 0 : 1;
    if (!TimeAdjustText.empty()) {
        if (stamp.fromString(u"2000-01-01 " + TimeAdjustText, u"YYYY-MM-DD HH:mm:ss", 0)) {
            settings.AdjustTime = stamp.GetCTime().Seconds;
        }
        settings.AdjustMode = AdjustMode;
    }
    settings.TimestampFormat = TimestampFormat;
}
