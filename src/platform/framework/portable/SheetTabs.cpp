#include "platform/framework/PropertySheet.h"

// Nothing is drawn here: the page in front is the active one.
void CPropertySheet::CreateTabs() {}
void CPropertySheet::BringToFront(CPropertyPage&) {}
