#include "python/native/Failure.h"

#include <pybind11/pybind11.h>

#include "python/native/Convert.h"

namespace kelvarin::python {
namespace {
constexpr const char* ClassNames[] = {"Error", "FileError", "FormatError", "SettingError", "CopyError"};

void Raise(const Failure& failure) {
    const py::module_ errors = py::module_::import("kelvarin.errors");
    const py::object file = failure.File.empty() ? py::object(py::none()) : PathToPython(failure.File);
    const py::object line = failure.Line == 0 ? py::object(py::none()) : py::int_(failure.Line);
    std::string advice = failure.Advice.Text;
    if (advice.empty() && failure.SaysExplain) advice = "kelvarin.explain says how its lines are read";
    Remedy remedy = failure.Advice;
    remedy.Text = advice;
    const py::object type = errors.attr(ClassNames[static_cast<int>(failure.Kind)]);
    const py::object error = type(TextToPython(failure.Text), file, line, RemedyToPython(remedy));
    PyErr_SetObject(type.ptr(), error.ptr());
}
}  // namespace

void RegisterFailure() {
    py::register_exception_translator([](std::exception_ptr thrown) {
        try {
            if (thrown) std::rethrow_exception(thrown);
        } catch (const Failure& failure) {
            Raise(failure);
        }
    });
}
}  // namespace kelvarin::python
