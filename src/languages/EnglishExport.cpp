// The one symbol of the language module.
#include "languages/English.h"

extern "C" const LanguageResources* GetKelvarinLanguageResources() {
    return &GetEnglishResources();
}
