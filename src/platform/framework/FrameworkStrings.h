// Texts of this library that a user sees.
#pragma once

#include <string>

#include "platform/framework/Module.h"

// Their numbers, under which a language module can give them.
enum EFrameworkStringId : unsigned {
    IdWholeRange = 61713,      // %i: lowest, %i: highest whole number
    IdNumberRange = 61714,     // %s: lowest, %s: highest number
    IdMostCharacters = 61716,  // %i: characters
    IdNoDevice = 61800,
    IdStoreFailed = 61801
};

// The library's own table, in German.
StringTable GetFrameworkStrings();

// A text in the language of the current module; the library's own if that has none.
std::u16string LoadFrameworkString(EFrameworkStringId id);
