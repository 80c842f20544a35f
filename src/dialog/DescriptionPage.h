// The page with the free text about a document. It is built with the dialog but not among the sheet's pages,
// so the text stays what the filter made it.
#pragma once

#include "platform/framework/DataExchange.h"
#include "platform/framework/PropertySheet.h"
#include "resources/ResourceIds.h"
#include "settings/CsvImportSettings.h"

class CDescriptionPage : public CPropertyPage {
  public:
    explicit CDescriptionPage(CCsvImportSettings* settings)
        : CPropertyPage(IdDescriptionPage), Settings(settings) {}

    void DoDataExchange(CDataExchange& exchange) override {
        DDX_Text(exchange, CtrlDescription, Settings->Description);
    }

  private:
    CCsvImportSettings* const Settings;
};
