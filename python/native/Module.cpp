// The extension kelvarin._native: what the package's own Python code works with.
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include "contract/FixedTimes.h"
#include "python/native/Failure.h"
#include "python/native/Process.h"
#include "python/native/ReadFile.h"
#include "python/native/Reports.h"
#include "python/native/Samples.h"
#include "python/native/StoreFile.h"

namespace kelvarin::python {
namespace {
// Members that Python sets one by one.
void AddRequest(py::module_& module) {
    py::class_<Wish>(module, "Wish")
        .def(py::init<>())
        .def_readwrite("column", &Wish::Column)
        .def_readwrite("type", &Wish::Type)
        .def_readwrite("name", &Wish::Name)
        .def_readwrite("unit", &Wish::Unit)
        .def_readwrite("skip", &Wish::Skip);
    py::class_<Request>(module, "Request")
        .def(py::init<>())
        .def_property(
            "path", [](const Request& request) { return py::bytes(request.Path); },
            [](Request& request, const py::bytes& path) { request.Path = path; })
        .def_readwrite("settings", &Request::Settings)
        .def_readwrite("wishes", &Request::Wishes)
        .def_readwrite("signals", &Request::Signals)
        .def_readwrite("guess", &Request::Guess)
        .def_readwrite("threads", &Request::Threads)
        .def_readwrite("base_time", &Request::BaseTime);
}

void AddSamples(py::module_& module) {
    py::class_<SignalSamples>(module, "SignalSamples")
        .def_property_readonly("name", &SignalSamples::Name)
        .def_property_readonly("unit", &SignalSamples::Unit)
        .def_property_readonly("type", &SignalSamples::Type)
        .def_property_readonly("column", &SignalSamples::Column)
        .def_property_readonly("metadata", &SignalSamples::MetaData)
        .def_property_readonly("count", &SignalSamples::Count)
        .def_property_readonly("times_id", &SignalSamples::TimesId)
        .def("course", &SignalSamples::Course, py::arg("width"))
        .def("values", &SignalSamples::Values)
        .def("mask", &SignalSamples::Mask)
        .def("times", &SignalSamples::Times);
}
}  // namespace

PYBIND11_MODULE(_native, module) {
    RegisterFailure();
    AddRequest(module);
    AddSamples(module);
    module.attr("RELATIVE_TIME_EPOCH") = RelativeTimeEpoch;
    module.attr("VERSION") = KELVARIN_VERSION;
    module.def("read", &ReadFile, py::arg("request"), py::arg("progress"));
    module.def("analyze", &AnalyzeFile, py::arg("request"));
    module.def("explain", &ExplainFile, py::arg("request"));
    module.def("check", &CheckFile, py::arg("request"), py::arg("progress"));
    module.def("prepare", &PrepareFile, py::arg("path"), py::arg("copy"), py::arg("force"),
               py::arg("progress"));
    module.def("store", &StoreFile, py::arg("request"), py::arg("out"), py::arg("progress"));
    module.def("local_times", &LocalTimes, py::arg("moments"), py::arg("are_of_file"));
    module.def("begin_forked_child", &BeginForkedChild);
}
}  // namespace kelvarin::python
