#include "host/ranges/RangeTeam.h"

#include <thread>

namespace kelvarin::ranges {
RangeTeam::RangeTeam(const RangeRun& run, const RangeSizes& sizes, std::size_t threads)
    : Joined(run),
      Sizes(sizes),
      Leader(*run.Leader.Find<IRangeReading>()),
      Head(Leader.GetState()),
      State(Head),
      Expected(Head) {
    try {
        for (std::size_t i = 0; i < threads; ++i) AddWorker(run, sizes);
    } catch (const std::exception&) {
        // Not enough memory for more: fewer threads need less, and without any the leader goes on alone.
    }
}

void RangeTeam::AddWorker(const RangeRun& run, const RangeSizes& sizes) {
    auto worker = std::make_unique<RangeWorker>(run.Module.MakeFilter(run.Leader.FilePath), run.Times,
                                                run.Device, run.Guide, run.Cancel, sizes.MostMessages);
    if (!worker->Follow(Leader)) return;
    if (run.Observer != nullptr) worker->KeepRecord();
    Workers.push_back(std::move(worker));
}

RangeTeam::Outcome RangeTeam::Run() {
    if (Workers.empty()) return Outcome::GivenUp;
    std::vector<std::thread> threads;
    try {
        for (std::size_t i = 1; i < Workers.size(); ++i)
            threads.emplace_back([this, i] { Work(*Workers[i]); });
    } catch (const std::exception&) {
        // Those that could be started do the work.
    }
    Work(*Workers.front());
    for (std::thread& thread : threads) thread.join();
    for (const auto& worker : Workers) Joined.Device.Keep(worker->End());
    if (Failure) std::rethrow_exception(Failure);
    Leader.SetState(State);
    return Ended.value_or(Outcome::Done);
}

void RangeTeam::Work(RangeWorker& worker) {
    try {
        for (std::optional<Range> range = Claim(); range && WorkOn(worker, *range); range = Claim()) {
        }
    } catch (const std::exception&) {
        // Not enough memory. Nothing of the range is joined yet, and one thread needs less.
        Stop(Outcome::GivenUp);
    }
}

bool RangeTeam::WorkOn(RangeWorker& worker, const Range& range) {
    const RangeLines lines = worker.Load(range);
    // Written to since the place was found: one thread reads what is there now.
    if (!lines.AreWhole) Stop(Outcome::GivenUp);
    const std::optional<RunState> assumed = StateToAssume(worker, range, lines);
    if (!assumed) return false;
    if (!Import(worker, *assumed)) return false;
    const std::optional<RunState> before = StateBefore(range);
    if (!before) return false;
    if (!worker.IsConfirmed(*before, Joined.Guide)) {
        NoteRepeated();
        worker.BeGuidedAs(Joined.Guide);
        if (!Import(worker, *before)) return false;
    }
    Join(worker, range, *before);
    return true;
}

void RangeTeam::NoteRepeated() {
    const std::lock_guard lock(Mutex);
    ++RepeatedRanges;
}

bool RangeTeam::Import(RangeWorker& worker, const RunState& from) {
    worker.Import(from);
    if (worker.Result().Interrupted) Stop(Outcome::Interrupted);
    // One thread hands on each message at once.
    if (worker.Result().HasTooMany) Stop(Outcome::GivenUp);
    return !worker.Result().Interrupted && !worker.Result().HasTooMany;
}

std::optional<Range> RangeTeam::Claim() {
    const std::lock_guard lock(Mutex);
    if (Ended || IsLastTaken) return std::nullopt;
    Range range{Taken, Expected.Offset, {}};
    if (!Leader.FindLineStart(range.Begin + Sizes.Range, range.End) ||
        range.End.value_or(0) > range.Begin + Sizes.Range + Sizes.LongestLine) {
        // One thread finds the failure where it is, or has the one long line in memory.
        Ended = Outcome::GivenUp;
        Changed.notify_all();
        return std::nullopt;
    }
    const bool isBeyond = Joined.End && (!range.End || *range.End >= *Joined.End);
    if (isBeyond) range.End = Joined.End;
    IsLastTaken = !range.End || isBeyond;
    Expected.Offset = range.End.value_or(0);
    ++Taken;
    return range;
}

std::optional<RunState> RangeTeam::StateToAssume(RangeWorker& worker, const Range& range,
                                                 const RangeLines& lines) {
    std::unique_lock lock(Mutex);
    Changed.wait(lock, [&] { return Ended || Counted == range.Index; });
    if (Ended) return std::nullopt;
    RunState assumed = Sizes.AssumesHead ? Head : State;
    assumed.Line = Expected.Line;
    assumed.BlankLines = Expected.BlankLines;
    Expected.Line += static_cast<std::int64_t>(lines.Rows);
    Expected.BlankLines += lines.Blank;
    ++Counted;
    worker.BeGuidedAs(Joined.Guide);
    Changed.notify_all();
    return assumed;
}

std::optional<RunState> RangeTeam::StateBefore(const Range& range) {
    std::unique_lock lock(Mutex);
    Changed.wait(lock, [&] { return Ended || JoinedRanges == range.Index; });
    if (Ended) return std::nullopt;
    return State;
}

void RangeTeam::Join(RangeWorker& worker, const Range& range, const RunState& before) {
    RunState behind = worker.StateAfter(before);
    bool isLast = !range.End || behind.Offset < *range.End || worker.Result().Failed;
    std::exception_ptr failure;
    bool isAppended = false;
    try {
        isAppended = Joined.Device.Append(worker.Device());
        if (isAppended) {
            if (Joined.Observer != nullptr) worker.Record().Replay(*Joined.Observer);
            if (!Joined.OnJoined(worker.Result())) isLast = true;
            const std::lock_guard lock(Mutex);
            if (Joined.Guide != nullptr) Joined.Guide->Add(*worker.Guide());
        }
    } catch (const std::exception&) {
        failure = std::current_exception();
    }
    const std::lock_guard lock(Mutex);
    if (isAppended && !failure) {
        State = std::move(behind);
        ++JoinedRanges;
    }
    Failure = failure;
    if (isAppended && !failure && isLast) {
        Ended = Outcome::Done;
    } else if (failure || !isAppended || IsRepeatedTooOften()) {
        Ended = Outcome::GivenUp;
    }
    Changed.notify_all();
}

bool RangeTeam::IsRepeatedTooOften() const {
    constexpr std::uint64_t Some = 8;
    return Sizes.GivesUp && RepeatedRanges > Some && 4 * RepeatedRanges > JoinedRanges;
}

void RangeTeam::Stop(Outcome outcome) {
    const std::lock_guard lock(Mutex);
    if (!Ended) Ended = outcome;
    Changed.notify_all();
}
}  // namespace kelvarin::ranges
