// Any text as a timestamp format and any as its values: an answer is one of the calendar's or none, and the
// rows that are accepted rise strictly.
#include <fuzzer/FuzzedDataProvider.h>

#include "fuzz/kit/Check.h"
#include "kit/FakeHost.h"
#include "settings/CsvImportSettings.h"
#include "timestamp/RowTimestamp.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const FuzzHome home;
    static const CCsvImportSettings defaults;
    FuzzedDataProvider input(data, size);
    CCsvImportSettings settings = defaults;
    settings.DateSetting = input.ConsumeIntegralInRange(0, 2);
    settings.TimeSetting = input.ConsumeIntegralInRange(0, 7) == 7 ? TimeInterval : TimeFromColumn;
    settings.Adjust = input.ConsumeBool();
    settings.AdjustMode = input.ConsumeIntegralInRange(0, 2);
    settings.AdjustTime = input.ConsumeIntegral<std::int32_t>();
    settings.StartDate = input.ConsumeIntegral<std::int64_t>() >> input.ConsumeIntegralInRange(0, 40);
    settings.IntervalUnit = input.ConsumeIntegralInRange(0, 5);
    settings.IntervalValue = input.ConsumeBool() ? 1.5 : input.ConsumeFloatingPoint<double>();
    FakeHost host;
    host.BaseTime = input.ConsumeBool() ? input.ConsumeIntegral<std::int64_t>() : 1;
    host.FixedBaseA = input.ConsumeBool();
    settings.TimestampFormat = Utf8ToUtf16(input.ConsumeRandomLengthString(64));

    TimestampFormat kept[2] = {TimestampFormat(settings.TimestampFormat.c_str()),
                               TimestampFormat(settings.TimestampFormat.c_str())};
    RunTimes times;
    std::int64_t last = 0;
    for (std::int64_t row = 0; input.remaining_bytes() > 0; ++row) {
        const std::u16string value = Utf8ToUtf16(input.ConsumeRandomLengthString(64));
        const std::u16string padded = value + std::u16string(ValuePadding, u'\0');
        const char16_t* const format = settings.TimestampFormat.c_str();
        for (const bool hasDate : {false, true}) {
            const std::int64_t time = ParseTimestamp(format, value.c_str(), hasDate);
            Check(time == ParseTimestamp(format, (u" \t" + value).c_str(), hasDate),
                  "blanks in front don't count");
            Check(time == kept[hasDate].Read(padded.c_str(), hasDate),
                  "a value read after others is the same");
        }
        const RowTimestamp result = MakeRowTimestamp(settings, row, padded.c_str(), host, times);
        if (!result.Accepted) continue;
        Check(result.Time > last && result.Time <= MaxTimestamp, "accepted times rise strictly");
        Check(result.Time != NoTimestamp && times.LastTime == result.Time, "the run knows its last time");
        last = result.Time;
    }
    return 0;
}
