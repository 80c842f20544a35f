#include "contract/ParamListCtrl.h"

#include <algorithm>
#include <numeric>

#include "platform/framework/CellEditor.h"
#include "platform/framework/Text.h"
#include "platform/framework/UserInput.h"

namespace {

char16_t Lower(char16_t c) {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
}

std::size_t CommonBeginning(const std::u16string& a, const std::u16string& b) {
    std::size_t length = 0;
    while (length < a.size() && length < b.size() && Lower(a[length]) == Lower(b[length])) ++length;
    return length;
}

// How many characters must be put in, taken out or replaced to make one text of the other.
std::size_t EditDistance(const std::u16string& a, const std::u16string& b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (Lower(a[i]) == Lower(b[j]) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

// What an editor over a cell does when it ends.
CellDone EntryInto(const CParamListCtrl& list, int row, int column) {
    return [list = CParamListCtrl(list.Handle), row, column](const std::u16string& text) mutable {
        std::u16string entered = text;
        list.GetOwner()->OnEditDone(row, column, entered);
        list.GetOwner()->OnRestoreItemText(list, row, column);
    };
}

// Opens the editor of a cell; false if it has none.
bool OpenEditor(CParamListCtrl list, int row, int column) {
    CParamListOwner* const owner = list.GetOwner();
    const int kind = owner->GetEditorKind(row, column);
    if (kind == EditorNone) return false;
    if (kind == EditorDropDownList) {
        owner->OnShowDropDown(row, column);
    } else {
        CEdit editor =
            OpenCellEdit(list, row, column, list.GetItemText(row, column), EntryInto(list, row, column));
        owner->OnShowEditor(row, column, editor.Exists() ? &editor : nullptr);
    }
    return true;
}

}  // namespace

void CParamListOwner::OnShowEditor(int, int, CEdit*) {}

bool UserEditCell(CDialog& dialog, int id, int row, int column, const std::u16string& text) {
    if (!UserFocus(dialog, id)) return false;
    CParamListCtrl list(dialog.GetDlgItem(id).Handle);
    CParamListOwner* const owner = list.GetOwner();
    if (owner == nullptr || row < 0 || row >= list.GetItemCount() || column < 0 ||
        column >= list.GetColumnCount()) {
        return false;
    }
    if (!OpenEditor(list, row, column)) return false;
    UserEnterCell(list, text);
    return true;
}

void CParamListCtrl::SetOwner(CParamListOwner* owner) {
    SetUserData(owner);
    WatchCells(*this, [list = *this](int row, int column) { OpenEditor(list, row, column); });
}

void CParamDropDownList::EarlyRemoveAll() {
    Entries.clear();
    Selected = -1;
}

void CParamDropDownList::EarlyAddString(const std::u16string& text) {
    Entries.push_back(text);
}

int CParamDropDownList::EarlyFindClosestString(const std::u16string& text) const {
    const auto indexOf = [&](auto place) {
        return place == Entries.end() ? -1 : static_cast<int>(place - Entries.begin());
    };
    const auto equal = std::find_if(Entries.begin(), Entries.end(), [&](const std::u16string& entry) {
        return EqualsIgnoreCase(entry, text);
    });
    if (equal != Entries.end()) return indexOf(equal);
    const auto longest = std::max_element(Entries.begin(), Entries.end(), [&](const auto& a, const auto& b) {
        return CommonBeginning(a, text) < CommonBeginning(b, text);
    });
    if (longest != Entries.end() && CommonBeginning(*longest, text) > 0) return indexOf(longest);
    return indexOf(std::min_element(Entries.begin(), Entries.end(), [&](const auto& a, const auto& b) {
        return EditDistance(a, text) < EditDistance(b, text);
    }));
}

void CParamDropDownList::CreateDropDownList(CParamListCtrl& list, int row, int column) {
    Selected = -1;
    OpenOver = CListCtrl(list.Handle);
    OpenCellList(OpenOver, row, column, Entries, EntryInto(list, row, column));
}

void CParamDropDownList::SetCurSel(int index) {
    Selected = index;
    if (OpenOver.Exists()) SelectInCellList(OpenOver, index);
}
