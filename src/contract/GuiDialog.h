// The host's dialogs and sheets: the toolkit's, in the host's font.
#pragma once

#include "platform/framework/PropertySheet.h"

class CGuiFontDialog : public CDialog {
  public:
    using CDialog::CDialog;
};

class CGuiFontPropertySheet : public CPropertySheet {};
