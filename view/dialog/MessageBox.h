// The module's messages as Qt's message boxes.
#pragma once

#include <string>

class QWidget;

namespace kelvarin::view {

// Shows a message over `parent`, which may be null, and returns the number of the button that ended it: 1 OK,
// 2 Cancel, 3 Abort, 4 Retry, 5 Ignore, 6 Yes, 7 No. The lowest four bits of `type` say which buttons there
// are, the next four the icon, the next which button is the default. Closing it is Cancel where there is one.
int ShowMessageBox(QWidget* parent, const std::u16string& title, const std::u16string& text, unsigned type);

}  // namespace kelvarin::view
