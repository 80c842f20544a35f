// The operating system's calls on files, in one table that all of the framework's files go through: a disk
// that is full, slow or broken can be put in the place of the real one.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cerrno>
#include <cstddef>
#include <string>

// Each answers as the call of its name does: below 0 for a failure, with errno set.
struct FileCalls {
    int (*Open)(const char* path, int flags, mode_t mode);
    int (*Close)(int descriptor);
    ssize_t (*Read)(int descriptor, void* data, std::size_t size);
    ssize_t (*ReadAt)(int descriptor, void* data, std::size_t size, off_t position);
    ssize_t (*Write)(int descriptor, const void* data, std::size_t size);
    off_t (*Seek)(int descriptor, off_t position, int origin);
    int (*Status)(int descriptor, struct stat* status);
    int (*StatusOfPath)(const char* path, struct stat* status);
    int (*SetMode)(int descriptor, mode_t mode);
    int (*SetOwner)(int descriptor, uid_t owner, gid_t group);
    ssize_t (*ListAttributes)(int descriptor, char* names, std::size_t size);
    ssize_t (*ReadAttribute)(int descriptor, const char* name, void* value, std::size_t size);
    int (*WriteAttribute)(int descriptor, const char* name, const void* value, std::size_t size, int flags);
    int (*Truncate)(int descriptor, off_t length);
    int (*Lock)(int descriptor, int operation);
    int (*Sync)(int descriptor);
    int (*Rename)(const char* from, const char* to);
    int (*Remove)(const char* path);
    void (*Pause)();  // some thousandths of a second, between two attempts at a lock
};

// The calls in force, at first the system's own. They may change while no file is in use.
FileCalls& GetFileCalls();

// Makes a call again as long as signals interrupt it, which they may do to any but Close.
template <class Call>
auto Uninterrupted(Call call) {
    auto answer = call();
    while (answer < 0 && errno == EINTR) answer = call();
    return answer;
}

// Writes all of the bytes; false with errno set.
bool WriteAll(int descriptor, const char* next, std::size_t size);

// True if the descriptor's file has this path, and hasn't been moved or removed.
bool IsStillAt(int descriptor, const std::string& path);

// 0 for a regular file, else the errno value that says why it can't be used.
int RefusalOfKind(const struct stat& status);

// Takes a lock (LOCK_SH, LOCK_EX) for which a holder is waited for. False with errno EWOULDBLOCK if it is
// still held after five seconds. On a file system without locks every lock is taken.
bool LockInTime(int descriptor, int operation);
