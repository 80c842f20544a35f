// The rows that a run dropped, by reason.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "contract/RunObserver.h"
#include "host/check/FilePlaces.h"

namespace kelvarin::check {
// The reasons of the run; rows whose time doesn't fit the format are told apart by where they are.
enum class DropKind : std::size_t {
    Empty,              // only blank cells
    UnreadableAtStart,  // the time doesn't fit the format, above the first stored row
    Unreadable,         // between stored rows, or there is no stored row
    UnreadableAtEnd,    // below the last stored row
    Repeats,            // the time of the row stored last
    Falls,              // before the time of the row stored last
    OutOfRange,         // a time that can't be stored
    NoStep              // the fixed interval doesn't lead beyond the row stored last
};
constexpr std::size_t DropKindCount = 8;

// The word for scripts: "empty", "unreadableAtStart" and so on.
const char* NameOf(DropKind kind);

// The rows that fall. Nanoseconds.
struct FallSummary {
    std::uint64_t Count = 0;
    std::int64_t First = 0, Deepest = 0;  // by how much the first falls, and the one that falls most
    std::int64_t BeforeFirst = 0;         // the time from which the first falls
    std::int64_t Last = 0;                // the time of the last
    std::uint64_t Descents = 0;           // rows that fall below the falling row before them

    bool RunsBackwards() const { return Count > 1 && Descents * 10 >= Count * 9; }
};

// Takes the rows of a run in order. Memory is bounded.
class DroppedRows {
  public:
    // `lastTime` is that of the row stored last, if there is one. The text of a place is the row's cells with
    // the separator between them, or, of an unreadable row in the table, the text of its time; at most 200
    // characters.
    void Add(const DroppedRow& row, char16_t separator, std::optional<std::int64_t> lastTime);

    // A row was stored.
    void AddStored() {
        if (Pending.Count != 0) SettlePending(AnyStored ? DropKind::Unreadable : DropKind::UnreadableAtStart);
        AnyStored = true;
    }

    // The run is over. Unless it came to the end of the file, no row counts as being below the last stored
    // one.
    void Finish(bool cameToEnd) {
        SettlePending(AnyStored && cameToEnd ? DropKind::UnreadableAtEnd : DropKind::Unreadable);
    }

    std::uint64_t Count() const { return Number; }
    const FilePlaces& Of(DropKind kind) const { return Kinds[static_cast<std::size_t>(kind)]; }

    const FallSummary& Falls() const { return Fallen; }

    // The times of the first 100 unreadable rows.
    const std::vector<std::u16string>& UnreadableTexts() const { return Unread; }

  private:
    FilePlaces& PlacesOf(DropKind kind) { return Kinds[static_cast<std::size_t>(kind)]; }
    void AddUnreadable(const DroppedRow& row, FilePlace place);
    void AddFalling(std::int64_t time, std::int64_t lastTime);
    void SettlePending(DropKind kind);

    std::uint64_t Number = 0;
    std::array<FilePlaces, DropKindCount> Kinds;
    bool AnyStored = false;
    FilePlaces Pending, PendingTimes;  // unreadable since the row stored last: their rows, their times
    std::vector<std::u16string> Unread;
    FallSummary Fallen;
};
}  // namespace kelvarin::check
