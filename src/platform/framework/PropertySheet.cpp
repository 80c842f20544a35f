#include "platform/framework/PropertySheet.h"

void CPropertySheet::AddPage(CPropertyPage* page) {
    page->Parent = this;
    Pages.push_back(page);
}

void CPropertySheet::Create(CDialog& parent) {
    parent.Sheet = this;
    Frame = &parent;
    CreateTabs();
    Show(0);
}

bool CPropertySheet::SetActivePage(int index) {
    if (index < 0 || index >= GetPageCount()) return false;
    if (Active >= 0 && !GetPage(Active).OnKillActive()) return false;
    Show(index);
    return true;
}

void CPropertySheet::Show(int index) {
    Active = index;
    CPropertyPage& page = GetPage(index);
    const bool isFirst = !page.IsCreated();
    if (isFirst) page.CreateControls();
    BringToFront(page);
    if (isFirst) page.OnInitDialog();
}

CDialog* CPropertyPage::GetParent() const {
    return Parent == nullptr ? nullptr : Parent->GetFrame();
}
