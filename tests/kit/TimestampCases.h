// Tables of formats, values and what is read from them.
#pragma once

#include <gtest/gtest.h>

#include <iterator>

#include "platform/framework/Text.h"
#include "timestamp/TimestampFormat.h"

struct TimestampCase {
    const char16_t* Format;
    const char16_t* Value;
    std::int64_t Time;
};

template <std::size_t Count>
void CheckTimestamps(const TimestampCase (&cases)[Count], bool hasDate) {
    for (const TimestampCase& c : cases) {
        SCOPED_TRACE('"' + Utf16ToUtf8(c.Format) + "\" reads \"" + Utf16ToUtf8(c.Value) + '"');
        EXPECT_EQ(ParseTimestamp(c.Format, c.Value, hasDate), c.Time);
    }
}
