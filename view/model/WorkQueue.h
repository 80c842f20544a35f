// A thread that does one piece of work after the other.
#pragma once

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace kelvarin::view {
// What reads files works here: settings in force are the process's, so that one file is read at a time.
class WorkQueue {
  public:
    // `cancel` becomes true when the work is to end early.
    using Work = std::function<void(const std::atomic<bool>& cancel)>;

    WorkQueue() : Worker([this] { Run(); }) {}
    WorkQueue(const WorkQueue&) = delete;
    WorkQueue& operator=(const WorkQueue&) = delete;

    // Cancels what is being done, drops what is waiting, and waits for the end.
    ~WorkQueue() {
        {
            const std::lock_guard lock(Mutex);
            IsEnding = true;
            Cancelled = true;
            Waiting.clear();
        }
        Changed.notify_all();
        Worker.join();
    }

    void Add(Work work) {
        {
            const std::lock_guard lock(Mutex);
            Waiting.push_back(std::move(work));
        }
        Changed.notify_all();
    }

    // Ends what is being done; the rest goes on.
    void Cancel() { Cancelled = true; }

    // True if nothing is done and nothing waits.
    bool IsIdle() {
        const std::lock_guard lock(Mutex);
        return !IsWorking && Waiting.empty();
    }

  private:
    void Run() {
        std::unique_lock lock(Mutex);
        for (;;) {
            Changed.wait(lock, [this] { return IsEnding || !Waiting.empty(); });
            if (IsEnding) return;
            const Work work = std::move(Waiting.front());
            Waiting.pop_front();
            IsWorking = true;
            Cancelled = false;
            lock.unlock();
            work(Cancelled);
            lock.lock();
            IsWorking = false;
        }
    }

    std::mutex Mutex;
    std::condition_variable Changed;
    std::deque<Work> Waiting;
    std::atomic<bool> Cancelled = false;
    bool IsWorking = false;
    bool IsEnding = false;
    std::thread Worker;  // last: it uses the others
};
}  // namespace kelvarin::view
