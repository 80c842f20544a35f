// The module's dialogs as tables.
#pragma once

#include "platform/framework/Module.h"

DialogTable GetDialogTemplates();
