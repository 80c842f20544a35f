// Prints what the dialogs on the desktop show, one line of JSON for each line read. The tests that press real
// keys look at the program from outside with it; it changes nothing.
//
// {"windows": [...], "focus": id, "focusClass": name}: the visible dialogs and drop-down lists from the
// topmost down, then the control with the focus: for a window inside a control, such as an edit over a cell,
// the control. Rectangles are [left, top, right, bottom] in pixels of the screen.
#include <winsock2.h>
// Has to come before windows.h.
#include <commctrl.h>
#include <windows.h>

#include <iostream>
#include <nlohmann/json.hpp>
#include <string>

using Json = nlohmann::ordered_json;

namespace {

constexpr UINT Patience = 2000;  // milliseconds for a window to reply

LRESULT Ask(HWND window, UINT message, WPARAM w = 0, LPARAM l = 0) {
    DWORD_PTR reply = 0;
    SendMessageTimeoutW(window, message, w, l, SMTO_ABORTIFHUNG, Patience, &reply);
    return static_cast<LRESULT>(reply);
}

std::string ToUtf8(const std::wstring& text) {
    const int size = static_cast<int>(text.size());
    std::string utf8(text.size() * 3, '\0');
    const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(),
                                           static_cast<int>(utf8.size()), nullptr, nullptr);
    utf8.resize(static_cast<std::size_t>(length));
    return utf8;
}

std::string ClassOf(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return ToUtf8(name);
}

std::string TextOf(HWND window) {
    std::wstring text(1024, L'\0');
    Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    return ToUtf8(text.c_str());
}

Json ToJson(const RECT& rectangle) {
    return {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom};
}

Json PlaceOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return ToJson(place);
}

// A rectangle that a window of another process is asked for, in memory of that process.
class ForeignRectangle {
  public:
    explicit ForeignRectangle(HWND window) : Window(window) {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        Process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, process);
        Memory = VirtualAllocEx(Process, nullptr, sizeof(RECT), MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    }
    ForeignRectangle(const ForeignRectangle&) = delete;
    ForeignRectangle& operator=(const ForeignRectangle&) = delete;
    ~ForeignRectangle() {
        VirtualFreeEx(Process, Memory, 0, MEM_RELEASE);
        CloseHandle(Process);
    }

    Json Get(UINT message, int index, RECT asked = {}) const {
        WriteProcessMemory(Process, Memory, &asked, sizeof asked, nullptr);
        Ask(Window, message, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(Memory));
        ReadProcessMemory(Process, Memory, &asked, sizeof asked, nullptr);
        MapWindowPoints(Window, nullptr, reinterpret_cast<POINT*>(&asked), 2);
        return ToJson(asked);
    }

  private:
    const HWND Window;
    HANDLE Process = nullptr;
    void* Memory = nullptr;
};

// The cells of a list, row by row.
Json CellsOf(HWND list) {
    const ForeignRectangle rectangle(list);
    const auto header = reinterpret_cast<HWND>(Ask(list, LVM_GETHEADER));
    const int rows = static_cast<int>(Ask(list, LVM_GETITEMCOUNT));
    const int columns = static_cast<int>(Ask(header, HDM_GETITEMCOUNT));
    Json cells = Json::array();
    for (int row = 0; row < rows; ++row) {
        cells.push_back(Json::array());
        for (int column = 0; column < columns; ++column)
            cells.back().push_back(rectangle.Get(LVM_GETSUBITEMRECT, row, {LVIR_LABEL, column, 0, 0}));
    }
    return cells;
}

Json TabsOf(HWND tabs) {
    const ForeignRectangle rectangle(tabs);
    Json places = Json::array();
    const int count = static_cast<int>(Ask(tabs, TCM_GETITEMCOUNT));
    for (int i = 0; i < count; ++i) places.push_back(rectangle.Get(TCM_GETITEMRECT, i));
    return places;
}

// The entries of a list box. The system itself brings its rectangles from the other process.
Json EntriesOf(HWND list) {
    Json places = Json::array();
    const int count = static_cast<int>(Ask(list, LB_GETCOUNT));
    for (int i = 0; i < count; ++i) {
        RECT place{};
        Ask(list, LB_GETITEMRECT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&place));
        MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&place), 2);
        places.push_back(ToJson(place));
    }
    return places;
}

Json ControlToJson(HWND window) {
    const std::string kind = ClassOf(window);
    Json control = {{"id", GetDlgCtrlID(window)},
                    {"class", kind},
                    {"text", TextOf(window)},
                    {"visible", IsWindowVisible(window) != FALSE},
                    {"enabled", IsWindowEnabled(window) != FALSE},
                    {"place", PlaceOf(window)}};
    if (kind == "Button") control["checked"] = Ask(window, BM_GETCHECK) == BST_CHECKED;
    if (kind == "SysListView32") control["cells"] = CellsOf(window);
    if (kind == "SysTabControl32") control["tabs"] = TabsOf(window);
    return control;
}

BOOL CALLBACK AddControl(HWND window, LPARAM list) {
    // Not the parts of which a control is made.
    if (ClassOf(GetParent(window)) == "#32770")
        reinterpret_cast<Json*>(list)->push_back(ControlToJson(window));
    return TRUE;
}

BOOL CALLBACK AddWindow(HWND window, LPARAM list) {
    const std::string kind = ClassOf(window);
    if (!IsWindowVisible(window) || (kind != "#32770" && kind != "ListBox" && kind != "ComboLBox"))
        return TRUE;
    Json json = {{"class", kind},
                 {"title", TextOf(window)},
                 {"enabled", IsWindowEnabled(window) != FALSE},
                 {"foreground", GetForegroundWindow() == window},
                 {"owner", TextOf(GetWindow(window, GW_OWNER))},
                 {"place", PlaceOf(window)}};
    if (kind == "#32770") {
        json["controls"] = Json::array();
        EnumChildWindows(window, AddControl, reinterpret_cast<LPARAM>(&json["controls"]));
    } else {
        json["selected"] = Ask(window, LB_GETCURSEL);
        json["entries"] = EntriesOf(window);
    }
    reinterpret_cast<Json*>(list)->push_back(std::move(json));
    return TRUE;
}

Json Snapshot() {
    Json windows = Json::array();
    EnumWindows(AddWindow, reinterpret_cast<LPARAM>(&windows));
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    GetGUIThreadInfo(0, &thread);
    HWND control = thread.hwndFocus;
    while (control != nullptr && GetParent(control) != nullptr && ClassOf(GetParent(control)) != "#32770")
        control = GetParent(control);
    return {{"windows", windows},
            {"focus", control == nullptr ? 0 : GetDlgCtrlID(control)},
            {"focusClass", ClassOf(thread.hwndFocus)}};
}

}  // namespace

int main() {
    for (std::string line; std::getline(std::cin, line);) std::cout << Snapshot().dump() << std::endl;
    return 0;
}
