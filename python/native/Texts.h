// Texts of a store as objects of Python, equal ones mostly as the same object.
#pragma once

#include <pybind11/pybind11.h>

#include "host/store/StoredDevice.h"

namespace kelvarin::python {
// Fill `items`, one for each sample of the signal, with new references to str, or to None for a missing one.
// Characters are signals of one unit of UTF-16 each. Lone surrogates are kept. Raise the exception of Python
// if memory runs out; the items filled so far are the caller's.
void FillTexts(const store::StoredSignal& signal, PyObject** items);
void FillCharacters(const store::StoredSignal& signal, PyObject** items);
}  // namespace kelvarin::python
