// Rows as RowCopier::AddCells makes them, out of the bytes of a line that QuickCut has cut: most cells of a
// copy are those of the file.
#include "host/plan/CopyRow.h"

namespace kelvarin::plan {
namespace {
// Copies the parts of a line that follow each other in one piece.
class Pieces {
  public:
    Pieces(const char* bytes, std::string& out) : Bytes(bytes), Out(out) {}

    void Add(std::size_t begin, std::size_t end) {
        if (begin != End) {
            Flush();
            Begin = begin;
        }
        End = end;
    }

    void AddTab() {
        if (Bytes[End] == '\t') {
            ++End;
            return;
        }
        Flush();
        Out += '\t';
    }

    // The next piece begins at `next`.
    void Skip(std::size_t next) {
        Flush();
        Begin = End = next;
    }

    void Flush() {
        Out.append(Bytes + Begin, End - Begin);
        Begin = End;
    }

  private:
    const char* const Bytes;
    std::string& Out;
    std::size_t Begin = 0, End = 0;
};
}  // namespace

// True if each cell but those of the time stays as it is in the bytes of the line.
bool RowCopier::IsKept(const QuickCut& line) const {
    const std::vector<CellLook>& looks = line.Looks();
    if (!line.IsTight() || looks.size() != LeastKept.size() || !Plan.Missing.empty()) return false;
    unsigned refused = 0;
    for (std::size_t i = 0; i < looks.size(); ++i) refused |= unsigned{looks[i] < LeastKept[i]};
    return refused == 0;
}

// As AddCells, for a line whose cells are kept.
void RowCopier::AddWhole(const QuickCut& line) {
    const std::vector<CellLook>& looks = line.Looks();
    Pieces pieces(line.Bytes(), Text);
    for (std::size_t i = 0; i < Columns.size();) {
        if (Plan.Columns[i].IsTime) {
            if (IsInPlace) pieces.AddTab();
            ++i;
            continue;
        }
        if (!IsInPlace) pieces.AddTab();
        const std::size_t begin = line.PlaceOf(i);
        for (; i < Columns.size() && !Plan.Columns[i].IsTime; ++i) Columns[i].Count(looks[i]);
        pieces.Add(begin, line.PlaceOf(i - 1) + line.Cells()[i - 1].size());
        if (IsInPlace) pieces.AddTab();
    }
    pieces.Flush();
}

// As AddCells, for any line.
void RowCopier::AddPieces(const QuickCut& line) {
    const std::vector<std::u16string_view>& cells = line.Cells();
    Pieces pieces(line.Bytes(), Text);
    for (std::size_t i = 0; i < Columns.size(); ++i) {
        const bool isTime = Plan.Columns[i].IsTime;
        if (isTime && !IsInPlace) continue;
        if (!IsInPlace) pieces.AddTab();
        if (!isTime && i < cells.size()) {
            const std::size_t begin = line.PlaceOf(i);
            const std::size_t end = begin + cells[i].size();
            const CellLook look = line.Looks()[i];
            if (Plan.Missing.empty() && look >= LeastKept[i]) {
                Columns[i].Count(look);
                pieces.Add(begin, end);
            } else {
                pieces.Skip(end);
                AddCell(i, cells[i]);
            }
        }
        if (IsInPlace) pieces.AddTab();
    }
    pieces.Flush();
}

}  // namespace kelvarin::plan
