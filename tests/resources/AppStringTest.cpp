// The module's own texts.
#include "resources/AppString.h"

#include <gtest/gtest.h>

#include "contract/SupportFunctions.h"
#include "platform/framework/Module.h"
#include "resources/ResourceIds.h"

TEST(AppString, LoadsTextsAndTheirItems) {
    constexpr StringResource Strings[] = {{IdAppName, u"one, two words ,,\tthree, "}};
    ModuleState other(StringTable{Strings, 1});
    const AFX_MAINTAIN_STATE2 context(other);
    const auto item = [](unsigned index) { return LoadSubString(IdAppName, index) + u"|"; };
    EXPECT_EQ(item(0) + item(1) + item(2) + item(3) + item(4) + item(5), u"one|two words||\tthree|||");
    EXPECT_EQ(LoadAppString(IdAppName), u"CSV-Import") << "its own module's";
    EXPECT_EQ(FillProductNames(u"{{SHORT_NAME}} {PRODUCT_NAME}"), u"{kelvarin} kelvarin analyzer");
}
