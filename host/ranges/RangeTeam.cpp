#include "host/ranges/RangeTeam.h"

#include <algorithm>
#include <thread>

namespace kelvarin::ranges {
namespace {
// One can be imported with while the other holds a range that can't be joined yet.
constexpr std::size_t SeatsPerThread = 2;
}  // namespace

RangeTeam::RangeTeam(const RangeRun& run, const RangeSizes& sizes, std::size_t threads)
    : Joined(run),
      Sizes(sizes),
      Leader(*run.Leader.Find<IRangeReading>()),
      Head(Leader.GetState()),
      State(Head),
      Expected(Head) {
    try {
        for (std::size_t i = 0; i < threads * SeatsPerThread; ++i) AddSeat(run, sizes);
    } catch (const std::exception&) {
        // Not enough memory for more: fewer threads need less, and without any the leader goes on alone.
    }
}

void RangeTeam::AddSeat(const RangeRun& run, const RangeSizes& sizes) {
    auto worker = std::make_unique<RangeWorker>(run.Module.MakeFilter(run.Leader.FilePath), run.Times,
                                                run.Device, run.Guide, run.Cancel, sizes.MostMessages);
    if (!worker->Follow(Leader)) return;
    if (run.Observer != nullptr) worker->KeepRecord();
    Seats.push_back({std::move(worker), {}});
}

RangeTeam::Outcome RangeTeam::Run() {
    if (Seats.empty()) return Outcome::GivenUp;
    const auto seatsFrom = [&](std::size_t first) {
        return std::span(Seats).subspan(first, std::min(SeatsPerThread, Seats.size() - first));
    };
    std::vector<std::thread> threads;
    try {
        for (std::size_t first = SeatsPerThread; first < Seats.size(); first += SeatsPerThread)
            threads.emplace_back([this, own = seatsFrom(first)] { Work(own); });
    } catch (const std::exception&) {
        // Those that could be started do the work.
    }
    Work(seatsFrom(0));
    for (std::thread& thread : threads) thread.join();
    for (const Seat& seat : Seats) Joined.Device.Keep(seat.Worker->End());
    if (Failure) std::rethrow_exception(Failure);
    Leader.SetState(State);
    return Ended.value_or(Outcome::Done);
}

void RangeTeam::Work(std::span<Seat> own) {
    try {
        for (Seat* seat = Claim(own); seat != nullptr && Import(*seat); seat = Claim(own))
            JoinImported(*seat);
    } catch (const std::exception&) {
        // Not enough memory. Nothing of the range is joined yet, and one thread needs less.
        Stop(Outcome::GivenUp);
    }
}

bool RangeTeam::Import(Seat& seat) {
    RangeWorker& worker = *seat.Worker;
    const RangeLines lines = worker.Load(*seat.Taken);
    // Written to since the place was found: one thread reads what is there now.
    if (!lines.AreWhole) Stop(Outcome::GivenUp);
    const std::optional<RunState> assumed = StateToAssume(worker, *seat.Taken, lines);
    return assumed && Import(worker, *assumed);
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

RangeTeam::Seat* RangeTeam::Claim(std::span<Seat> own) {
    std::unique_lock lock(Mutex);
    Seat* seat = nullptr;
    Changed.wait(lock, [&] {
        const auto found = std::ranges::find_if(own, [](const Seat& one) { return !one.Taken; });
        seat = found == own.end() ? nullptr : &*found;
        return Ended || IsLastTaken || seat != nullptr;
    });
    if (seat != nullptr) seat->Taken = NextRange();
    return seat != nullptr && seat->Taken ? seat : nullptr;
}

std::optional<Range> RangeTeam::NextRange() {
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

void RangeTeam::JoinImported(Seat& imported) {
    std::unique_lock lock(Mutex);
    imported.IsImported = true;
    if (IsJoining) return;
    IsJoining = true;
    for (Seat* next = NextToJoin(); next != nullptr; next = NextToJoin()) {
        const RunState before = State;
        lock.unlock();
        Join(*next, before);
        lock.lock();
        next->IsImported = false;
        next->Taken.reset();
        Changed.notify_all();
    }
    IsJoining = false;
}

RangeTeam::Seat* RangeTeam::NextToJoin() {
    if (Ended) return nullptr;
    const auto found = std::ranges::find_if(
        Seats, [&](const Seat& seat) { return seat.IsImported && seat.Taken->Index == JoinedRanges; });
    return found == Seats.end() ? nullptr : &*found;
}

void RangeTeam::Join(Seat& seat, const RunState& before) {
    RangeWorker& worker = *seat.Worker;
    if (!worker.IsConfirmed(before, Joined.Guide)) {
        NoteRepeated();
        worker.BeGuidedAs(Joined.Guide);
        if (!Import(worker, before)) return;
    }
    Append(worker, *seat.Taken, before);
}

void RangeTeam::Append(RangeWorker& worker, const Range& range, const RunState& before) {
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
}

bool RangeTeam::IsRepeatedTooOften() const {
    // A unit that is settled makes all ranges be imported again that are being imported then.
    const std::uint64_t some = 2 * Seats.size();
    return Sizes.GivesUp && RepeatedRanges > some && 4 * RepeatedRanges > JoinedRanges;
}

void RangeTeam::Stop(Outcome outcome) {
    const std::lock_guard lock(Mutex);
    if (!Ended) Ended = outcome;
    Changed.notify_all();
}
}  // namespace kelvarin::ranges
