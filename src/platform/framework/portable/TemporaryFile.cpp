#include "platform/framework/portable/TemporaryFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <mutex>
#include <random>

#include "platform/framework/portable/FileCalls.h"

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Mark = ".kelvarin-";
constexpr std::size_t RandomDigits = 16;
constexpr int MostAttempts = 100;
constexpr mode_t OwnerOnly = 0600;

std::string FolderOf(const std::string& path) {
    const std::size_t at = path.rfind('/');
    return at == std::string::npos ? "." : path.substr(0, at + 1);
}

std::string NameOf(const std::string& path) {
    return path.substr(path.rfind('/') + 1);  // npos + 1 is 0
}

// What the names of all temporary files beside this path begin with.
std::string PrefixFor(const std::string& path) {
    // With the rest it has to stay below 255 bytes.
    constexpr std::size_t LongestName = 200;
    return NameOf(path).substr(0, LongestName).append(Mark);
}

std::string NewEnding() {
    std::random_device random;
    std::string ending = std::to_string(getpid()) + "-";
    for (std::size_t i = 0; i < RandomDigits; ++i) ending += "0123456789abcdef"[random() % 16];
    return ending;
}

// True for a name that NewEnding has given.
bool IsTemporaryName(std::string_view name) {
    const std::size_t at = name.rfind(Mark);
    if (at == std::string_view::npos) return false;
    const std::string_view ending = name.substr(at + Mark.size());
    const std::size_t dash = ending.find('-');
    if (dash == 0 || dash == std::string_view::npos || ending.size() != dash + 1 + RandomDigits) return false;
    const auto isOf = [](std::string_view text, std::string_view digits) {
        return text.find_first_not_of(digits) == std::string_view::npos;
    };
    return isOf(ending.substr(0, dash), "0123456789") && isOf(ending.substr(dash + 1), "0123456789abcdef");
}

void ForEachTemporary(const std::string& folder, const std::function<void(const std::string& path)>& take) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (IsTemporaryName(entry->path().filename().native())) take(entry->path().native());
    }
}

// Opens a temporary file of another run. Nothing is done to it.
int OpenOther(const std::string& path) {
    constexpr int Flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    return Uninterrupted([&] { return GetFileCalls().Open(path.c_str(), Flags, 0); });
}

// Removes the file if it is this user's and the process that made it is gone: that would hold its lock.
void RemoveIfLeft(const std::string& path) {
    const FileCalls& calls = GetFileCalls();
    const int descriptor = OpenOther(path);
    if (descriptor < 0) return;
    struct stat status {};
    const bool isOwn = calls.Status(descriptor, &status) == 0 && S_ISREG(status.st_mode) &&
                       status.st_uid == geteuid() && status.st_nlink == 1;
    if (isOwn && calls.Lock(descriptor, LOCK_EX | LOCK_NB) == 0 && IsStillAt(descriptor, path))
        calls.Remove(path.c_str());
    calls.Close(descriptor);
}

// Looks through a folder once for each process, since one with many files takes long.
void RemoveLeftFiles(const std::string& folder) {
    static std::mutex mutex;
    static std::string seenFolder;
    static pid_t seenBy = 0;
    {
        const std::lock_guard lock(mutex);
        if (seenFolder == folder && seenBy == getpid()) return;
        seenFolder = folder;
        seenBy = getpid();
    }
    ForEachTemporary(folder, RemoveIfLeft);
}

}  // namespace

bool TemporaryFile::MakeBeside(const std::string& path) {
    RemoveLeftFiles(FolderOf(path));
    const std::string prefix = FolderOf(path) == "." ? "" : FolderOf(path);
    for (int attempt = 0; attempt < MostAttempts; ++attempt) {
        if (TryMake(prefix + PrefixFor(path) + NewEnding())) return true;
        if (errno != EEXIST) return false;
    }
    return false;
}

// False with EEXIST if another name has to be tried.
bool TemporaryFile::TryMake(const std::string& path) {
    {
        const SignalsHeld held;
        constexpr int Flags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
        Descriptor = Uninterrupted([&] { return GetFileCalls().Open(path.c_str(), Flags, OwnerOnly); });
        if (Descriptor < 0) return false;
        Path = path;
        Guard.Enter(Path);
    }
    if (Holds()) return true;
    Discard();
    errno = EEXIST;
    return false;
}

// Takes the lock. Until then a run that clears the folder may have found the file without a holder.
bool TemporaryFile::Holds() {
    const auto lock = [&] { return GetFileCalls().Lock(Descriptor, LOCK_EX | LOCK_NB); };
    if (Uninterrupted(lock) != 0) return errno != EWOULDBLOCK;
    struct stat status {};
    return GetFileCalls().Status(Descriptor, &status) != 0 || status.st_nlink != 0;
}

bool TemporaryFile::MakeNameless() {
    Descriptor = OpenNamelessFile();
    return Descriptor >= 0;
}

bool TemporaryFile::MoveTo(const std::string& path) {
    if (Uninterrupted([&] { return GetFileCalls().Rename(Path.c_str(), path.c_str()); }) != 0) return false;
    Guard.Leave();
    Path.clear();
    Discard();
    return true;
}

void TemporaryFile::Discard() {
    const int number = errno;
    if (!Path.empty()) GetFileCalls().Remove(Path.c_str());
    Guard.Leave();
    Path.clear();
    if (Descriptor >= 0) GetFileCalls().Close(Descriptor);
    Descriptor = -1;
    errno = number;
}

bool TemporaryFile::HasOthersBeside(const std::string& path) const {
    bool hasOthers = false;
    const std::string prefix = PrefixFor(path);
    ForEachTemporary(FolderOf(path), [&](const std::string& other) {
        if (hasOthers || other.ends_with(Path) || !NameOf(other).starts_with(prefix)) return;
        const int descriptor = OpenOther(other);
        if (descriptor < 0) return;
        hasOthers = GetFileCalls().Lock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
        GetFileCalls().Close(descriptor);
    });
    return hasOthers;
}

int OpenNamelessFile() {
    std::error_code error;
    const std::string folder = fs::temp_directory_path(error).native();
    if (error) {
        errno = error.value();
        return -1;
    }
    const SignalsHeld held;
    const std::string path = folder + "/kelvarin" + std::string(Mark) + NewEnding();
    constexpr int Flags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const int descriptor = Uninterrupted([&] { return GetFileCalls().Open(path.c_str(), Flags, OwnerOnly); });
    if (descriptor >= 0) GetFileCalls().Remove(path.c_str());
    return descriptor;
}
