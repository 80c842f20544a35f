// Texts and numbers that stand beside the data.
#pragma once

#include <cstdint>
#include <string>

#include "host/hdf5/Hdf5Handle.h"

namespace kelvarin::hdf5 {

// Gives an object an attribute: text in UTF-8, of variable length, which readers show as text. What a C
// string can't hold ends it.
void WriteAttribute(hid_t object, const char* name, const std::string& text);
void WriteAttribute(hid_t object, const char* name, std::int64_t number);

// The attribute's value; raises Hdf5Error if it is absent or of another kind.
std::string ReadTextAttribute(hid_t object, const char* name);
std::int64_t ReadNumberAttribute(hid_t object, const char* name);

bool HasAttribute(hid_t object, const char* name);

}  // namespace kelvarin::hdf5
