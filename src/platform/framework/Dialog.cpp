#include "platform/framework/Dialog.h"

#include "platform/framework/DialogDriver.h"
#include "platform/framework/Module.h"

const DialogTemplate& CDialog::GetTemplate() const {
    return *GetCurrentModule()->FindDialog(TemplateId);
}

bool CDialog::OnInitDialog() {
    UpdateData(false);
    return true;
}

bool CDialog::UpdateData(bool saveAndValidate) {
    if (!IsCreated()) return false;
    const bool before = Updating;
    Updating = true;
    CDataExchange exchange(*this, saveAndValidate);
    DoDataExchange(exchange);
    Updating = before;
    return !exchange.Failed;
}

void CDataExchange::Fail(int controlId, const std::u16string& message) {
    if (Failed) return;
    Failed = true;
    AfxMessageBox(message, MessageExclamation);
    CWnd control = Dialog.GetDlgItem(controlId);
    if (control.Exists()) control.SetFocus();
}

std::intptr_t CDialog::Notify(int id, int code, void* data) {
    if (Updating) return 0;
    std::intptr_t result = 0;
    OnNotification({id, code, data, &result});
    return result;
}
