// A window: a control of a dialog, whatever the platform makes it of.
#pragma once

#include <cstdint>
#include <string>

struct NativeWindow;

// A rectangle in pixels.
struct CRect {
    int Left = 0, Top = 0, Right = 0, Bottom = 0;
    int Width() const { return Right - Left; }
    int Height() const { return Bottom - Top; }
};

struct CPoint {
    int X = 0, Y = 0;
};

// What a control tells its dialog. Data belongs to the sender and lives for the call only.
struct Notification {
    int Id;
    int Code;
    void* Data = nullptr;
    std::intptr_t* Result = nullptr;
};

// Codes of the notifications that dialogs listen to.
enum ENotification : int {
    ButtonClicked = 0,
    ComboSelectionChanged = 1,
    ComboEditChanged = 5,
    EditFocusLost = 0x200,
    EditChanged = 0x300,
    SpinMoved = 0x601,
    SpinReleased = 0x602,
    DateTimeChanged = -759,
    ListItemChanging = -100,
    ListGetDispInfo = -177,
    ListClicked = -2,
    ListDoubleClicked = -3,
    ListKeyPressed = -155,
    CustomDraw = -12,
    HeaderItemChanged = -321
};

// A handle on a window; copies refer to the same one. All operations need one that exists.
class CWnd {
  public:
    CWnd() = default;
    explicit CWnd(NativeWindow* handle) : Handle(handle) {}
    virtual ~CWnd() = default;
    CWnd(const CWnd&) = default;
    CWnd& operator=(const CWnd&) = default;

    bool Exists() const { return Handle != nullptr; }
    int GetDlgCtrlID() const;

    void EnableWindow(bool enable);
    bool IsWindowEnabled() const;

    // Moves the focus here; the window that had it tells its dialog when it is an edit.
    void SetFocus();

    std::u16string GetWindowText() const;

    // A change by the program: an edit tells of it, no other control does.
    void SetWindowText(const std::u16string& text);

    // The outer rectangle in pixels of its dialog.
    CRect GetWindowRect() const;

    // The name of the window's class, "Edit" for an edit.
    std::u16string GetClassName() const;

    // A pointer of the program's, kept with the window; null at first.
    void SetUserData(void* data);
    void* GetUserData() const;

    // The window that has the focus; it may not exist.
    static CWnd GetFocus();

    bool operator==(const CWnd& other) const { return Handle == other.Handle; }

    NativeWindow* Handle = nullptr;
};

// Sets a window's text only if it differs, so that the caret of an edit stays.
void AfxSetWindowText(CWnd window, const std::u16string& text);
