// Formats and values that are cut short or spoiled, in buffers that end where the text does.
#include <algorithm>
#include <memory>
#include <string_view>

#include "kit/LocalMoment.h"
#include "kit/TimestampCases.h"

namespace {

struct Pair {
    std::u16string_view Format, Value;
    bool HasDate;
};

constexpr Pair Pairs[] = {
    {u" TT.MM.JJJJ; hh:mm:ss,000 ", u" 01.02.2020; 12:30:45,125 ", true},
    {u"hhmmss", u"123045", false},
    {u"[h]:mm:ss,000", u"-100:30:05,5e2", false},
    {u" [ms],000 ", u" -12e-3,5 ", false},
    {u"[s]s000", u"12345", false},
};

// In a buffer of its own size, so that a checked build sees a read beyond the end.
std::int64_t ParseExactly(std::u16string_view format, std::u16string_view value, bool hasDate) {
    const auto copy = [](std::u16string_view text) {
        auto buffer = std::make_unique<char16_t[]>(text.size() + 1);
        std::copy(text.begin(), text.end(), buffer.get());
        return buffer;
    };
    return ParseTimestamp(copy(format).get(), copy(value).get(), hasDate);
}

TEST(HostileText, IsNotReadBeyondItsEnd) {
    for (const Pair& pair : Pairs) {
        ASSERT_NE(ParseExactly(pair.Format, pair.Value, pair.HasDate), NoTimestamp);
        for (std::size_t f = 0; f <= pair.Format.size(); ++f) {
            for (std::size_t v = 0; v <= pair.Value.size(); ++v) {
                ParseExactly(pair.Format.substr(0, f), pair.Value.substr(0, v), pair.HasDate);
            }
        }
    }
}

TEST(HostileText, MustMatchInAllBitsOfACharacter) {
    for (const Pair& pair : Pairs) {
        for (std::size_t i = 0; i < pair.Value.size(); ++i) {
            std::u16string value(pair.Value);
            value[i] = static_cast<char16_t>(value[i] + 256);
            SCOPED_TRACE(Utf16ToUtf8(value));
            EXPECT_EQ(ParseTimestamp(pair.Format.data(), value.c_str(), pair.HasDate), NoTimestamp);
        }
    }
}

// All formats and values over a few characters: each ends in an answer, whatever it is.
void ParseAll(std::u16string& format, std::u16string& value) {
    ParseTimestamp(format.c_str(), value.c_str(), true);
    ParseTimestamp(format.c_str(), value.c_str(), false);
    if (value.size() < 3) {
        for (const char16_t c : {u'1', u'-', u'e', u':'}) {
            value.push_back(c);
            ParseAll(format, value);
            value.pop_back();
        }
    }
    if (!value.empty() || format.size() == 4) return;
    for (const char16_t c : {u'h', u's', u'0', u'[', u']', u':'}) {
        format.push_back(c);
        ParseAll(format, value);
        format.pop_back();
    }
}

TEST(HostileText, EndsInAnAnswer) {
    std::u16string format, value;
    ParseAll(format, value);
}

}  // namespace
