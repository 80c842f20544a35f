// A file read in ranges by several threads, with the result of one.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
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

// Each thread takes the next range, assumes in what state the run comes to it, and imports it. When the
// ranges before it are joined and the true state is known, a range whose import would have been another one
// is imported again.
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
    void AddWorker(const RangeRun& run, const RangeSizes& sizes);
    void Work(RangeWorker& worker);
    bool WorkOn(RangeWorker& worker, const Range& range);

    // False: the work ends.
    bool Import(RangeWorker& worker, const RunState& from);

    // The next range; none if there is none, or if the work ends.
    std::optional<Range> Claim();

    // The state to assume for a range, and its guide; waits until the lines of the ranges before it are
    // counted. None: the work ends.
    std::optional<RunState> StateToAssume(RangeWorker& worker, const Range& range, const RangeLines& lines);

    // The true state before a range; waits until those before it are joined. None: the work ends.
    std::optional<RunState> StateBefore(const Range& range);

    void Join(RangeWorker& worker, const Range& range, const RunState& before);
    void Stop(Outcome outcome);
    void NoteRepeated();
    bool IsRepeatedTooOften() const;

    const RangeRun Joined;
    const RangeSizes Sizes;
    IRangeReading& Leader;
    const RunState Head;
    std::vector<std::unique_ptr<RangeWorker>> Workers;

    std::mutex Mutex;  // of all below
    std::condition_variable Changed;
    std::optional<Outcome> Ended;
    std::exception_ptr Failure;
    RunState State;     // behind the ranges that are joined
    RunState Expected;  // Offset: behind the ranges that are taken; Line, BlankLines: behind those counted
    bool IsLastTaken = false;
    std::uint64_t Taken = 0, Counted = 0, JoinedRanges = 0, RepeatedRanges = 0;
};
}  // namespace kelvarin::ranges
