// A file read in ranges by several threads, with the result of one.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

#include "host/ModuleLoader.h"
#include "host/ranges/RangeSizes.h"
#include "host/ranges/RangeWorker.h"

namespace kelvarin::ranges {
// The run that the ranges belong to. All outlive the team.
struct RangeRun {
    const ModuleLoader& Module;
    CImportFilter& Leader;  // whose run has begun, and has IRangeReading; the ranges begin behind its lines
    store::StoredDevice& Device;  // gets the samples
    IRelativeTimeContext& Times;
    plan::RunGuide* Guide;  // of the run; null for none
    const std::atomic<bool>* Cancel;
    IRunObserver* Observer;  // hears what the run in order would tell; null for none
    std::function<bool(RangeResult& result)> OnJoined;  // gets each range's result in order, one at a time;
                                                        // false: the run ends behind it
    std::optional<std::uint64_t> End;  // where the last line ends; nothing for the file's end
};

// Each thread takes the next range, assumes in what state the run comes to it, and imports it. Then it leaves
// it to whoever joins the ranges in order, be it this thread or another, and takes the next one with another
// of its filters: it waits only if all of them hold ranges that can't be joined yet. When the ranges before
// it are joined and the true state is known, a range whose import would have been another one is imported
// again.
class RangeTeam {
  public:
    enum class Outcome { Done, Interrupted, GivenUp };

    RangeTeam(const RangeRun& run, const RangeSizes& sizes, std::size_t threads);

    // Imports all ranges. GivenUp: the leader is to go on, from behind the ranges that were joined. Once
    // only. The leader then has the state of the run. Raises std::bad_alloc, after which the run has failed.
    Outcome Run();

    // Ranges that were imported twice.
    std::uint64_t Repeated() const { return RepeatedRanges; }

  private:
    // A worker with the range that it has.
    struct Seat {
        std::unique_ptr<RangeWorker> Worker;
        std::optional<Range> Taken;  // none: it is free
        bool IsImported = false;     // and waits to be joined
    };

    void AddSeat(const RangeRun& run, const RangeSizes& sizes);
    void Work(std::span<Seat> own);

    // False: the work ends, as with the next.
    bool Import(Seat& seat);
    bool Import(RangeWorker& worker, const RunState& from);

    // One of these seats with the next range, once one of them is free; null if there is no range, or if the
    // work ends.
    Seat* Claim(std::span<Seat> own);

    // The next range; none if there is none, or if the work ends.
    std::optional<Range> NextRange();

    // The state to assume for a range, and its guide; waits until the lines of the ranges before it are
    // counted. None: the work ends.
    std::optional<RunState> StateToAssume(RangeWorker& worker, const Range& range, const RangeLines& lines);

    // Joins all ranges whose turn it is, unless another thread does so: that one goes on with this range.
    void JoinImported(Seat& imported);

    // The range to be joined next, if it is imported and the work hasn't ended; else null.
    Seat* NextToJoin();

    // Joins a range, imported again if need be; `before` is the true state before it.
    void Join(Seat& seat, const RunState& before);
    void Append(RangeWorker& worker, const Range& range, const RunState& before);
    void Stop(Outcome outcome);
    void NoteRepeated();
    bool IsRepeatedTooOften() const;

    const RangeRun Joined;
    const RangeSizes Sizes;
    IRangeReading& Leader;
    const RunState Head;
    std::vector<Seat> Seats;  // those of a thread one after the other

    std::mutex Mutex;  // of all below, and of what Seats say of ranges
    std::condition_variable Changed;
    std::optional<Outcome> Ended;
    std::exception_ptr Failure;
    RunState State;     // behind the ranges that are joined
    RunState Expected;  // Offset: behind the ranges that are taken; Line, BlankLines: behind those counted
    bool IsLastTaken = false;
    bool IsJoining = false;  // a thread is in JoinImported
    std::uint64_t Taken = 0, Counted = 0, JoinedRanges = 0, RepeatedRanges = 0;
};
}  // namespace kelvarin::ranges
