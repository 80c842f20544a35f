#include "host/MissingValue.h"

#include <algorithm>
#include <iterator>

#include "platform/framework/Text.h"

namespace kelvarin {

bool IsMissingValue(std::u16string_view text) {
    constexpr std::u16string_view Markers[] = {u"nan", u"na", u"n/a", u"null", u"none",
                                               u"-",   u"--", u"---", u"?"};
    const std::u16string_view cell = TrimWhiteSpace(text);
    return cell.empty() ||
           std::any_of(std::begin(Markers), std::end(Markers),
                       [&](std::u16string_view marker) { return EqualsIgnoreCase(cell, marker); });
}

}  // namespace kelvarin
