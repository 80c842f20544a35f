// What only this system has: the registry as profile, one user of a file at a time, and the user's regional
// settings.
#include <gtest/gtest.h>

#include <clocale>

#include "contract/TimeStamp.h"
#include "kit/Workdir.h"
#include "platform/framework/Locale.h"
#include "platform/framework/Module.h"
#include "platform/framework/ProfileStore.h"
#include "platform/framework/ReplacingFile.h"
#include "platform/framework/SharedLibrary.h"
#include "platform/framework/win32/Api.h"

namespace {

// The user's branch of the registry is another one, gone at the end, for as long as it lives.
class OwnRegistry {
  public:
    OwnRegistry() {
        RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\kelvarin-test", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                        &Key, nullptr);
        RegOverridePredefKey(HKEY_CURRENT_USER, Key);
    }
    OwnRegistry(const OwnRegistry&) = delete;
    OwnRegistry& operator=(const OwnRegistry&) = delete;
    ~OwnRegistry() {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegCloseKey(Key);
        RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\kelvarin-test");
    }

  private:
    HKEY Key = nullptr;
};

// One of the user's regional settings is another while the object lives.
class OwnSetting {
  public:
    OwnSetting(LCTYPE type, const wchar_t* value) : Type(type) {
        GetLocaleInfoW(LOCALE_USER_DEFAULT, type, Before, static_cast<int>(std::size(Before)));
        SetLocaleInfoW(LOCALE_USER_DEFAULT, type, value);
    }
    OwnSetting(const OwnSetting&) = delete;
    OwnSetting& operator=(const OwnSetting&) = delete;
    ~OwnSetting() { SetLocaleInfoW(LOCALE_USER_DEFAULT, Type, Before); }

  private:
    const LCTYPE Type;
    wchar_t Before[80] = {};
};

TEST(RegionalSettings, SayHowTimesAreWritten) {
    {
        const OwnSetting date(LOCALE_SSHORTDATE, L"dd.MM.yyyy");
        const OwnSetting time(LOCALE_STIMEFORMAT, L"HH-mm-ss");
        const CTimeStamp stamp(2024, 2, 1, 15, 4, 5, 600);
        UseUserLocale();
        EXPECT_EQ(stamp.Format(u"%x  %X.%ns", 0, true, false), u"01.02.2024  15-04-05.600");
        std::setlocale(LC_ALL, "C");
        EXPECT_EQ(stamp.Format(u"%x  %X.%ns", 0, true, false), u"02/01/24  15:04:05.600");
    }
    UseUserLocale();
}

TEST(Registry, KeepsValuesOfThreeKinds) {
    const OwnRegistry registry;
    const auto store = [] { return OpenUserProfile(u"Brenholt", u"kelvarin"); };
    EXPECT_FALSE(store()->ReadInt(u"CsvImport", u"Number").has_value());
    EXPECT_TRUE(store()->WriteInt(u"CsvImport", u"Number", -5));
    EXPECT_TRUE(store()->WriteText(u"CsvImport", u"Text", u"µs; \"ä\""));
    EXPECT_TRUE(store()->WriteText(u"CsvImport", u"Empty", u""));
    EXPECT_TRUE(store()->WriteBlock(u"CsvImport", u"Block", {0, 1, 255}));
    EXPECT_EQ(store()->ReadInt(u"CsvImport", u"Number"), -5);
    EXPECT_EQ(store()->ReadText(u"CsvImport", u"Text"), u"µs; \"ä\"");
    EXPECT_EQ(store()->ReadText(u"CsvImport", u"Empty"), u"");
    EXPECT_EQ(store()->ReadBlock(u"CsvImport", u"Block"), (ProfileBlock{0, 1, 255}));
    EXPECT_FALSE(store()->ReadText(u"CsvImport", u"Number").has_value()) << "another kind";
    EXPECT_FALSE(store()->ReadInt(u"Other", u"Number").has_value()) << "another section";
    DWORD number = 0;
    DWORD size = sizeof number;
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, L"Software\\Brenholt\\kelvarin\\CsvImport", L"Number",
                           RRF_RT_REG_DWORD, nullptr, &number, &size),
              ERROR_SUCCESS);
    EXPECT_EQ(number, static_cast<DWORD>(-5));
}

TEST(WindowsFile, RefusesEverySecondOpener) {
    const Workdir folder;
    const std::u16string path = folder.Write("data.csv", "x");
    CFile file;
    CFile other;
    CFileException error(false);
    ASSERT_TRUE(file.Open(path.c_str(), CFile::modeRead | CFile::shareExclusive, &error));
    for (const unsigned flags : {unsigned{CFile::modeRead}, unsigned{CFile::modeWrite | CFile::modeCreate}}) {
        EXPECT_FALSE(other.Open(path.c_str(), flags, &error)) << flags;
        EXPECT_EQ(error.Cause, CFileException::sharingViolation);
    }
    file.Close();
    EXPECT_TRUE(other.Open(path.c_str(), CFile::modeRead, &error));
    other.Close();
    EXPECT_EQ(folder.Read("data.csv"), "x");
}

TEST(WindowsFile, OpeningTellsWhyNot) {
    const Workdir folder;
    std::filesystem::create_directory(folder.NativePath("folder"));
    const struct {
        std::u16string Path;
        int Cause;
    } cases[] = {{folder.Path("none"), CFileException::fileNotFound},
                 {folder.Path("none/a"), CFileException::badPath},
                 {folder.Path("folder"), CFileException::accessDenied},
                 {u"NUL", CFileException::badSeek}};
    for (const auto& c : cases) {
        CFile file;
        CFileException error(false);
        EXPECT_FALSE(file.Open(c.Path.c_str(), CFile::modeRead, &error));
        EXPECT_EQ(error.Cause, c.Cause) << std::filesystem::path(c.Path);
    }
}

TEST(WindowsFile, IsReplacedUnderAnyName) {
    const Workdir folder;
    std::u16string path = folder.Path("Prüfstand mit Lücken");
    while (path.size() < 300) {
        path += u"/Ordner über Ordner";
        std::filesystem::create_directories(PathForStream(path));
    }
    path += u"/Öl.csv";
    for (const char* bytes : {"old", "new"}) ReplaceFile(path, bytes);
    std::ifstream file(PathForStream(path));
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "new");
}

TEST(Module, DescribesItself) {
    const std::u16string path = ProgramFolder() + u"/" + ModuleFileName(u"csv-import");
    DWORD unused = 0;
    std::string block(GetFileVersionInfoSizeW(W(path), &unused), '\0');
    ASSERT_TRUE(GetFileVersionInfoW(W(path), 0, static_cast<DWORD>(block.size()), block.data()));
    const auto text = [&](const std::u16string& name) {
        void* value = nullptr;
        UINT size = 0;
        VerQueryValueW(block.data(), W(u"\\StringFileInfo\\040704B0\\" + name), &value, &size);
        return value == nullptr ? std::u16string() : std::u16string(FromW(static_cast<wchar_t*>(value)));
    };
    EXPECT_EQ(text(u"FileDescription"), u"Importfilter für Textdateien mit Trennzeichen");
    EXPECT_EQ(text(u"InternalName"), u"Textdateien mit Trennzeichen");
    EXPECT_EQ(text(u"Comments"),
              u"kelvarin-Filter zum Import von Signaldaten aus Textdateien mit Trennzeichen");
}

}  // namespace
