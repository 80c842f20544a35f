#include "timestamp/StandardFormats.h"

#include "platform/framework/Text.h"
#include "resources/ModuleResources.h"
#include "resources/ResourceIds.h"
#include "settings/CsvImportSettings.h"

namespace {

// The items of a string, separated by vertical bars.
std::vector<std::u16string> LoadItems(unsigned id) {
    std::vector<std::u16string> items;
    const std::u16string text = CsvImportModule().LoadString(id);
    for (std::size_t begin = 0;;) {
        const std::size_t end = text.find(u'|', begin);
        items.push_back(text.substr(begin, end - begin));
        if (end == std::u16string::npos) return items;
        begin = end + 1;
    }
}

// What stands between date and time: the cells are joined by the separator. A blank behind it costs nothing
// in the value, since a literal skips the white space that follows.
std::u16string Joint(const CCsvImportSettings& settings) {
    std::u16string joint(1, settings.DateColumn != settings.TimeColumn ? settings.GetSeparatorChar() : u' ');
    if (!IsWhiteSpace(joint[0])) joint += u' ';
    return joint;
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
