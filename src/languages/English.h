// The module's texts in English.
#pragma once

#include "platform/framework/Language.h"

const LanguageResources& GetEnglishResources();
