// Files: what is refused at opening, exclusive use, positions, what a failure raises, and replacing a file.
#include "platform/framework/File.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "kit/Workdir.h"

namespace {

constexpr unsigned ReadMode = CFile::modeRead;
constexpr unsigned WriteMode = CFile::modeWrite | CFile::modeCreate;

// The cause of a refused opening, or none.
int OpeningCause(const std::u16string& path, unsigned flags) {
    CFile file;
    CFileException error(false);
    if (file.Open(path.c_str(), flags, &error)) return CFileException::none;
    EXPECT_FALSE(file.IsOpen());
    EXPECT_EQ(error.FileName, path);
    EXPECT_GT(error.OsError, 0);
    return error.Cause;
}

// The cause of the exception that an operation raises, or none.
template <class Operation>
int RaisedCause(Operation operation) {
    try {
        operation();
        return CFileException::none;
    } catch (CFileException* error) {
        const int cause = error->Cause;
        error->Delete();
        return cause;
    }
}

void Open(CFile& file, const std::u16string& path, unsigned flags) {
    CFileException error(false);
    ASSERT_TRUE(file.Open(path.c_str(), flags, &error)) << "cause " << error.Cause;
}

// Gives up the superuser's rights for as long as it lives; everybody else has none to give up.
class WithoutRights {
  public:
    WithoutRights() : Effective(geteuid() != 0 || seteuid(65534) == 0) {}
    WithoutRights(const WithoutRights&) = delete;
    WithoutRights& operator=(const WithoutRights&) = delete;
    ~WithoutRights() {
        if (getuid() == 0 && seteuid(0) != 0) ADD_FAILURE() << "the rights don't come back";
    }

    const bool Effective;
};

// No file may grow beyond `size` bytes: a full disk, as far as the writer can tell.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t size) : Handler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &Previous);
        const rlimit limit{size, Previous.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &Previous);
        std::signal(SIGXFSZ, Handler);
    }

  private:
    void (*Handler)(int);
    rlimit Previous{};
};

}  // namespace

TEST(FileOpening, RefusesWhatIsNoReadableFile) {
    const Workdir folder;
    folder.Write("file", "x");
    std::filesystem::create_directory(folder.NativePath("folder"));
    std::filesystem::create_symlink("loop", folder.NativePath("loop"));
    std::filesystem::create_symlink("nowhere", folder.NativePath("dangling"));
    ASSERT_EQ(mkfifo(folder.NativePath("pipe").c_str(), 0600), 0);
    const struct {
        std::string Name;
        unsigned Flags;
        int Cause;
    } cases[] = {
        {"missing", ReadMode, CFileException::fileNotFound},
        {"missing", CFile::modeWrite, CFileException::fileNotFound},
        {"missing/file", WriteMode, CFileException::fileNotFound},
        {"dangling", ReadMode, CFileException::fileNotFound},
        {"file/file", ReadMode, CFileException::badPath},
        {"loop", ReadMode, CFileException::badPath},
        {std::string(300, 'x'), ReadMode, CFileException::badPath},
        {"folder", ReadMode, CFileException::accessDenied},
        {"folder", WriteMode, CFileException::accessDenied},
        {"pipe", ReadMode, CFileException::badSeek},
        {"pipe", WriteMode, CFileException::genericException},  // nobody reads it
    };
    for (const auto& c : cases) {
        EXPECT_EQ(OpeningCause(folder.Path(c.Name), c.Flags), c.Cause) << c.Name << ", flags " << c.Flags;
    }
    EXPECT_EQ(OpeningCause(u"", ReadMode), CFileException::fileNotFound);
    EXPECT_EQ(OpeningCause(u"/dev/zero", ReadMode), CFileException::badSeek);
}

TEST(FileOpening, ObeysRights) {
    const Workdir folder;
    const std::u16string path = folder.Write("secret", "old");
    chmod(folder.NativePath("secret").c_str(), 0);
    const WithoutRights rights;
    if (!rights.Effective) GTEST_SKIP() << "the superuser's rights can't be given up here";
    EXPECT_EQ(OpeningCause(path, ReadMode), CFileException::accessDenied);
    EXPECT_EQ(OpeningCause(path, WriteMode), CFileException::accessDenied);
}

TEST(FileOpening, TakesNamesThatAreNoText) {
    const Workdir folder;
    const std::u16string path = folder.Write("\xFC\xF0\x9F\x98\x80\x80.csv", "x");
    EXPECT_EQ(OpeningCause(path, ReadMode), CFileException::none);
}

TEST(FileOpening, ExclusiveUseEndsWithTheFile) {
    constexpr unsigned Exclusive = ReadMode | CFile::shareExclusive;
    const Workdir folder;
    const std::u16string path = folder.Write("data.csv", "old");
    CFile first;
    Open(first, path, Exclusive);
    EXPECT_EQ(OpeningCause(path, Exclusive), CFileException::sharingViolation);
    EXPECT_EQ(OpeningCause(path, WriteMode | CFile::shareExclusive), CFileException::sharingViolation);
    EXPECT_EQ(folder.Read("data.csv"), "old") << "a refused opener must not empty the file";
    EXPECT_EQ(OpeningCause(path, ReadMode), CFileException::none) << "who doesn't ask isn't refused";

    Open(first, path, Exclusive);  // its own hold doesn't stand in its way
    first.Abort();
    EXPECT_EQ(OpeningCause(path, Exclusive), CFileException::none);
    Open(first, path, Exclusive);
    first.Close();
    EXPECT_EQ(OpeningCause(path, Exclusive), CFileException::none);
    {
        CFile second;
        Open(second, path, Exclusive);
    }
    EXPECT_EQ(OpeningCause(path, Exclusive), CFileException::none);
}

TEST(FileAccess, WritesReadsAndMoves) {
    const Workdir folder;
    const std::u16string path = folder.Write("data", "longer than what follows");
    CFile file;
    Open(file, path, WriteMode);
    file.Write("abc", 3);
    file.Write("", 0);
    file.Seek(1);
    file.Write("XYZ", 3);
    EXPECT_EQ(file.GetLength(), 4u);
    file.Close();
    EXPECT_EQ(folder.Read("data"), "aXYZ");

    Open(file, path, ReadMode);
    char bytes[8] = {};
    EXPECT_EQ(file.Read(bytes, 3), 3u);
    EXPECT_EQ(file.Read(bytes + 3, 5), 1u);
    EXPECT_EQ(file.Read(bytes + 4, 4), 0u);
    EXPECT_STREQ(bytes, "aXYZ");
    EXPECT_EQ(folder.Names(), "data");
}

TEST(FileAccess, ReachesBeyondFourGibibytes) {
    constexpr std::uint64_t Far = (std::uint64_t{1} << 32) + 5;
    const Workdir folder;
    const std::u16string path = folder.Path("sparse");
    CFile file;
    Open(file, path, WriteMode);
    file.Seek(Far);
    file.Write("far", 3);
    EXPECT_EQ(file.GetLength(), Far + 3);
    file.Close();

    Open(file, path, ReadMode);
    EXPECT_EQ(file.GetLength(), Far + 3);
    char bytes[4] = {};
    file.Seek(Far);
    EXPECT_EQ(file.Read(bytes, 4), 3u);
    EXPECT_STREQ(bytes, "far");
    file.Seek(Far - (std::uint64_t{1} << 32));
    EXPECT_EQ(file.Read(bytes, 1), 1u);
    EXPECT_EQ(bytes[0], '\0') << "the position was cut to 32 bits";
}

TEST(FileAccess, FailuresAreRaised) {
    const Workdir folder;
    const std::u16string path = folder.Write("data", "old");
    char byte = 0;
    CFile file;
    EXPECT_NE(RaisedCause([&] { file.Read(&byte, 1); }), CFileException::none) << "never opened";

    Open(file, path, ReadMode);
    EXPECT_NE(RaisedCause([&] { file.Write("new", 3); }), CFileException::none) << "opened for reading";
    EXPECT_TRUE(file.IsOpen());
    file.Close();
    EXPECT_EQ(RaisedCause([&] { file.Close(); }), CFileException::none);
    file.Abort();
    EXPECT_EQ(folder.Read("data"), "old");
}

TEST(FileAccess, ReadErrorsOfTheSystemAreRaised) {
    // The first page of a process is never there: reading it is an error of the device.
    CFile file;
    CFileException error(false);
    if (!file.Open(u"/proc/self/mem", ReadMode, &error)) GTEST_SKIP() << "no file at hand that fails";
    char byte = 0;
    EXPECT_EQ(RaisedCause([&] { file.Read(&byte, 1); }), CFileException::hardIO);
}

TEST(ReplaceFile, PutsTheBytesInPlace) {
    const Workdir folder;
    const std::u16string path = folder.Path("data");
    for (const std::string& bytes :
         {std::string("new"), std::string(1 << 20, 'x'), std::string("\0\r\n", 3), std::string()}) {
        ReplaceFile(path, bytes);
        EXPECT_EQ(folder.Read("data"), bytes);
        EXPECT_EQ(folder.Names(), "data");
    }
}

TEST(ReplaceFile, KeepsThePermissions) {
    const Workdir folder;
    const std::u16string path = folder.Write("data", "old");
    for (const auto mode : {0600u, 0640u, 0444u}) {
        std::filesystem::permissions(folder.NativePath("data"), std::filesystem::perms(mode));
        ReplaceFile(path, "new");
        EXPECT_EQ(std::filesystem::status(folder.NativePath("data")).permissions(),
                  std::filesystem::perms(mode));
    }
}

TEST(ReplaceFile, KeepsTheOldContentIfWritingFails) {
    const Workdir folder;
    const std::u16string path = folder.Write("data", "old");
    int cause = CFileException::none;
    {
        const FileSizeLimit limit(1000);
        cause = RaisedCause([&] { ReplaceFile(path, std::string(5000, 'x')); });
    }
    EXPECT_NE(cause, CFileException::none);
    EXPECT_EQ(folder.Read("data"), "old");
    EXPECT_EQ(folder.Names(), "data");
}

TEST(ReplaceFile, RefusesAPlaceThatTakesNoFile) {
    const Workdir folder;
    EXPECT_EQ(RaisedCause([&] { ReplaceFile(folder.Path("missing/data"), "new"); }),
              CFileException::fileNotFound);
    std::filesystem::create_directory(folder.NativePath("taken"));
    EXPECT_EQ(RaisedCause([&] { ReplaceFile(folder.Path("taken"), "new"); }), CFileException::accessDenied);
    EXPECT_TRUE(std::filesystem::is_directory(folder.NativePath("taken")));
    EXPECT_EQ(folder.Names(), "taken");
}

TEST(ReplaceFile, KeepsTheOldContentInAFolderThatIsNotWritable) {
    const Workdir folder;
    const std::u16string path = folder.Write("data", "old");
    chmod(folder.NativePath("").c_str(), 0555);
    {
        const WithoutRights rights;
        if (!rights.Effective) GTEST_SKIP() << "the superuser's rights can't be given up here";
        EXPECT_EQ(RaisedCause([&] { ReplaceFile(path, "new"); }), CFileException::accessDenied);
    }
    chmod(folder.NativePath("").c_str(), 0755);
    EXPECT_EQ(folder.Read("data"), "old");
    EXPECT_EQ(folder.Names(), "data");
}
