// Editors over the cells of a list: an edit box or a list to choose from. At most one is open per list.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/framework/Controls.h"

// What the user entered; not called if he gave up.
using CellDone = std::function<void(const std::u16string& text)>;

// Calls `open` when the user wants to edit a cell: by a double click on it, by F2 for the first column of the
// focused row, by F4 or Alt+Down for the second.
void WatchCells(CListCtrl& list, std::function<void(int row, int column)> open);

// Opens an edit box with a text over a cell. Return, Tab or leaving the box enters the text, Esc gives up.
// Answers the box, which may not exist.
CEdit OpenCellEdit(CListCtrl& list, int row, int column, const std::u16string& text, CellDone done);

// Opens a list below a cell, with nothing selected. Return, Tab or a click enters the entry; Esc or leaving
// gives up.
void OpenCellList(CListCtrl& list, int row, int column, const std::vector<std::u16string>& entries,
                  CellDone done);
void SelectInCellList(CListCtrl& list, int index);

// A user's entry into the open editor. A text that the list doesn't hold is entered as it is.
void UserEnterCell(CListCtrl& list, const std::u16string& text);
