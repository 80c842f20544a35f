// Results of the host library as objects of Python.
#pragma once

#include <pybind11/pybind11.h>

#include <string>
#include <string_view>
#include <vector>

#include "host/Certainty.h"
#include "host/Remedy.h"
#include "host/SettingText.h"
#include "host/check/Findings.h"
#include "host/plan/PlanGuess.h"

namespace kelvarin::python {
namespace py = pybind11;

// A str. Of bytes that are no UTF-8 each becomes U+FFFD; lone surrogates of UTF-16 are kept.
py::object TextToPython(std::string_view utf8);
py::object TextToPython(std::u16string_view text);

// A path as the system has it, as os.fsdecode returns it.
py::object PathToPython(std::string_view path);

// A str: what to do, then the keyword arguments that do it; empty if there is nothing to do.
py::object RemedyToPython(const Remedy& remedy);

py::dict SettingsToPython(const SettingList& settings);

// With the letters of a format among them under the key that read() takes them by.
py::dict SettingsToPython(const SettingList& settings, const std::u16string& letters);

// A tuple of (kind, text, certainty, doubts).
py::tuple AssumptionsToPython(const std::vector<Assumption>& assumptions);

// A tuple of (kind, is fault, text, count, lines, column, remedy).
py::tuple FindingsToPython(const std::vector<check::Finding>& findings);

// A tuple of what `convert` makes of each item.
template <class Items, class Convert>
py::tuple TupleOf(const Items& items, Convert convert) {
    py::tuple tuple(items.size());
    std::size_t i = 0;
    for (const auto& item : items) tuple[i++] = convert(item);
    return tuple;
}

// The key for the letters of a time format among settings.
constexpr const char* LettersKey = "FormatLetters";
}  // namespace kelvarin::python
