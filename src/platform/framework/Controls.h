// The controls that dialogs work with, as handles on their windows.
#pragma once

#include <cstdint>
#include <string>

#include "platform/framework/Wnd.h"

class CEdit : public CWnd {
  public:
    using CWnd::CWnd;

    // The most characters that a user can type; 0 for any number.
    void LimitText(int characters);
};

class CSpinButtonCtrl : public CWnd {
  public:
    void SetRange(int lowest, int highest);
};

class CComboBox : public CWnd {
  public:
    using CWnd::CWnd;

    void ResetContent();
    void AddString(const std::u16string& text);
    int GetCount() const;
    int GetCurSel() const;  // -1: none
    void SetCurSel(int index);
    std::u16string GetLBText(int index) const;

    // The first entry that equals the text, or -1.
    int FindStringExact(const std::u16string& text) const;
};

// A picker of a local date or time; holds both.
class CDateTimeCtrl : public CWnd {
  public:
    using CWnd::CWnd;

    // Seconds since 1970 of the local date and time shown.
    std::int64_t GetTime() const;
    void SetTime(std::int64_t seconds);
};

// What a list asks for when it shows a cell.
struct ListDispInfo {
    bool WantsText = false;
    bool WantsState = false;
    std::int64_t ItemData = 0;
    int Column = 0;
    std::u16string Text;
    unsigned State = 0;
};

// A change of an item that can be refused: *Result of the notification not 0.
struct ListItemChange {
    bool IsState = false;
    unsigned NewState = 0;
};

// A stage of painting.
struct ListCustomDraw {
    unsigned Stage = 0;
    int Column = 0;
    std::uint32_t CellBackground = 0;
};

// A click on a list, a key pressed in it, and a column of its header with its width.
struct ListClick {
    CPoint Point;
};
struct ListKey {
    static constexpr int Space = 0x20;
    int Key = 0;  // by the system's number
};
struct HeaderChange {
    int Column = 0;
    int Width = 0;
};

// A list in report view.
class CListCtrl : public CWnd {
  public:
    using CWnd::CWnd;

    enum EState : unsigned { Focused = 1, Selected = 2, CheckBoxMask = 0xF000 };
    static constexpr unsigned HitOnCheckBox = 8;
    static constexpr unsigned HitOnLabel = 4;

    void SetRedraw(bool draw);
    void SetExtendedStyle(unsigned style);
    unsigned GetExtendedStyle() const;
    void SetCallbackMask(unsigned mask);

    void InsertColumn(int column, const std::u16string& heading, int width);
    bool DeleteColumn(int column);
    int GetColumnCount() const;

    void DeleteAllItems();
    int GetItemCount() const;
    void InsertItem(int row, const std::u16string& text);
    void SetItemText(int row, int column, const std::u16string& text);

    // Puts a row whose texts are asked for at the end, and sets what is stored with it.
    int AppendCallbackItem(std::int64_t data);
    void SetCallbackText(int row, int column);
    std::int64_t GetItemData(int row) const;

    // Text and state as the list would show them; asks the dialog where they aren't stored.
    std::u16string GetItemText(int row, int column) const;
    unsigned GetItemState(int row, unsigned mask) const;
    void SetItemState(int row, unsigned state, unsigned mask);

    // The row at a point, or -1; `flags` tells what of it.
    int HitTest(CPoint point, unsigned* flags) const;
    void Update(int row);
    void RedrawAll();

    // The rectangle of a header column; false if there is none.
    bool GetHeaderRect(int column, CRect* rectangle) const;
    int GetScrollPos() const;
    void Scroll(int pixels);
    int GetClientWidth() const;

    // The background that the dialog gives a column of cells when it is painted.
    std::uint32_t GetColumnBackground(int column) const;
    std::u16string GetColumnHeading(int column) const;
};

// Colours of the user's scheme, by the system's numbers.
enum ESystemColor : int { WindowColor = 5, ButtonFaceColor = 15 };

// A colour of the scheme in force at this moment, as 0x00BBGGRR. The scheme can change while a dialog is
// open.
std::uint32_t GetSystemColor(ESystemColor color);
