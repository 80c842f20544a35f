// A list whose cells are edited in place.
#pragma once

#include <string>
#include <vector>

#include "platform/framework/Controls.h"
#include "platform/framework/Dialog.h"

class CParamListCtrl;

// How a cell is edited.
enum EParamEditor : int { EditorNone = 0, EditorEditBox = 1, EditorDropDownList = 4 };

// Whom the list asks about its cells.
class CParamListOwner {
  public:
    virtual ~CParamListOwner() = default;

    virtual int GetEditorKind(int row, int column) = 0;

    // An edit has ended; the owner may change the text.
    virtual void OnEditDone(int row, int column, std::u16string& text) = 0;

    // Opens the drop-down list of a cell.
    virtual void OnShowDropDown(int row, int column) = 0;

    // An edit box opens over a cell; the owner may set it up.
    virtual void OnShowEditor(int row, int column, CEdit* editor);

    // The cell's text must be shown anew.
    virtual void OnRestoreItemText(CParamListCtrl& list, int row, int column) = 0;
};

class CParamListCtrl : public CListCtrl {
  public:
    using CListCtrl::CListCtrl;

    // The owner must outlive the list's window. From now on the user can edit cells.
    void SetOwner(CParamListOwner* owner);
    CParamListOwner* GetOwner() const { return static_cast<CParamListOwner*>(GetUserData()); }
};

// What a user does to a cell of such a list: opens its editor, enters the text and leaves it. False if there
// is no such list or cell, or the cell has no editor.
bool UserEditCell(CDialog& dialog, int id, int row, int column, const std::u16string& text);

// The list that a cell drops down. It is filled before it has a window.
class CParamDropDownList {
  public:
    void EarlyRemoveAll();
    void EarlyAddString(const std::u16string& text);

    // The entry that comes closest to the text: equal but for case; else the longest common beginning; else
    // the smallest edit distance; the first among equals. -1 only if there is no entry.
    int EarlyFindClosestString(const std::u16string& text) const;

    // Opens the list over a cell.
    void CreateDropDownList(CParamListCtrl& list, int row, int column);

    // Selects an entry of the open list; -1 selects none.
    void SetCurSel(int index);
    int GetCurSel() const { return Selected; }

  private:
    std::vector<std::u16string> Entries;
    int Selected = -1;
    CListCtrl OpenOver;  // the list over which it was opened last
};
