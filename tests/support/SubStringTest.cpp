// Items of a module's strings.
#include <gtest/gtest.h>

#include "host/SupportFunctions.h"
#include "platform/framework/Module.h"

TEST(LoadSubString, GivesItemsOfTheCurrentModule) {
    constexpr StringResource Strings[] = {{1, u"one, two words ,,\tthree, "}, {2, u""}, {3, u"  single  "}};
    constexpr StringResource Others[] = {{1, u"another module"}};
    ModuleState module(StringTable{Strings, 3});
    ModuleState other(StringTable{Others, 1});
    const struct {
        unsigned Id, Index;
        const char16_t* Item;
    } cases[] = {
        {1, 0, u"one"},
        {1, 1, u"two words"},
        {1, 2, u""},
        {1, 3, u"\tthree"},  // only blanks are
                             // trimmed
        {1, 4, u""},
        {1, 5, u""},
        {1, 4294967295, u""},
        {2, 0, u""},
        {2, 1, u""},
        {3, 0, u"single"},
        {9, 0, u""},
    };
    const AFX_MAINTAIN_STATE2 outer(module);
    for (const auto& c : cases) EXPECT_EQ(LoadSubString(c.Id, c.Index), c.Item) << c.Id << ", " << c.Index;
    {
        const AFX_MAINTAIN_STATE2 inner(other);
        EXPECT_EQ(LoadSubString(1, 0), u"another module");
    }
    EXPECT_EQ(LoadSubString(1, 0), u"one") << "the context before must come back";
}

TEST(LoadSubString, IsEmptyOutsideEveryModule) {
    ASSERT_EQ(GetCurrentModule(), nullptr);
    EXPECT_EQ(LoadSubString(1, 0), u"");
}
