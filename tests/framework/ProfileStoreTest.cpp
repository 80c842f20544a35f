// The profile in a file: what comes back, what is refused, and what of others' stays.
#include "platform/framework/ProfileStore.h"

#include "kit/CheckRows.h"
#include "kit/Workdir.h"
#include "platform/support/ProfileOverlay.h"

using namespace std::string_literals;

namespace {

constexpr const char16_t* Section = u"CsvImport";

// The value of "Key", whichever kinds it has: "int 5", "text x", "block bytes", or "-" if it has none.
std::string Describe(ProfileStore& store) {
    std::string text;
    if (const auto number = store.ReadInt(Section, u"Key")) text += "int " + std::to_string(*number);
    if (const auto value = store.ReadText(Section, u"Key")) text += "text " + Utf16ToUtf8(*value);
    if (auto b = store.ReadBlock(Section, u"Key")) text += "block " + std::string(b->begin(), b->end());
    return text.empty() ? "-" : text;
}

}  // namespace

TEST(ProfileFile, EveryValueComesBack) {
    const Workdir folder;
    const std::u16string path = folder.Path("made/on/demand/profile.ini");
    EXPECT_TRUE(OpenProfileFile(path)->WriteInt(Section, u"Key", INT32_MIN));
    EXPECT_EQ(Describe(*OpenProfileFile(path)), "int -2147483648");
    for (const auto& text : {u""s, u" \"quoted\" "s, u"\\n\\"s, u"two\nlines\r\n"s, u"a\0;µ😀\x01\u0085"s}) {
        EXPECT_TRUE(OpenProfileFile(path)->WriteText(Section, u"Key", text));
        EXPECT_EQ(OpenProfileFile(path)->ReadText(Section, u"Key"), text);
    }
    EXPECT_TRUE(OpenProfileFile(path)->WriteBlock(Section, u"Key", {0, 9, 10, 128, 160, 255}));
    EXPECT_EQ(Describe(*OpenProfileFile(path)), "block \0\t\n\x80\xA0\xFF"s);
}

TEST(ProfileFile, ValuesOfAMomentStayWhileTheFileChanges) {
    const Workdir folder;
    const std::u16string path = folder.Path("profile.ini");
    const std::shared_ptr<ProfileStore> store = OpenProfileFile(path);
    const auto none = store->Now();
    EXPECT_TRUE(store->WriteInt(Section, u"Key", 1));
    const auto first = store->Now();
    EXPECT_TRUE(store->WriteInt(Section, u"Key", 2));
    EXPECT_EQ(none->ReadInt(Section, u"Key"), std::nullopt);
    EXPECT_EQ(first->ReadInt(Section, u"Key"), 1);
    EXPECT_EQ(first->ReadText(Section, u"Key"), std::nullopt);
    EXPECT_EQ(store->Now()->ReadInt(Section, u"Key"), 2);
    // Values that lie over them stay as well.
    ProfileOverlay layer(store);
    layer.Set(Section, u"Key", u"over"s);
    const auto layered = layer.Now();
    layer.Set(Section, u"Key", 3);
    EXPECT_TRUE(store->WriteInt(Section, u"Other", 4));
    EXPECT_EQ(layered->ReadText(Section, u"Key"), u"over");
    EXPECT_EQ(layered->ReadInt(Section, u"Key"), std::nullopt);
    EXPECT_EQ(layered->ReadInt(Section, u"Other"), std::nullopt);
    EXPECT_EQ(layer.Now()->ReadInt(Section, u"Key"), 3);
    EXPECT_EQ(layer.Now()->ReadInt(Section, u"Other"), 4);
}

TEST(ProfileFile, AValueHasOneKind) {
    const Workdir folder;
    CheckRows(
        "=2147483648->-|=+5->-|= 5->-|=5 ->-|=5.0->-|=0x5->-|=->-|=plain->-|=\"->-|=\"open->-|=\"a\"b\"->-|"
        "=\"open\\\"->-|=hex:0->-|=hex:010->-|=hex:0g->-|=HEX:01->-|2=5->-|=-5\r\nKey=6->int -5|"
        "=\"a=b;c\"->text a=b;c|=hex:4a4F20->block JO |2=1\nkey=4\n;Key=4\n[CsvImport2]\nKey=5->-",
        [&](std::string_view content) {
            const auto bytes = "[A]\nKey=1\n[CsvImport]\nKey" + std::string(content);
            return Describe(*OpenProfileFile(folder.Write("profile.ini", bytes)));
        });
}

TEST(ProfileFile, WritingKeepsEverythingElse) {
    const Workdir folder;
    const std::string above = "\xFF\n[A]\nKey=1\n[CsvImport]\nno value\n; note\n", below = "\n[B]\nKey=2";
    const auto store = OpenProfileFile(folder.Write("profile.ini", above + below));
    for (const int value : {7, 8}) {
        EXPECT_TRUE(store->WriteInt(Section, u"Key", value));
        EXPECT_EQ(folder.Read("profile.ini"), above + "Key=" + std::to_string(value) + "\n" + below + "\n");
    }
}

TEST(ProfileFile, AnUnreadableStoreStays) {
    const Workdir folder;
    std::filesystem::create_directory(folder.NativePath("folder"));
    std::filesystem::create_symlink("loop", folder.NativePath("loop"));
    for (const char* name : {"folder", "loop"}) {
        EXPECT_EQ(Describe(*OpenProfileFile(folder.Path(name))), "-") << name;
        EXPECT_FALSE(OpenProfileFile(folder.Path(name))->WriteInt(Section, u"Key", 1)) << name;
    }
    EXPECT_TRUE(is_symlink(folder.NativePath("loop")));
    EXPECT_EQ(Describe(*OpenProfileFile(folder.Path("missing"))), "-");
    EXPECT_EQ(folder.Names(), "folder folder.lock loop loop.lock") << "reading makes no file";
}
