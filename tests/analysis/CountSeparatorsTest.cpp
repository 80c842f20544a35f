#include <gtest/gtest.h>

#include "analysis/SplitLine.h"
#include "platform/framework/Text.h"
#include "settings/CsvImportSettings.h"

namespace {

TEST(CountSeparators, CountsOutsideBothKindsOfQuotes) {
    struct Case {
        const char16_t* Line;
        std::uint32_t Separator;
        bool Merge;
        int Count;
    };
    constexpr Case Cases[] = {
        {u"", SeparatorSemicolon, false, 0},
        {u"a", SeparatorSemicolon, false, 0},
        {u"a;b;", SeparatorSemicolon, false, 2},
        {u";;", SeparatorSemicolon, false, 2},
        {u"a,b;c", SeparatorComma, false, 1},
        {u"a\tb", SeparatorTab, false, 1},
        // Merging.
        {u"a  b", SeparatorSpace, true, 1},
        {u"a  b", SeparatorSpace, false, 2},
        {u"   a", SeparatorSpace, true, 1},
        {u";;a;;;b", SeparatorSemicolon, true, 2},
        // Quotes. One that is never closed hides the rest of the line.
        {u"it's;a;b", SeparatorSemicolon, false, 0},
        {u"a;'b;c'", SeparatorSemicolon, false, 1},
        {u"\"a;b\";c", SeparatorSemicolon, false, 1},
        {u"\"a\"\";b\";c", SeparatorSemicolon, false, 1},
        {u"a;\"b;c", SeparatorSemicolon, false, 1},
        // The other kind of quote is an ordinary character inside quotes.
        {u"\"it's\";a", SeparatorSemicolon, false, 1},
        {u"'say \"';a", SeparatorSemicolon, false, 1},
        // A quote between two separators ends a run of them, also an empty pair.
        {u";\"\";", SeparatorSemicolon, true, 2},
        {u";\"x;y\";", SeparatorSemicolon, true, 2},
    };
    for (const Case& c : Cases) {
        SCOPED_TRACE(Utf16ToUtf8(c.Line));
        EXPECT_EQ(CountSeparators(c.Line, c.Separator, c.Merge), c.Count);
    }
}

}  // namespace
