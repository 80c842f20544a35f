// Files: what is refused at opening, exclusive use, positions, and what a failure raises.
#include "platform/framework/File.h"

#include <sys/stat.h>

#include "kit/CheckRows.h"
#include "kit/Workdir.h"

namespace {

constexpr unsigned ReadMode = CFile::modeRead | CFile::shareExclusive;
constexpr unsigned WriteMode = CFile::modeWrite | CFile::modeCreate;

// The cause of a refused opening, or none.
int OpeningCause(const std::u16string& path, unsigned flags, CFile* target = nullptr) {
    CFile own;
    CFileException error(false);
    if ((target ? *target : own).Open(path.c_str(), flags, &error)) return CFileException::none;
    EXPECT_EQ(error.FileName, path);
    return error.Cause;
}

}  // namespace

TEST(Path, HasAFolderAndAName) {
    CheckRows("a->|/a->|b/a->b|b/c/->b/c|->",
              [](const std::u16string& path) { return Utf16ToUtf8(PathFolder(path)); });
    CheckRows("a->a|/a->a|b/->b/|->",
              [](const std::u16string& path) { return Utf16ToUtf8(PathStripPath(path)); });
}

TEST(File, OpeningTellsWhyNot) {
    const Workdir folder;
    folder.Write("file", "x"), folder.Write("\xFC", "x");
    std::filesystem::create_directory(folder.NativePath("folder"));
    std::filesystem::create_symlink("loop", folder.NativePath("loop"));
    ASSERT_EQ(mkfifo(folder.NativePath("pipe").c_str(), 0600), 0);
    const auto causes = [&](std::string_view name) {  // of reading and of writing
        const int reading = OpeningCause(folder.Path(name), ReadMode);
        return std::to_string(reading) + " " + std::to_string(OpeningCause(folder.Path(name), WriteMode));
    };
    CheckRows("\xFC->0 0|folder->5 5|file/a->3 3|loop->3 3|none/a->2 2|none->2 0|pipe->9 1", causes);
}

TEST(File, ExclusiveUseEndsWithTheFile) {
    const Workdir folder;
    const std::u16string path = folder.Write("data.csv", "old");
    CFile file;
    for (const bool aborts : {false, true}) {
        EXPECT_EQ(OpeningCause(path, ReadMode, &file), CFileException::none);
        EXPECT_EQ(OpeningCause(path, ReadMode), CFileException::sharingViolation);
        EXPECT_EQ(OpeningCause(path, WriteMode | CFile::shareExclusive), CFileException::sharingViolation);
        EXPECT_EQ(folder.Read("data.csv"), "old") << "a refused opener must not empty the file";
        EXPECT_EQ(OpeningCause(path, CFile::modeRead), CFileException::none) << "it doesn't ask";
        EXPECT_EQ(OpeningCause(path, ReadMode, &file), CFileException::none) << "its own hold";
        aborts ? file.Abort() : file.Close();
        EXPECT_EQ(OpeningCause(path, ReadMode), CFileException::none);
    }
}

TEST(File, WritesReadsAndMovesBeyondFourGibibytes) {
    constexpr std::uint64_t Far = 0x1'0000'0001;
    const Workdir folder;
    const std::u16string path = folder.Write("data", "longer than what follows");
    CFile file;
    EXPECT_EQ(OpeningCause(path, WriteMode, &file), CFileException::none);
    file.Write("abc", 3);
    file.Seek(Far);
    file.Write("far", 3);
    file.Close();
    ASSERT_EQ(OpeningCause(path, ReadMode, &file), CFileException::none);
    EXPECT_EQ(file.GetLength(), Far + 3);
    char bytes[8] = {};
    EXPECT_EQ(file.Read(bytes, 3), 3u);
    file.Seek(Far);
    EXPECT_EQ(file.Read(bytes + 3, 5), 3u);
    EXPECT_STREQ(bytes, "abcfar");
}

TEST(File, AReadErrorIsRaised) {
    CFile memory;  // of which the first page is never there
    ASSERT_EQ(OpeningCause(u"/proc/self/mem", CFile::modeRead, &memory), CFileException::none);
    try {
        char byte = 0;
        FAIL() << memory.Read(&byte, 1);
    } catch (CFileException* error) {
        EXPECT_EQ(error->Cause, CFileException::hardIO);
        error->Delete();
    }
}
