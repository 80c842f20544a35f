// What the settings add to the time of every row.
#include "contract/TimeStamp.h"
#include "platform/framework/Numbers.h"
#include "settings/CsvImportSettings.h"

std::int64_t CCsvImportSettings::GetTimeCorrection(std::int64_t firstRowTime) const {
    std::int64_t correction = 0;
    if (Adjust != 0) {
        correction = CTimeStamp(CTime{AdjustTime}).DaytimeToTIME(true);
        if (AdjustMode == AdjustStart) {
            // Without a date the first row's time is a time of day, or an elapsed time, as it stands.
            const bool isAbsolute = DateSetting == DateFromColumn;
            const std::int64_t start =
                isAbsolute ? CTimeStamp(firstRowTime).DaytimeToTIME(false) : firstRowTime;
            correction = WrappingSubtract(correction, start);
        } else if (AdjustMode == AdjustBack) {
            correction = -correction;
        }
    }
    if (DateSetting == DateFixed)
        correction = WrappingAdd(correction, CTimeStamp(CTime{StartDate}).DateToTIME());
    return correction;
}
