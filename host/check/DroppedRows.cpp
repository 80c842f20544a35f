#include "host/check/DroppedRows.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"

namespace kelvarin::check {

namespace {

constexpr std::size_t MostUnread = 100;
constexpr std::size_t MostOfAText = 200;

bool IsBlank(const char16_t* cell) {
    return TrimWhiteSpace(cell).empty();
}

// Of a row whose time fits the format.
DropKind KindOf(DropReason reason) {
    if (reason == DropReason::Repeats) return DropKind::Repeats;
    if (reason == DropReason::Falls) return DropKind::Falls;
    return reason == DropReason::NoStep ? DropKind::NoStep : DropKind::OutOfRange;
}

std::u16string Shortened(std::u16string_view text) {
    return std::u16string(TrimWhiteSpace(text).substr(0, MostOfAText));
}

std::u16string JoinedCells(std::span<char16_t* const> cells, char16_t separator) {
    std::u16string row;
    for (const char16_t* cell : cells) {
        if (cell != cells.front()) row += separator;
        row += cell;
        if (row.size() > 2 * MostOfAText) break;  // rows of thousands of cells are many
    }
    return Shortened(row);
}

}  // namespace

const char* NameOf(DropKind kind) {
    constexpr const char* Names[DropKindCount] = {
        "empty", "unreadableAtStart", "unreadable", "unreadableAtEnd", "repeats",
        "falls", "outOfRange",        "noStep"};
    return Names[static_cast<std::size_t>(kind)];
}

void DroppedRows::Add(const DroppedRow& row, char16_t separator, std::optional<std::int64_t> lastTime) {
    ++Number;
    FilePlace place{row.Place.Line, row.Place.MessageLine, JoinedCells(row.Cells, separator)};
    const bool isEmpty = std::all_of(row.Cells.begin(), row.Cells.end(), IsBlank);
    if (isEmpty) return PlacesOf(DropKind::Empty).Add(std::move(place));
    if (row.Reason == DropReason::DoesNotFit) return AddUnreadable(row, std::move(place));
    if (row.Reason == DropReason::Falls && row.Time && lastTime) AddFalling(*row.Time, *lastTime);
    PlacesOf(KindOf(row.Reason)).Add(std::move(place));
}

void DroppedRows::AddUnreadable(const DroppedRow& row, FilePlace place) {
    const std::u16string time = Shortened(row.TimeText);
    if (Unread.size() < MostUnread) Unread.push_back(time);
    PendingTimes.Add({place.Line, place.ModuleLine, time});
    Pending.Add(std::move(place));
}

void DroppedRows::AddFalling(std::int64_t time, std::int64_t lastTime) {
    const std::int64_t depth = WrappingSubtract(lastTime, time);
    if (Fallen.Count++ == 0) {
        Fallen.First = depth;
        Fallen.BeforeFirst = Fallen.Last = lastTime;
    }
    Fallen.Deepest = std::max(Fallen.Deepest, depth);
    if (time < Fallen.Last) ++Fallen.Descents;
    Fallen.Last = time;
}

void DroppedRows::SettlePending(DropKind kind) {
    PlacesOf(kind).Append(kind == DropKind::Unreadable ? PendingTimes : Pending);
    Pending = PendingTimes = {};
}

}  // namespace kelvarin::check
