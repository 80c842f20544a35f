// A disk that fails, gives little at a time, or changes under its reader, in place of the real one.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <set>
#include <string>

#include "platform/framework/portable/FileCalls.h"

enum FileCall {
    CallOpen,
    CallClose,
    CallRead,
    CallWrite,
    CallSeek,
    CallStatus,
    CallStatusOfPath,
    CallSetMode,
    CallSetOwner,
    CallListAttributes,
    CallReadAttribute,
    CallWriteAttribute,
    CallTruncate,
    CallLock,
    CallSync,
    CallRename,
    CallRemove,
    FileCallCount
};

// Stands between the framework and the system's calls for as long as it lives, one at a time. Nothing is
// flushed to the disk meanwhile, nor waited between attempts at a lock, which costs time and shows nothing.
class FileFaults {
  public:
    FileFaults() {
        Active = this;
        FileCalls& calls = GetFileCalls();
        calls.Open = [](const char* path, int flags, mode_t mode) {
            const int descriptor = Pass(CallOpen, [&] { return Active->Real.Open(path, flags, mode); });
            if (descriptor >= 0) Active->Descriptors.insert(descriptor);
            return descriptor;
        };
        calls.Close = [](int descriptor) {
            // The descriptor is gone whatever the answer is.
            Active->Descriptors.erase(descriptor);
            const int closed = Active->Real.Close(descriptor);
            return Pass(CallClose, [&] { return closed; });
        };
        calls.Read = [](int descriptor, void* data, std::size_t size) {
            return Pass(CallRead, [&] { return Active->Real.Read(descriptor, data, Active->Part(size)); });
        };
        calls.ReadAt = [](int descriptor, void* data, std::size_t size, off_t position) {
            return Pass(CallRead,
                        [&] { return Active->Real.ReadAt(descriptor, data, Active->Part(size), position); });
        };
        calls.Write = [](int descriptor, const void* data, std::size_t size) {
            return Pass(CallWrite, [&] { return Active->Real.Write(descriptor, data, Active->Part(size)); });
        };
        Wrap<CallSeek, &FileCalls::Seek>(calls.Seek);
        Wrap<CallStatus, &FileCalls::Status>(calls.Status);
        Wrap<CallStatusOfPath, &FileCalls::StatusOfPath>(calls.StatusOfPath);
        Wrap<CallSetMode, &FileCalls::SetMode>(calls.SetMode);
        Wrap<CallSetOwner, &FileCalls::SetOwner>(calls.SetOwner);
        Wrap<CallListAttributes, &FileCalls::ListAttributes>(calls.ListAttributes);
        Wrap<CallReadAttribute, &FileCalls::ReadAttribute>(calls.ReadAttribute);
        Wrap<CallWriteAttribute, &FileCalls::WriteAttribute>(calls.WriteAttribute);
        Wrap<CallTruncate, &FileCalls::Truncate>(calls.Truncate);
        Wrap<CallLock, &FileCalls::Lock>(calls.Lock);
        Wrap<CallRename, &FileCalls::Rename>(calls.Rename);
        Wrap<CallRemove, &FileCalls::Remove>(calls.Remove);
        calls.Pause = [] {};
        calls.Sync = [](int) { return Pass(CallSync, [] { return 0; }); };
    }
    FileFaults(const FileFaults&) = delete;
    FileFaults& operator=(const FileFaults&) = delete;
    ~FileFaults() {
        GetFileCalls() = Real;
        Active = nullptr;
    }

    bool Armed = false;                // else nothing is counted and nothing fails
    int Failing = FileCallCount;       // the kind of call that fails
    int FailsAt = 1;                   // its number, from 1
    bool Forever = false;              // and all behind it
    int Error = EIO;                   // what errno then is
    std::size_t MostBytes = SIZE_MAX;  // that one call reads or writes
    int ChangesAt = 0;                 // the number among all calls before which Change is called
    std::function<void()> Change;

    std::array<int, FileCallCount> Calls{};  // so far
    int AllCalls = 0;
    int Injected = 0;           // faults
    std::set<int> Descriptors;  // open now

  private:
    template <class Call>
    static auto Pass(FileCall kind, Call call) -> decltype(call()) {
        FileFaults& self = *Active;
        if (!self.Armed) return call();
        const int number = ++self.Calls[kind];
        if (++self.AllCalls == self.ChangesAt) self.Change();
        if (kind != self.Failing || number < self.FailsAt || (number > self.FailsAt && !self.Forever)) {
            return call();
        }
        ++self.Injected;
        errno = self.Error;
        return -1;
    }
    template <FileCall Kind, auto Member, class Answer, class... Arguments>
    static void Wrap(Answer (*&call)(Arguments...)) {
        call = [](Arguments... arguments) {
            return Pass(Kind, [&] { return (Active->Real.*Member)(arguments...); });
        };
    }
    std::size_t Part(std::size_t size) const { return std::min(size, MostBytes); }

    static inline FileFaults* Active = nullptr;
    const FileCalls Real = GetFileCalls();
};
