// Numbers of the texts of this library, under which a language module can give them.
#pragma once

enum EFrameworkStringId : unsigned {
    IdWholeRange = 61713,      // %i: lowest, %i: highest whole number
    IdNumberRange = 61714,     // %s: lowest, %s: highest number
    IdMostCharacters = 61716,  // %i: characters
    IdNoDevice = 61800,
    IdStoreFailed = 61801
};
