#include "host/hdf5/PartFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "host/hdf5/Hdf5Handle.h"
#include "host/language/Phrase.h"
#include "platform/framework/portable/FileCalls.h"

namespace kelvarin::hdf5 {

namespace {

[[noreturn]] void RaiseSystemError() {
    throw Hdf5Error(std::strerror(errno));
}

std::string FollowLink(const std::string& path) {
    std::error_code error;
    const std::filesystem::path real = std::filesystem::canonical(path, error);
    return error ? path : real.string();
}

// True if the descriptor is of the file at the path, and no longer of one that has moved away.
bool IsStillAt(int descriptor, const std::string& path) {
    struct stat held {};
    struct stat named {};
    if (GetFileCalls().Status(descriptor, &held) != 0) RaiseSystemError();
    return GetFileCalls().StatusOfPath(path.c_str(), &named) == 0 && held.st_ino == named.st_ino &&
           held.st_dev == named.st_dev;
}

}  // namespace

PartFile::PartFile(const std::string& path) : Target(FollowLink(path)), PartPath(Target + ".part") {
    const FileCalls& calls = GetFileCalls();
    struct stat there {};
    if (calls.StatusOfPath(Target.c_str(), &there) == 0 && !S_ISREG(there.st_mode))
        throw Hdf5Error(Phrase("it exists and is no file"));
    constexpr int Flags = O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC;
    Descriptor = Uninterrupted([&] { return calls.Open(PartPath.c_str(), Flags, 0666); });
    if (Descriptor < 0) RaiseSystemError();
    // A file system without locks can't tell another writer; that is no reason to refuse the file.
    const bool isBusy = calls.Lock(Descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (isBusy || !IsStillAt(Descriptor, PartPath)) {
        calls.Close(Descriptor);
        throw Hdf5Error(Phrase("another run is just writing it"));
    }
}

PartFile::~PartFile() {
    if (!IsFinished) GetFileCalls().Remove(PartPath.c_str());
    GetFileCalls().Close(Descriptor);
}

void PartFile::Finish() {
    const FileCalls& calls = GetFileCalls();
    struct stat old {};
    if (calls.StatusOfPath(Target.c_str(), &old) == 0) calls.SetMode(Descriptor, old.st_mode & 07777);
    const bool isDone = Uninterrupted([&] { return calls.Sync(Descriptor); }) == 0 &&
                        Uninterrupted([&] { return calls.Rename(PartPath.c_str(), Target.c_str()); }) == 0;
    if (!isDone) RaiseSystemError();
    IsFinished = true;
}

}  // namespace kelvarin::hdf5
