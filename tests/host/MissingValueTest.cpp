// Which cells stand for a missing value.
#include <gtest/gtest.h>

#include "host/Words.h"
#include "platform/framework/Text.h"

namespace {

struct MarkerCase {
    const char16_t* Text;
    bool IsMissing;
};

TEST(MissingValue, KnowsTheUsualMarkersAndNothingElse) {
    const MarkerCase cases[] = {
        {u"", true},
        {u"  ", true},
        {u"nan", true},
        {u"NaN", true},
        {u" NA ", true},
        {u"N/A", true},
        {u"null", true},
        {u"None", true},
        {u"-", true},
        {u"--", true},
        {u"---", true},
        {u"inf", true},
        {u"OVLD", true},
        {u"?", true},
        {u"\t?", true},
        // Values, and texts that only look alike.
        {u"0", false},
        {u"-1", false},
        {u"1.#inf", false},
        {u"n", false},
        {u"n / a", false},
        {u"nan 5", false},
        {u"-----", false},
        {u"??", false},
        {u"nothing", false},
        {u"nullify", false},
    };
    for (const MarkerCase& c : cases) {
        EXPECT_EQ(kelvarin::IsMissingValue(c.Text), c.IsMissing) << "'" << Utf16ToUtf8(c.Text) << "'";
    }
}

}  // namespace
