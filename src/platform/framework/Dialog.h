// Dialogs made from a template, and the exchange between their controls and fields.
#pragma once

#include <memory>
#include <string>

#include "platform/framework/Wnd.h"

class CDialog;
class CPropertySheet;
struct DialogTemplate;

// One exchange. After a failure nothing more is exchanged.
class CDataExchange {
  public:
    CDataExchange(CDialog& dialog, bool saveAndValidate) : Dialog(dialog), SaveAndValidate(saveAndValidate) {}

    // Ends the exchange: shows the message, puts the focus on the control.
    void Fail(int controlId, const std::u16string& message);

    CDialog& Dialog;
    const bool SaveAndValidate;  // from the controls to the fields
    bool Failed = false;
};

// A dialog. Its controls exist between OnInitDialog and the end of DoModal, or for a page to the end of its
// sheet.
class CDialog {
  public:
    explicit CDialog(int templateId);
    CDialog(const CDialog&) = delete;
    CDialog& operator=(const CDialog&) = delete;
    virtual ~CDialog();

    // Runs the dialog and answers what EndDialog was given.
    int DoModal();
    void EndDialog(int result);
    bool IsEnded() const;

    virtual bool OnInitDialog();
    virtual void DoDataExchange(CDataExchange&) {}
    virtual void OnOK() { EndDialog(1); }
    virtual void OnCancel() { EndDialog(2); }

    // Exchanges all fields; false if a check failed. Notifications of the controls are dropped meanwhile.
    bool UpdateData(bool saveAndValidate);

    // Makes the controls. For pages, the sheet calls it.
    void CreateControls();
    bool IsCreated() const { return Native != nullptr; }

    // The control of a number; it may not exist.
    CWnd GetDlgItem(int id) const;
    bool IsDlgButtonChecked(int id) const;
    void CheckDlgButton(int id, bool checked);

    // Radio buttons of the group that begins with a control: the one that is checked (-1: none), and checking
    // one.
    int GetCheckedRadio(int firstId) const;
    void CheckRadio(int firstId, int index);

    // Takes a notification of a control unless an exchange runs.
    std::intptr_t Notify(int id, int code, void* data = nullptr);

    const DialogTemplate& GetTemplate() const;

    // The sheet that is a child of this dialog, or null.
    CPropertySheet* Sheet = nullptr;

    struct NativeDialog;
    NativeDialog& GetNative() const { return *Native; }

  protected:
    // The dialog in whose window this one lies; null for one of its own.
    virtual CDialog* GetParent() const { return nullptr; }

    // Handles a notification.
    virtual void OnNotification(const Notification&) {}

  private:
    const int TemplateId;
    std::unique_ptr<NativeDialog> Native;
    bool Updating = false;
};
