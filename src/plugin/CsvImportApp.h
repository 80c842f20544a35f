// The application object of the module.
#pragma once

#include "platform/framework/WinApp.h"

// One per loaded module, made when it is loaded.
class CCsvImportApp : public CWinApp {
  public:
    CCsvImportApp();

    // Sets the user's locale, the place of the profile, the language and the module's name.
    bool InitInstance() override;
};
