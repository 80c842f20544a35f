#include "platform/framework/ReplacingFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <vector>

#include "platform/framework/FileError.h"
#include "platform/framework/Path.h"
#include "platform/framework/portable/FileCalls.h"
#include "platform/framework/portable/TemporaryFile.h"

namespace fs = std::filesystem;

namespace {

// The path that the links lead to, whether there is a file or not; the path itself if they have no end.
std::string FollowLinks(const std::string& path) {
    constexpr int MostLinks = 40;
    fs::path at = path;
    std::error_code error;
    for (int links = 0; links < MostLinks; ++links) {
        const fs::path target = fs::read_symlink(at, error);
        if (error) return at.native();
        at = at.parent_path() / target;  // an absolute target replaces the folder
    }
    return path;
}

// The permissions that the process gives to a new file.
mode_t NewFileMode() {
    static const mode_t mask = [] {
        const mode_t before = umask(0077);
        umask(before);
        return before;
    }();
    return 0666 & ~mask;
}

// Reads a value of unknown size; false with errno set.
template <class Ask>
bool ReadSized(std::vector<char>& value, Ask ask) {
    const ssize_t size = ask(nullptr, 0);
    if (size < 0) return false;
    value.resize(static_cast<std::size_t>(size));
    const ssize_t count = ask(value.data(), value.size());
    if (count < 0) return false;
    value.resize(static_cast<std::size_t>(count));
    return true;
}

bool CopyAttribute(int from, int to, const char* name) {
    const FileCalls& calls = GetFileCalls();
    std::vector<char> value;
    const auto read = [&](char* data, std::size_t size) {
        return calls.ReadAttribute(from, name, data, size);
    };
    return ReadSized(value, read) && calls.WriteAttribute(to, name, value.data(), value.size(), 0) == 0;
}

// Gives a file the extended attributes of another one; access control lists are among them.
bool CopyAttributes(int from, int to) {
    // Those of the system's own guards are set by the system.
    constexpr std::string_view SystemsOwn = "security.";
    std::vector<char> names;
    const auto list = [&](char* data, std::size_t size) {
        return GetFileCalls().ListAttributes(from, data, size);
    };
    if (!ReadSized(names, list)) return errno == ENOTSUP;
    names.push_back(0);
    for (const char* name = names.data(); *name != 0; name += std::string_view(name).size() + 1) {
        if (!std::string_view(name).starts_with(SystemsOwn) && !CopyAttribute(from, to, name)) return false;
    }
    return true;
}

// Gives a file the owner, the group, the permissions and the attributes of another one.
bool TakeOver(int from, int to) {
    const FileCalls& calls = GetFileCalls();
    struct stat old {};
    struct stat made {};
    if (calls.Status(from, &old) != 0 || calls.Status(to, &made) != 0) return false;
    const bool isOwners = old.st_uid == made.st_uid && old.st_gid == made.st_gid;
    if (!isOwners && calls.SetOwner(to, old.st_uid, old.st_gid) != 0) return false;
    return CopyAttributes(from, to) && calls.SetMode(to, old.st_mode & 07777) == 0;
}

// True for an errno value that says what the user may not do, or what the file system has not.
bool IsRefusal(int number) {
    return number == EACCES || number == EPERM || number == EROFS || number == ENOTSUP;
}

bool Sync(int descriptor) {
    return Uninterrupted([&] { return GetFileCalls().Sync(descriptor); }) == 0;
}

// Makes a file's new name last. A file system that can't do that has no way to tell of it that would help.
void SyncFolder(const std::string& path) {
    const std::string folder = fs::path(path).parent_path().native();
    constexpr int Flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    const FileCalls& calls = GetFileCalls();
    const int descriptor =
        Uninterrupted([&] { return calls.Open(folder.empty() ? "." : folder.c_str(), Flags, 0); });
    if (descriptor < 0) return;
    Sync(descriptor);
    calls.Close(descriptor);
}

bool CopyContent(int from, int to) {
    const FileCalls& calls = GetFileCalls();
    if (Uninterrupted([&] { return calls.Seek(from, 0, SEEK_SET); }) < 0) return false;
    if (Uninterrupted([&] { return calls.Truncate(to, 0); }) != 0) return false;
    std::vector<char> block(1 << 16);
    for (;;) {
        const ssize_t count = Uninterrupted([&] { return calls.Read(from, block.data(), block.size()); });
        if (count < 0) return false;
        if (count == 0) return Sync(to);
        if (!WriteAll(to, block.data(), static_cast<std::size_t>(count))) return false;
    }
}

}  // namespace

struct ReplacingFile::Replacement {
    ~Replacement() {
        if (Old >= 0) GetFileCalls().Close(Old);
    }

    // All return 0 or the errno value of a failure.
    int Open(const std::string& path);
    int MakeNew(Writers writers);
    int Finish();

    std::string Target;
    int Old = -1;  // the file that is replaced, open for writing; -1: there is none
    TemporaryFile New;
    bool IsBeside = true;
};

// Whoever may not write the file may not replace it either, though its folder would allow that.
int ReplacingFile::Replacement::Open(const std::string& path) {
    Target = FollowLinks(path);
    constexpr int Flags = O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    const FileCalls& calls = GetFileCalls();
    Old = Uninterrupted([&] { return calls.Open(Target.c_str(), Flags, 0); });
    if (Old < 0) return errno == ENOENT ? 0 : errno == ENXIO ? ESPIPE : errno;
    struct stat status {};
    return Uninterrupted([&] { return calls.Status(Old, &status); }) == 0 ? RefusalOfKind(status) : errno;
}

int ReplacingFile::Replacement::MakeNew(Writers writers) {
    IsBeside = New.MakeBeside(Target);
    if (IsBeside) return writers == Writers::One && New.HasOthersBeside(Target) ? EWOULDBLOCK : 0;
    return Old >= 0 && IsRefusal(errno) && New.MakeNameless() ? 0 : errno;
}

int ReplacingFile::Replacement::Finish() {
    const int content = New.GetDescriptor();
    if (!Sync(content)) return errno;
    if (Old < 0) {
        if (GetFileCalls().SetMode(content, NewFileMode()) != 0) return errno;
    } else if (!IsBeside || !TakeOver(Old, content)) {
        if (IsBeside && !IsRefusal(errno)) return errno;
        return CopyContent(content, Old) ? 0 : errno;
    }
    if (!New.MoveTo(Target)) return errno;
    SyncFolder(Target);
    return 0;
}

ReplacingFile::ReplacingFile(const std::u16string& path, Writers writers)
    : Path(path), Pending(std::make_unique<Replacement>()) {
    int refusal = Pending->Open(PathToNative(path));
    if (refusal == 0) refusal = Pending->MakeNew(writers);
    if (refusal != 0) RaiseFileError(refusal, Path);
}

ReplacingFile::~ReplacingFile() = default;

void ReplacingFile::Write(const void* data, std::size_t size) {
    if (!WriteAll(Pending->New.GetDescriptor(), static_cast<const char*>(data), size))
        RaiseFileError(errno, Path);
}

std::string ReplacingFile::PathForLibrary() const {
    return "/proc/self/fd/" + std::to_string(Pending->New.GetDescriptor());
}

void ReplacingFile::Finish() {
    if (const int refusal = Pending->Finish(); refusal != 0) RaiseFileError(refusal, Path);
}
