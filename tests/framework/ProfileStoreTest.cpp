// The profile in a file: what comes back, what is refused, and what of others' stays.
#include "platform/framework/ProfileStore.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <limits>

#include "kit/Workdir.h"
#include "platform/framework/Text.h"

namespace {

constexpr const char16_t* Section = u"CsvImport";

// The value of a key, whichever kind it has: "int 5", "text x", "block 1,255", or "-" if it has none. More
// than one kind would show as more than one word.
std::string Describe(ProfileStore& store, const std::u16string& key) {
    std::string text;
    if (const auto number = store.ReadInt(Section, key)) text += "int " + std::to_string(*number);
    if (const auto value = store.ReadText(Section, key)) text += "text " + Utf16ToUtf8(*value);
    if (const auto block = store.ReadBlock(Section, key)) {
        text += "block ";
        for (const std::uint8_t byte : *block) text += std::to_string(byte) + ",";
    }
    return text.empty() ? "-" : text;
}

// Sets an environment variable for as long as it lives.
class Environment {
  public:
    Environment(const char* name, const std::string& value) : Name(name), Previous(ValueOf(name)) {
        setenv(name, value.c_str(), 1);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment() {
        if (Previous) {
            setenv(Name, Previous->c_str(), 1);
        } else {
            unsetenv(Name);
        }
    }

  private:
    static std::optional<std::string> ValueOf(const char* name) {
        const char* const value = std::getenv(name);
        return value == nullptr ? std::nullopt : std::optional<std::string>(value);
    }

    const char* const Name;
    const std::optional<std::string> Previous;
};

// Writes 50 numbers in a process of its own, a new store for each.
pid_t StartWriter(const std::u16string& path, const std::string& prefix) {
    const pid_t child = fork();
    if (child != 0) return child;
    int refused = 0;
    for (int i = 0; i < 50; ++i) {
        const auto store = OpenProfileFile(path);
        if (!store->WriteInt(Section, Utf8ToUtf16(prefix + std::to_string(i)), i)) ++refused;
    }
    _exit(refused);
}

int ExitStatusOf(pid_t child) {
    int status = -1;
    waitpid(child, &status, 0);
    return status;
}

}  // namespace

TEST(ProfileFile, EveryValueComesBack) {
    const Workdir folder;
    const std::u16string path = folder.Path("made/on/demand/profile.ini");
    const std::int32_t numbers[] = {0, -1, std::numeric_limits<std::int32_t>::min(),
                                    std::numeric_limits<std::int32_t>::max()};
    for (const std::int32_t number : numbers) {
        EXPECT_TRUE(OpenProfileFile(path)->WriteInt(Section, u"Key", number));
        EXPECT_EQ(OpenProfileFile(path)->ReadInt(Section, u"Key"), number);
    }
    const std::u16string texts[] = {
        u"",
        u"plain",
        u" blanks ",
        u"\"quoted\"",
        u"\\",
        u"\\n\\\"",
        u"two\nlines\r\n",
        u"[Section]\nKey=1",
        u"5",
        u"hex:00",
        std::u16string(u"a\0b", 3),
        u"; comment",
        u"µs äöü € \U0001F600",
        u"\t\x01\x7F\u0085",
    };
    for (const std::u16string& text : texts) {
        EXPECT_TRUE(OpenProfileFile(path)->WriteText(Section, u"Key", text));
        EXPECT_EQ(OpenProfileFile(path)->ReadText(Section, u"Key"), text);
    }
    ProfileBlock allBytes(256);
    for (std::size_t i = 0; i < allBytes.size(); ++i) allBytes[i] = static_cast<std::uint8_t>(i);
    for (const ProfileBlock& block : {ProfileBlock(), ProfileBlock{0}, allBytes}) {
        EXPECT_TRUE(OpenProfileFile(path)->WriteBlock(Section, u"Key", block));
        EXPECT_EQ(OpenProfileFile(path)->ReadBlock(Section, u"Key"), block);
    }
}

TEST(ProfileFile, AValueHasOneKind) {
    const struct {
        const char *Content, *Value;
    } cases[] = {{"Key=5", "int 5"},
                 {"Key=-2147483648", "int -2147483648"},
                 {"Key=2147483648", "-"},
                 {"Key=+5", "-"},
                 {"Key= 5", "-"},
                 {"Key=5 ", "-"},
                 {"Key=5.0", "-"},
                 {"Key=0x5", "-"},
                 {"Key=", "-"},
                 {"Key=plain", "-"},
                 {"Key=\"\"", "text "},
                 {"Key=\"5\"", "text 5"},
                 {"Key=\"hex:00\"", "text hex:00"},
                 {"Key=\"a=b;c\"", "text a=b;c"},
                 {"Key=\"", "-"},
                 {"Key=\"open", "-"},
                 {"Key=\"a\"b\"", "-"},
                 {"Key=\"open\\\"", "-"},
                 {"Key=hex:", "block "},
                 {"Key=hex:01fFA0", "block 1,255,160,"},
                 {"Key=hex:0", "-"},
                 {"Key=hex:010", "-"},
                 {"Key=hex:0g", "-"},
                 {"Key=hex:01 02", "-"},
                 {"Key=HEX:01", "-"},
                 {"Key=5\r", "int 5"},
                 {"Key=5\nKey=6", "int 5"},
                 {"key=5", "-"},
                 {";Key=5", "-"},
                 {"Key2=6\nKey=5", "int 5"},
                 {"[Other]\nKey=5", "-"},
                 {"[Other]\nKey=5\n[CsvImport]\nKey=6", "int 6"},
                 {"[CsvImport2]\nKey=5", "-"}};
    const Workdir folder;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Content);
        const auto store =
            OpenProfileFile(folder.Write("profile.ini", std::string("[CsvImport]\n") + c.Content));
        EXPECT_EQ(Describe(*store, u"Key"), c.Value);
    }
}

TEST(ProfileFile, WritingKeepsEverythingElse) {
    const struct {
        const char *Before, *After;
    } cases[] = {
        {"", "[CsvImport]\nKey=7\n"},
        {"; note\nKey=1\n", "; note\nKey=1\n[CsvImport]\nKey=7\n"},
        {"[A]\nKey=1\n\n[CsvImport]\n; note\nKey=\"x\"\n\n[B]\nKey=2",
         "[A]\nKey=1\n\n[CsvImport]\n; note\nKey=7\n\n[B]\nKey=2\n"},
        {"[CsvImport]\nOther=1\n\n[B]\nKey=2\n", "[CsvImport]\nOther=1\nKey=7\n\n[B]\nKey=2\n"},
        {"[CsvImport]\n[B]\n", "[CsvImport]\nKey=7\n[B]\n"},
        {"\xFF damaged\n[CsvImport]\nno value\n", "\xFF damaged\n[CsvImport]\nno value\nKey=7\n"},
    };
    const Workdir folder;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Before);
        const auto store = OpenProfileFile(folder.Write("profile.ini", c.Before));
        EXPECT_TRUE(store->WriteInt(Section, u"Key", 7));
        EXPECT_EQ(folder.Read("profile.ini"), c.After);
    }
    EXPECT_EQ(folder.Names(), "profile.ini profile.ini.lock");
}

TEST(ProfileFile, ReadingMakesNoFile) {
    const Workdir folder;
    EXPECT_EQ(Describe(*OpenProfileFile(folder.Path("profile.ini")), u"Key"), "-");
    EXPECT_EQ(folder.Names(), "");
}

// What can't be read may hold all of the user's settings: it gives nothing, and is never written over.
TEST(ProfileFile, AnUnreadableStoreStays) {
    const Workdir folder;
    std::filesystem::create_directory(folder.NativePath("folder"));
    std::filesystem::create_symlink("loop", folder.NativePath("loop"));
    for (const std::string name : {"folder", "loop"}) {
        SCOPED_TRACE(name);
        const auto store = OpenProfileFile(folder.Path(name));
        EXPECT_EQ(Describe(*store, u"Key"), "-");
        EXPECT_FALSE(store->WriteInt(Section, u"Key", 1));
        EXPECT_FALSE(store->WriteText(Section, u"Key", u"x"));
        EXPECT_FALSE(store->WriteBlock(Section, u"Key", {1}));
    }
    EXPECT_TRUE(std::filesystem::is_directory(folder.NativePath("folder")));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.NativePath("loop")));
    EXPECT_EQ(folder.Names(), "folder folder.lock loop loop.lock");
    folder.Write("file", "");
    EXPECT_FALSE(OpenProfileFile(folder.Path("file/profile.ini"))->WriteInt(Section, u"Key", 1));
}

TEST(ProfileFile, TwoWritersLoseNothing) {
    const Workdir folder;
    const std::u16string path = folder.Path("profile.ini");
    const pid_t first = StartWriter(path, "First");
    const pid_t second = StartWriter(path, "Second");
    EXPECT_EQ(ExitStatusOf(first), 0);
    EXPECT_EQ(ExitStatusOf(second), 0);
    const auto store = OpenProfileFile(path);
    for (int i = 0; i < 50; ++i) {
        for (const std::string prefix : {"First", "Second"}) {
            EXPECT_EQ(store->ReadInt(Section, Utf8ToUtf16(prefix + std::to_string(i))), i) << prefix << i;
        }
    }
    EXPECT_EQ(folder.Names(), "profile.ini profile.ini.lock");
}

TEST(UserProfile, LiesUnderTheUsersFolder) {
    const Workdir folder;
    const Environment home("HOME", folder.NativePath("home").string());
    {
        const Environment config("XDG_CONFIG_HOME", "");
        EXPECT_TRUE(OpenUserProfile(u"Company", u"name")->WriteInt(Section, u"Key", 1));
    }
    const Environment config("XDG_CONFIG_HOME", folder.NativePath("config").string());
    EXPECT_TRUE(OpenUserProfile(u"Company", u"name")->WriteInt(Section, u"Key", 2));
    EXPECT_EQ(folder.Read("home/.config/Company/name.ini"), "[CsvImport]\nKey=1\n");
    EXPECT_EQ(folder.Read("config/Company/name.ini"), "[CsvImport]\nKey=2\n");
}
