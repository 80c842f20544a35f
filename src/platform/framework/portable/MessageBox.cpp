#include "platform/framework/DialogDriver.h"

int AfxMessageBox(const std::u16string& text, unsigned type) {
    DialogDriver* const driver = GetDialogDriver();
    return driver == nullptr ? 1 : driver->ShowMessage(text, type);
}
