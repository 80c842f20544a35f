// A disk that takes its time, so that a test can look at a window while a file is read.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "platform/framework/portable/FileCalls.h"

namespace window_tests {

// Gives the first bytes that are read slowly, and no more of them until it is let go. Lives while no file is
// in use, but for what is read through it.
class SlowDisk {
  public:
    explicit SlowDisk(std::size_t bytes) : Left(bytes) {
        Active = this;
        GetFileCalls().Read = [](int descriptor, void* data, std::size_t size) {
            Active->Wait(size);
            return Active->Real.Read(descriptor, data, size);
        };
        GetFileCalls().ReadAt = [](int descriptor, void* data, std::size_t size, off_t position) {
            Active->Wait(size);
            return Active->Real.ReadAt(descriptor, data, size, position);
        };
    }
    SlowDisk(const SlowDisk&) = delete;
    SlowDisk& operator=(const SlowDisk&) = delete;
    ~SlowDisk() {
        GetFileCalls() = Real;
        Active = nullptr;
    }

    void LetGo() {
        const std::lock_guard lock(Mutex);
        IsFree = true;
        Changed.notify_all();
    }

  private:
    void Wait(std::size_t size) {
        std::unique_lock lock(Mutex);
        if (IsFree) return;
        if (Left >= size) {
            Left -= size;
            lock.unlock();
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
            return;
        }
        Changed.wait(lock, [this] { return IsFree; });
    }

    static inline SlowDisk* Active = nullptr;
    const FileCalls Real = GetFileCalls();
    std::mutex Mutex;
    std::condition_variable Changed;
    std::size_t Left;
    bool IsFree = false;
};

}  // namespace window_tests
