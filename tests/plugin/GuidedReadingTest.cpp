// What a host that knows more of the file than the analysis makes of it.
#include "contract/GuidedReading.h"

#include <gtest/gtest.h>

#include "contract/TimeReader.h"
#include "kit/ImportRun.h"
#include "kit/LocalMoment.h"

namespace {

// The times of a run, and those that are read for a host, go by the same letters.
TEST(GuidedReading, ReadsFormatsByOtherLetters) {
    struct LetterCase {
        const char16_t* Letters;
        const char* Format;
        bool IsRead;
    };
    const LetterCase cases[] = {
        {u"", "YYYY-MM-DDThh:mm:ss", false},      {u"YMDhms", "YYYY-MM-DDThh:mm:ss", true},
        {u"JMXhms", "JJJJ-MM-XXThh:mm:ss", true}, {u"JMXhms", "YYYY-MM-DDThh:mm:ss", false},
        {u"YMD", "YYYY-MM-DDThh:mm:ss", false},  // too few, so that they are not taken
    };
    for (const LetterCase& c : cases) {
        SCOPED_TRACE(Utf16ToUtf8(c.Letters) + " " + c.Format);
        ImportRun run("t;v\n2024-02-01T10:00:00;1\n",
                      {"DateSetting=0", "TimeSetting=0", std::string("TimestampFormat=") + c.Format});
        run.Filter->Find<IGuidedReading>()->ReadFormatsBy(c.Letters);
        const std::int64_t time = LocalTime64(2024, 2, 1, 10);
        const std::vector<std::int64_t> read =
            run.Filter->Find<ITimeReader>()->ReadTimes(Utf8ToUtf16(c.Format), {u"2024-02-01T10:00:00"}, true);
        EXPECT_EQ(read, std::vector<std::int64_t>{c.IsRead ? time : -1});
        const std::string out = run.Import();
        EXPECT_EQ(out.find(std::to_string(time)) != out.npos, c.IsRead) << out;
        EXPECT_EQ(out.find(RowWithoutTime(2)) != out.npos, !c.IsRead) << out;
    }
}

}  // namespace
