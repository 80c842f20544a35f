#include "host/ranges/RunRecord.h"

#include <string_view>

namespace kelvarin::ranges {
void RunRecord::OnRowStored(const RowPlace& place, std::int64_t time) {
    Events.push_back({place, time, Kind::Stored});
}

void RunRecord::OnRowDropped(const DroppedRow& row) {
    Row kept{row.Reason, row.Time, row.Cells.size(), row.TimeText};
    kept.Texts += u'\0';
    for (const char16_t* const cell : row.Cells) kept.Texts.append(cell) += u'\0';
    TextBytes += kept.Texts.size() * sizeof(char16_t);
    Events.push_back({row.Place, std::ssize(Rows), Kind::Dropped});
    Rows.push_back(std::move(kept));
}

void RunRecord::OnCellRefused(const RefusedCell& cell) {
    Events.push_back({cell.Place, std::ssize(Cells), Kind::Refused});
    Cells.push_back({cell.Column, cell.Type, cell.Text});
    TextBytes += Cells.back().Text.size() * sizeof(char16_t);
}

void RunRecord::OnTimeBefore1990(const RowPlace& place, std::int64_t time) {
    Events.push_back({place, time, Kind::Before1990});
}

void RunRecord::OnBlankLine(const RowPlace& place) {
    Events.push_back({place, 0, Kind::Blank});
}

void RunRecord::Replay(IRunObserver& observer) const {
    for (const Event& event : Events) {
        const auto index = static_cast<std::size_t>(event.Value);
        switch (event.What) {
            case Kind::Stored:
                observer.OnRowStored(event.Place, event.Value);
                break;
            case Kind::Dropped:
                ReplayRow(event.Place, Rows[index], observer);
                break;
            case Kind::Refused: {
                const Cell& cell = Cells[index];
                observer.OnCellRefused({event.Place, cell.Column, cell.Type, cell.Text.c_str()});
                break;
            }
            case Kind::Before1990:
                observer.OnTimeBefore1990(event.Place, event.Value);
                break;
            case Kind::Blank:
                observer.OnBlankLine(event.Place);
                break;
        }
    }
}

void RunRecord::ReplayRow(const RowPlace& place, const Row& row, IRunObserver& observer) {
    std::u16string texts = row.Texts;  // who is told may write to the cells
    char16_t* const time = texts.data();
    std::vector<char16_t*> cells;
    char16_t* next = time;
    for (std::size_t i = 0; i < row.Cells; ++i) {
        next += std::u16string_view(next).size() + 1;
        cells.push_back(next);
    }
    observer.OnRowDropped({place, row.Reason, time, row.Time, cells});
}

void RunRecord::Clear() {
    Events.clear();
    Rows.clear();
    Cells.clear();
    TextBytes = 0;
}

std::size_t RunRecord::Bytes() const {
    return Events.size() * sizeof(Event) + Rows.size() * sizeof(Row) + Cells.size() * sizeof(Cell) +
           TextBytes;
}
}  // namespace kelvarin::ranges
