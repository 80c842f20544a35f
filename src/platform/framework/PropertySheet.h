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
    CDialog* GetParent() const override;
    friend class CPropertySheet;
};

// Refers to its pages; their owner keeps them.
class CPropertySheet {
  public:
    void AddPage(CPropertyPage* page);

    // Makes the sheet a child of a dialog and shows the first page.
    void Create(CDialog& parent);

    CDialog* GetFrame() const { return Frame; }
    int GetPageCount() const { return static_cast<int>(Pages.size()); }
    int GetActiveIndex() const { return Active; }
    CPropertyPage& GetPage(int index) const { return *Pages[static_cast<std::size_t>(index)]; }

    // Asks the active page by OnKillActive, then shows the other one, which is created the first time. False
    // if the active page refused or there is no such page.
    bool SetActivePage(int index);

  private:
    void Show(int index);

    // Makes the row of tabs in the frame, and puts a page in front of the others.
    void CreateTabs();
    void BringToFront(CPropertyPage& page);

    std::vector<CPropertyPage*> Pages;
    CDialog* Frame = nullptr;
    int Active = -1;
};
