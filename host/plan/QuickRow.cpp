// Rows as RowCopier::AddCells makes them, out of the bytes of a line that QuickCut has cut: most cells of a
// copy are those of the file.
#include "host/plan/CopyRow.h"

namespace kelvarin::plan {
// False, with nothing added, unless each cell but those of the time stays as it is in the bytes of the line.
bool RowCopier::AddWhole(const QuickCut& line) {
    const std::size_t count = LeastKept.size();
    if (!line.IsTight() || line.Cells().size() != count) return false;
    unsigned refused = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (LeastKept[i] == CellLook::Other) continue;
        Looks[i] = line.LookAt(i);
        refused |= unsigned{Looks[i] < LeastKept[i]};
    }
    if (refused != 0) return false;
    for (std::size_t i = 0; i < count;) {
        if (LeastKept[i] == CellLook::Other) {
            if (IsInPlace) Text.Add('\t');
            ++i;
            continue;
        }
        if (!IsInPlace) Text.Add('\t');
        const std::size_t begin = line.PlaceOf(i);
        for (; i < count && LeastKept[i] != CellLook::Other; ++i) Columns[i].Count(Looks[i]);
        const std::size_t end = line.PlaceOf(i - 1) + line.Cells()[i - 1].size();
        Text.AddPadded(line.Bytes() + begin, end - begin);
        if (IsInPlace) Text.Add('\t');
    }
    return true;
}

// True if the cell stays as it is in the bytes of the line.
inline bool RowCopier::AddPiece(const QuickCut& line, std::size_t column) {
    const char* const bytes = line.Bytes() + line.PlaceOf(column);
    CellCopier& copier = Columns[column];
    if (const std::size_t kept = copier.Take(line, column); kept != 0) {
        Text.AddPadded(bytes, kept);
        return false;
    }
    const CellLook look = line.LookAt(column);
    const std::u16string_view cell = line.Cells()[column];
    if (look < LeastKept[column]) {
        copier.Append(cell, Text);
        return false;
    }
    copier.Count(look);
    Text.AddPadded(bytes, cell.size());
    return true;
}

void RowCopier::AddPieces(const QuickCut& line) {
    const std::size_t cells = line.Cells().size();
    const std::size_t count = LeastKept.size();
    unsigned refused = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const bool isTime = LeastKept[i] == CellLook::Other;
        if (isTime && !IsInPlace) continue;
        if (!IsInPlace) Text.Add('\t');
        if (!isTime && i < cells) refused |= unsigned{!AddPiece(line, i)};
        if (IsInPlace) Text.Add('\t');
    }
    MayBeWhole = refused == 0;
}
}  // namespace kelvarin::plan
