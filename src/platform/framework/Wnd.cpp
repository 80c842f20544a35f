#include "platform/framework/Wnd.h"

void AfxSetWindowText(CWnd window, const std::u16string& text) {
    if (window.GetWindowText() != text) window.SetWindowText(text);
}
