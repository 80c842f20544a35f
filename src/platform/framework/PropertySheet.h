// Pages of a dialog, one in front at a time.
#pragma once

#include <vector>

#include "platform/framework/Dialog.h"

class CPropertyPage : public CDialog {
  public:
    using CDialog::CDialog;

    // May the page be left? The base exchanges the fields.
    virtual bool OnKillActive() { return UpdateData(true); }

    // Takes the page's choices over; false refuses.
    virtual bool OnApply() { return true; }

  protected:
    CPropertySheet* Parent = nullptr;
    friend class CPropertySheet;
};

// Refers to its pages; their owner keeps them.
class CPropertySheet {
  public:
    void AddPage(CPropertyPage* page);

    // Makes the sheet a child of a dialog and shows the first page.
    void Create(CDialog& parent);

    int GetPageCount() const { return static_cast<int>(Pages.size()); }
    int GetActiveIndex() const { return Active; }
    CPropertyPage& GetPage(int index) const { return *Pages[static_cast<std::size_t>(index)]; }

    // Asks the active page by OnKillActive, then shows the other one, which is created the first time. False
    // if the active page refused or there is no such page.
    bool SetActivePage(int index);

  private:
    void Show(int index);

    std::vector<CPropertyPage*> Pages;
    int Active = -1;
};
