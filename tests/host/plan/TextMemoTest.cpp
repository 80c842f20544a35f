// What is remembered of the texts of a column.
#include "host/plan/TextMemo.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/framework/Text.h"

namespace {

using namespace kelvarin::plan;

// True if the cell was remembered, with what was written for it; remembers it if that can be.
bool WasKnown(TextMemo& memo, const std::u16string& cell) {
    if (const TextMemo::Entry* const entry = memo.Find(cell)) {
        EXPECT_EQ(entry->Padded.substr(0, entry->WrittenSize()), Utf16ToUtf8(cell));
        return true;
    }
    if (TextMemo::Entry* const place = memo.Place()) memo.Remember(*place, cell, Utf16ToUtf8(cell));
    return false;
}

TEST(TextMemo, RemembersLettersAndAFewWords) {
    const std::u16string words[] = {
        u"true", u"false", u"on", u"off", u"Halle 3", u"a text of several words", std::u16string(64, u'x')};
    TextMemo memo;
    for (const bool isAgain : {false, true}) {
        for (char16_t letter = u'A'; letter <= u'Z'; ++letter)
            EXPECT_EQ(WasKnown(memo, std::u16string(1, letter)), isAgain) << static_cast<char>(letter);
    }
    TextMemo ofWords;
    for (const bool isAgain : {false, true}) {
        for (const std::u16string& word : words) EXPECT_EQ(WasKnown(ofWords, word), isAgain) << word.size();
    }
    for (const std::u16string& word : words) {
        std::u16string other = word;
        other.back() ^= 1;
        EXPECT_EQ(ofWords.Find(other), nullptr) << word.size();
        EXPECT_EQ(ofWords.Find(word + u"x"), nullptr) << word.size();
    }
    EXPECT_EQ(memo.Find(std::u16string(65, u'x')), nullptr) << "too long";
    EXPECT_EQ(memo.Place(), nullptr);
}

TEST(TextMemo, GivesUpWhereFewTextsComeAgain) {
    const struct {
        int Repeats;  // of each text
        bool IsGivenUp;
    } cases[] = {{1, true}, {3, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Repeats);
        TextMemo memo;
        for (int i = 0; i < 3000 * c.Repeats; ++i)
            WasKnown(memo, u"text " + Utf8ToUtf16(std::to_string(i / c.Repeats)));
        EXPECT_EQ(memo.Find(u"text 0"), nullptr);
        EXPECT_EQ(memo.Place() == nullptr, c.IsGivenUp);
    }
}

}  // namespace
