#include "python/native/Call.h"

#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>

#include "python/native/Process.h"

namespace kelvarin::python {
namespace {
using namespace std::chrono_literals;

// How long Ctrl-C may go unseen.
constexpr std::chrono::milliseconds Poll = 20ms;

using Work = std::function<void(const ModuleLoader& module, CallState& state)>;

// The work on its thread, from beginning to end.
class Worker {
  public:
    explicit Worker(const Work& work) : Thread([this, &work] { Run(work); }) {}
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    // Without the lock of the interpreter, which others may hold for long.
    ~Worker() {
        State.Cancel = true;
        const py::gil_scoped_release released;
        Thread.join();
    }

    // Waits a little; true once the work is done.
    bool WaitForEnd() {
        const py::gil_scoped_release released;
        std::unique_lock lock(Mutex);
        return Ended.wait_for(lock, Poll, [this] { return IsDone; });
    }

    CallState State;
    std::exception_ptr Thrown;  // by the work, once it is done

  private:
    void Run(const Work& work) {
        try {
            Begin(work);
        } catch (...) {
            Thrown = std::current_exception();
        }
        const std::lock_guard lock(Mutex);
        IsDone = true;
        Ended.notify_all();
    }

    void Begin(const Work& work) {
        while (!State.Cancel) {
            const ProcessLock lock(Poll);
            if (!lock.IsHeld()) continue;
            work(LoadedModule(), State);
            return;
        }
    }

    std::mutex Mutex;
    std::condition_variable Ended;
    bool IsDone = false;  // under the mutex
    std::thread Thread;
};

// Tells a function of Python how far the work is, when that has changed.
class ProgressTeller {
  public:
    explicit ProgressTeller(const py::object& progress) : Progress(progress) {}

    void Tell(std::uint32_t percent) {
        if (Progress.is_none() || Told == percent) return;
        Told = percent;
        Progress(static_cast<double>(percent) / 100);
    }

  private:
    static constexpr std::uint32_t Nothing = ~std::uint32_t{0};

    const py::object& Progress;
    std::uint32_t Told = Nothing;
};
}  // namespace

void DoCall(const Work& work, const py::object& progress) {
    ProgressTeller teller(progress);
    Worker worker(work);
    while (!worker.WaitForEnd()) {
        if (PyErr_CheckSignals() != 0) throw py::error_already_set();
        teller.Tell(worker.State.Percent);
    }
    if (PyErr_CheckSignals() != 0) throw py::error_already_set();
    if (worker.Thrown) std::rethrow_exception(worker.Thrown);
    teller.Tell(100);
}
}  // namespace kelvarin::python
