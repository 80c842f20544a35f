// Values of one run, laid over a profile.
#include "platform/support/ProfileOverlay.h"

#include <gtest/gtest.h>

#include "kit/MemoryProfile.h"

TEST(ProfileOverlay, IsReadFirstAndNeverStored) {
    const auto store = std::make_shared<MemoryProfile>();
    ProfileOverlay overlay(store);
    store->WriteInt(u"S", u"Number", 1);
    store->WriteText(u"S", u"Text", u"stored");
    overlay.Set(u"S", u"Number", 2);
    overlay.Set(u"S", u"Number", 3);
    overlay.Set(u"S", u"Block", ProfileBlock{1, 2});
    overlay.Set(u"Other", u"Text", u"laid over");
    EXPECT_EQ(overlay.ReadInt(u"S", u"Number"), 3) << "the later of two values counts";
    EXPECT_EQ(overlay.ReadText(u"S", u"Text"), u"stored") << "a value of another section covers nothing";
    EXPECT_EQ(overlay.ReadBlock(u"S", u"Block"), (ProfileBlock{1, 2}));
    EXPECT_EQ(overlay.ReadInt(u"S", u"Missing"), std::nullopt);

    overlay.Set(u"S", u"Text", 5);
    EXPECT_EQ(overlay.ReadText(u"S", u"Text"), std::nullopt) << "a value of another kind covers the store's";

    EXPECT_TRUE(overlay.WriteInt(u"S", u"Number", 7));
    EXPECT_TRUE(overlay.WriteText(u"S", u"New", u"x"));
    EXPECT_TRUE(overlay.WriteBlock(u"S", u"Raw", {255}));
    EXPECT_EQ(overlay.ReadInt(u"S", u"Number"), 3) << "writing goes below the layer";
    EXPECT_EQ(store->ToText(), "S/New=\"x\"\nS/Number=7\nS/Raw=hex:ff\nS/Text=\"stored\"\n");
    store->Refuses = true;
    EXPECT_FALSE(overlay.WriteInt(u"S", u"Number", 8));
}
