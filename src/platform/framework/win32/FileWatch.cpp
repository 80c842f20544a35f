#include "platform/framework/FileWatch.h"

#include "platform/framework/win32/Api.h"

namespace {

std::uint64_t Joined(DWORD high, DWORD low) {
    return static_cast<std::uint64_t>(high) << 32 | low;
}

// Asks for no right, so that it stands in nobody's way.
HANDLE OpenToLook(const std::u16string& path) {
    return CreateFileW(W(ApiPath(path)), 0, ShareAll, nullptr, OPEN_EXISTING, 0, nullptr);
}

}  // namespace

FileWatch::FileWatch(const std::u16string& path)
    : Path(path), Handle(reinterpret_cast<std::intptr_t>(OpenToLook(path))), Before(HeldNow()) {}

FileWatch::~FileWatch() {
    if (Handle != None) CloseHandle(reinterpret_cast<HANDLE>(Handle));
}

FileWatch::State FileWatch::HeldNow() const {
    BY_HANDLE_FILE_INFORMATION file{};
    if (Handle == None || !GetFileInformationByHandle(reinterpret_cast<HANDLE>(Handle), &file)) return {};
    return {file.dwVolumeSerialNumber, Joined(file.nFileIndexHigh, file.nFileIndexLow),
            Joined(file.nFileSizeHigh, file.nFileSizeLow),
            static_cast<std::int64_t>(
                Joined(file.ftLastWriteTime.dwHighDateTime, file.ftLastWriteTime.dwLowDateTime))};
}

FileChange FileWatch::Change() const {
    if (Handle == None) return FileChange::None;
    const FileWatch named(Path);
    if (named.Handle == None) return FileChange::Removed;
    if (named.Before.Device != Before.Device || named.Before.Number != Before.Number)
        return FileChange::Replaced;
    const State now = HeldNow();
    if (now.Size < Before.Size) return FileChange::Cut;
    return now.Size == Before.Size && now.Written != Before.Written ? FileChange::Overwritten
                                                                    : FileChange::None;
}
