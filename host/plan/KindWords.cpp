#include "host/plan/KindWords.h"

#include <algorithm>
#include <iterator>

#include "platform/framework/Text.h"

namespace kelvarin::plan {
bool AreKinds(const std::vector<std::u16string_view>& cells) {
    constexpr std::u16string_view Kinds[] = {
        u"counter", u"analog", u"digital", u"float", u"double", u"int",     u"integer",  u"real",   u"real32",
        u"real64",  u"int16",  u"int32",   u"int64", u"uint8",  u"uint16",  u"uint32",   u"uint64", u"bool",
        u"boolean", u"bit",    u"string",  u"text",  u"avg",    u"average", u"mean",     u"smp",    u"sample",
        u"min",     u"max",    u"std",     u"sum",   u"tot",    u"total",   u"datetime", u"number"};
    std::size_t filled = 0;
    std::size_t kinds = 0;
    for (const std::u16string_view cell : cells) {
        if (cell.empty()) continue;
        ++filled;
        kinds += std::any_of(std::begin(Kinds), std::end(Kinds),
                             [&](auto kind) { return EqualsIgnoreCase(cell, kind); });
    }
    return filled > 0 && 4 * kinds >= 3 * filled;
}
}  // namespace kelvarin::plan
