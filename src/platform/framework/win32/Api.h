// The Windows API as the files of this folder use it. Nothing outside them includes it: its macros rename
// whatever has the name of one of its functions.
#pragma once

#include <winsock2.h>
// winsock2.h has to come first, or windows.h brings its older brother.
#include <commctrl.h>
#include <commdlg.h>
#include <shellapi.h>
#include <windows.h>
#include <windowsx.h>

#include <string>

#undef FindText
#undef GetClassName
#undef GetProfileInt
#undef GetProfileString
#undef GetWindowText
#undef LoadString
#undef ReplaceFile
#undef ReplaceText
#undef SetWindowText
#undef WriteProfileString

static_assert(sizeof(char16_t) == sizeof(wchar_t));

// Text at the border of the API; refers to the same units.
inline const wchar_t* W(const char16_t* text) {
    return reinterpret_cast<const wchar_t*>(text);
}
inline const wchar_t* W(const std::u16string& text) {
    return W(text.c_str());
}
inline wchar_t* W(char16_t* text) {
    return reinterpret_cast<wchar_t*>(text);
}
inline const char16_t* FromW(const wchar_t* text) {
    return reinterpret_cast<const char16_t*>(text);
}

// A path as the calls take it. Beyond about 250 units they want the absolute path behind a mark.
std::u16string ApiPath(const std::u16string& path);

// For a file that other programs may use in any way meanwhile.
constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// The system removes the file with its last handle, whatever closes that, or no longer. ERROR_SUCCESS, or why
// that can't be set.
inline DWORD RemoveWithHandle(HANDLE file, bool removes) {
    FILE_DISPOSITION_INFO disposition = {static_cast<BOOLEAN>(removes)};
    const BOOL isSet =
        SetFileInformationByHandle(file, FileDispositionInfo, &disposition, sizeof disposition);
    return isSet != 0 ? ERROR_SUCCESS : GetLastError();
}
