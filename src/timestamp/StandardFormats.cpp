#include "timestamp/StandardFormats.h"

#include "contract/DialogFunctions.h"
#include "platform/framework/Text.h"
#include "resources/ModuleResources.h"
#include "resources/ResourceIds.h"
#include "settings/CsvImportSettings.h"

namespace {

// The items of a string, which vertical bars separate, without blanks at their ends.
std::vector<std::u16string> LoadItems(unsigned id) {
    std::vector<std::u16string> items;
    const std::u16string text = CsvImportModule().LoadString(id);
    for (unsigned index = 0;; ++index) {
        std::u16string item = ExtractSubString(text, index, u'|', true);
        if (item.empty()) return items;
        items.push_back(std::move(item));
    }
}

// What stands between date and time: the cells are joined by the separator. A blank behind it costs nothing
// in the value, since a literal skips the white space that follows.
std::u16string Joint(const CCsvImportSettings& settings) {
    const char16_t separator =
        settings.DateColumn != settings.TimeColumn ? settings.GetSeparatorChar() : u' ';
    if (separator == u'\0') return u" ";
    return IsWhiteSpace(separator) ? std::u16string(1, separator) : std::u16string{separator, u' '};
}

}  // namespace

std::vector<std::u16string> GetStandardFormats(const CCsvImportSettings& settings) {
    std::vector<std::u16string> times = LoadItems(IdTimeFormats);
    if (settings.DateSetting == DateFromColumn) {
        const std::u16string joint = Joint(settings);
        const bool dateFirst = settings.DateColumn <= settings.TimeColumn;
        std::vector<std::u16string> formats;
        for (const std::u16string& date : LoadItems(IdDateFormats)) {
            for (const std::u16string& time : times) {
                formats.push_back(dateFirst ? date + joint + time : time + joint + date);
            }
        }
        return formats;
    }
    if (settings.TimeSetting != TimeFromColumn) return {};
    for (std::u16string& elapsed : LoadItems(IdElapsedTimeFormats)) times.push_back(std::move(elapsed));
    return times;
}
