#include "platform/framework/StandardStreams.h"

#include <io.h>

#include <algorithm>
#include <cstdio>
#include <system_error>

#include "platform/framework/OutputCalls.h"
#include "platform/framework/win32/Api.h"

namespace {

HANDLE Output() {
    return GetStdHandle(STD_OUTPUT_HANDLE);
}

}  // namespace

void OpenStandardStreams() {
    for (std::FILE* const stream : {stdin, stdout, stderr}) {
        if (_fileno(stream) < 0) std::freopen("NUL", stream == stdin ? "rb" : "wb", stream);
    }
    WatchOutput();
}

int WriteOutput(const char* data, std::size_t size) {
    constexpr std::size_t Most = std::size_t{1} << 20;
    // A stream that came closed has no handle; what is written to it goes nowhere.
    while (size > 0 && Output() != nullptr && Output() != INVALID_HANDLE_VALUE) {
        DWORD count = 0;
        if (!WriteFile(Output(), data, static_cast<DWORD>(std::min(size, Most)), &count, nullptr))
            return static_cast<int>(GetLastError());
        data += count;
        size -= count;
    }
    return 0;
}

int LateOutputFailure() {
    return 0;
}

bool IsReaderGone(int error) {
    return error == ERROR_NO_DATA || error == ERROR_BROKEN_PIPE;
}

std::string DescribeOutputError(int error) {
    return std::system_category().message(error);
}

std::int64_t OutputPosition() {
    LARGE_INTEGER position{};
    const bool isFile = GetFileType(Output()) == FILE_TYPE_DISK &&
                        SetFilePointerEx(Output(), position, &position, FILE_CURRENT) != 0;
    return isFile ? position.QuadPart : -1;
}

void CutOutput(std::int64_t position) {
    LARGE_INTEGER place{};
    place.QuadPart = position;
    if (SetFilePointerEx(Output(), place, nullptr, FILE_BEGIN)) SetEndOfFile(Output());
}
