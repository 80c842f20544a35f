// Which cells stand for a missing value.
#include <gtest/gtest.h>

#include "host/Words.h"
#include "platform/framework/Text.h"

namespace {

TEST(MissingValue, KnowsTheUsualMarkersAndNothingElse) {
    for (const char16_t* text : {u"", u"  ", u"nan", u"NaN", u" NA ", u"N/A", u"null", u"None", u"-", u"--",
                                 u"---", u"inf", u"OVLD", u"?", u"\t?"})
        EXPECT_TRUE(kelvarin::IsMissingValue(text)) << "'" << Utf16ToUtf8(text) << "'";
    // Values, and texts that only look alike.
    for (const char16_t* text :
         {u"0", u"-1", u"1.#inf", u"n", u"n / a", u"nan 5", u"-----", u"??", u"nothing", u"nullify"})
        EXPECT_FALSE(kelvarin::IsMissingValue(text)) << "'" << Utf16ToUtf8(text) << "'";
}

}  // namespace
