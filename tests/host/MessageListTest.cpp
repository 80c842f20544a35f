// Messages of a run: the first ones kept, all of them grouped.
#include "host/HostSession.h"

#include <gtest/gtest.h>

#include "platform/framework/Text.h"

namespace {

struct GroupCase {
    const char* What;
    std::vector<ImportMessage> Messages;
    const char* Groups;  // per group: count, text of the first
};

TEST(MessageList, GroupsWhatDiffersInNumbersAtMost) {
    const GroupCase cases[] = {
        {"nothing", {}, ""},
        {"numbers of any length",
         {{false, -1, u"row 9"}, {false, -1, u"row 10"}, {false, -1, u"row "}},
         "3 row 9;"},
        {"other words",
         {{false, -1, u"row 1"}, {false, -1, u"rows 1"}, {false, -1, u"ro 1"}},
         "1 row 1;1 rows 1;1 ro 1;"},
        {"numbers inside",
         {{false, -1, u"a 1 b 22"}, {false, -1, u"a 333 b "}, {false, -1, u"a 1 c"}},
         "2 a 1 b 22;1 a 1 c;"},
        {"digits only", {{false, -1, u"12"}, {false, -1, u""}, {false, -1, u"7"}}, "3 12;"},
        {"cells by column", {{false, 3, u"x"}, {false, 3, u"y"}, {false, 4, u"x"}}, "2 x;1 x;"},
        {"a cell and a row of one text",
         {{false, 0, u"x"}, {false, -1, u"x"}, {false, -2, u"x"}},
         "1 x;1 x;1 x;"},
        {"in the order of the first", {{false, -1, u"b"}, {false, -1, u"a"}, {false, -1, u"b"}}, "2 b;1 a;"},
    };
    for (const GroupCase& c : cases) {
        SCOPED_TRACE(c.What);
        kelvarin::MessageList list(0);
        for (const ImportMessage& message : c.Messages) list.Add(message, 1);
        std::string groups;
        for (const kelvarin::MessageGroup& group : list.Groups())
            groups += std::to_string(group.Count) + " " + Utf16ToUtf8(group.FirstText) + ";";
        EXPECT_EQ(groups, c.Groups);
        EXPECT_EQ(list.IsEmpty(), c.Messages.empty());
    }
}

struct KeepCase {
    std::size_t Keep;
    std::size_t Added;
    std::size_t Kept;
    std::uint64_t LeftOut;
};

TEST(MessageList, KeepsTheFirstAndCountsTheRest) {
    const KeepCase cases[] = {{0, 0, 0, 0}, {0, 5, 0, 5}, {4, 5, 4, 1}, {5, 5, 5, 0}, {6, 5, 5, 0}};
    for (const KeepCase& c : cases) {
        SCOPED_TRACE(c.Keep);
        kelvarin::MessageList list(c.Keep);
        for (std::size_t i = 0; i < c.Added; ++i)
            list.Add({false, -1, Utf8ToUtf16("row " + std::to_string(i))}, i + 1);
        ASSERT_EQ(list.Kept().size(), c.Kept);
        for (std::size_t i = 0; i < c.Kept; ++i)
            EXPECT_EQ(Utf16ToUtf8(list.Kept()[i].Text), "row " + std::to_string(i));
        EXPECT_EQ(list.LeftOut(), c.LeftOut);
    }
}

TEST(MessageList, NamesTheLinesOfTheFirstHundredOfAKind) {
    kelvarin::MessageList list(0);
    for (std::uint64_t line = 1; line <= 250; ++line) list.Add({line == 1, -1, u"row"}, line);
    ASSERT_EQ(list.Groups().size(), 1u);
    const kelvarin::MessageGroup& group = list.Groups().front();
    EXPECT_EQ(group.Count, 250u);
    EXPECT_EQ(group.Lines.size(), 100u);
    EXPECT_EQ(group.Lines.front(), 1u);
    EXPECT_EQ(group.Lines.back(), 100u);
    EXPECT_TRUE(group.Failure);
}

}  // namespace
