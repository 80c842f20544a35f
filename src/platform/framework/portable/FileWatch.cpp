#include "platform/framework/FileWatch.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/framework/Path.h"

FileWatch::FileWatch(const std::u16string& path)
    : Path(path), Handle(open(PathToNative(path).c_str(), O_PATH | O_CLOEXEC)), Before(HeldNow()) {}

FileWatch::~FileWatch() {
    if (Handle != None) close(static_cast<int>(Handle));
}

FileWatch::State FileWatch::HeldNow() const {
    struct stat status {};
    if (Handle == None || fstat(static_cast<int>(Handle), &status) != 0) return {};
    constexpr std::int64_t Second = 1'000'000'000;
    return {status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
            status.st_mtim.tv_sec * Second + status.st_mtim.tv_nsec};
}

FileChange FileWatch::Change() const {
    if (Handle == None) return FileChange::None;
    struct stat named {};
    if (stat(PathToNative(Path).c_str(), &named) != 0) return FileChange::Removed;
    if (named.st_dev != Before.Device || named.st_ino != Before.Number) return FileChange::Replaced;
    const State now = HeldNow();
    if (now.Size < Before.Size) return FileChange::Cut;
    return now.Size == Before.Size && now.Written != Before.Written ? FileChange::Overwritten
                                                                    : FileChange::None;
}
