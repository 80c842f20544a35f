#include "platform/framework/StandardStreams.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

#include "platform/framework/OutputCalls.h"
#include "platform/framework/portable/FileCalls.h"

void OpenStandardStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        // The lowest free descriptor is taken, which is this one.
        if (fcntl(stream, F_GETFD) == -1 && errno == EBADF)
            open("/dev/null", stream == STDIN_FILENO ? O_RDONLY : O_WRONLY);
    }
    std::signal(SIGPIPE, SIG_IGN);
    WatchOutput();
}

int WriteOutput(const char* data, std::size_t size) {
    while (size > 0) {
        const ssize_t count = Uninterrupted([&] { return write(STDOUT_FILENO, data, size); });
        if (count < 0) return errno;
        data += count;
        size -= static_cast<std::size_t>(count);
    }
    return 0;
}

// Network file systems report some failures at closing, of any descriptor of the file.
int LateOutputFailure() {
    const int copy = dup(STDOUT_FILENO);
    return copy >= 0 && close(copy) != 0 && errno != EINTR ? errno : 0;
}

bool IsReaderGone(int error) {
    return error == EPIPE;
}

std::string DescribeOutputError(int error) {
    return std::strerror(error);
}

std::int64_t OutputPosition() {
    struct stat status {};
    if (fstat(STDOUT_FILENO, &status) != 0 || !S_ISREG(status.st_mode)) return -1;
    return lseek(STDOUT_FILENO, 0, SEEK_CUR);
}

void CutOutput(std::int64_t position) {
    if (ftruncate(STDOUT_FILENO, position) == 0) lseek(STDOUT_FILENO, position, SEEK_SET);
}
