#include "python/native/Samples.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "host/LocalClock.h"
#include "platform/framework/Text.h"
#include "python/native/Convert.h"
#include "python/native/Texts.h"

namespace kelvarin::python {
namespace {
py::dtype DtypeOf(std::uint32_t type, int columnType) {
    switch (type) {
        case KelvarinBool:
            return py::dtype("bool");
        case KelvarinInt64:
            return py::dtype(columnType == CsvTypeHex ? "uint64" : "int64");
        default:
            return py::dtype("float64");
    }
}
}  // namespace

SignalSamples::SignalSamples(Device device, std::size_t index, int type)
    : Samples(std::move(device)),
      Index(index),
      ColumnType(type),
      About(Signal().Description()),
      Sum(Signal().Summary()) {}

py::object SignalSamples::Name() const {
    return TextToPython(About.Symbol.empty() ? About.Name : About.Symbol);
}

py::object SignalSamples::Unit() const {
    return TextToPython(About.Unit);
}

const char* SignalSamples::Type() const {
    switch (About.Type) {
        case KelvarinBool:
            return "boolean";
        case KelvarinInt64:
            return "integer";
        case KelvarinDouble:
            return "float";
        default:
            return "text";
    }
}

py::tuple SignalSamples::MetaData() const {
    return TupleOf(About.MetaData, [](const std::string& xml) { return TextToPython(xml); });
}

std::uint64_t SignalSamples::Count() const {
    return Signal().KeptCount();
}

std::string SignalSamples::Course(std::size_t width) const {
    return Sum.Plot.Draw(width);
}

py::array SignalSamples::InPlace(const py::dtype& type) const {
    void* const values = Signal().ValuesInPlace();
    if (values == nullptr) return Copied(type);
    const py::capsule owner(new Device(Samples), [](void* device) { delete static_cast<Device*>(device); });
    return py::array(type, {Count()}, {}, values, owner);
}

py::array SignalSamples::Copied(const py::dtype& type) const {
    py::array values(type, {Count()}, {});
    void* const data = values.mutable_data();
    const py::gil_scoped_release released;
    Signal().CopyValues(data);
    return values;
}

py::array SignalSamples::Floats() const {
    if (Sum.WithoutValue == 0) return InPlace(py::dtype("float64"));
    py::array copy = Copied(py::dtype("float64"));
    auto* const values = static_cast<double*>(copy.mutable_data());
    const py::gil_scoped_release released;
    std::vector<std::uint8_t> gaps(static_cast<std::size_t>(Count()));
    Signal().CopyGaps(gaps.data());
    for (std::size_t i = 0; i < gaps.size(); ++i) {
        if (gaps[i] != 0) values[i] = std::numeric_limits<double>::quiet_NaN();
    }
    return copy;
}

// An array of objects begins with nulls, which numpy takes for None.
py::array SignalSamples::Objects() const {
    py::array objects(py::dtype("O"), {Count()}, {});
    auto** const items = static_cast<PyObject**>(objects.mutable_data());
    if (About.Type == KelvarinChar16) {
        FillCharacters(Signal(), items);
    } else {
        FillTexts(Signal(), items);
    }
    return objects;
}

py::array SignalSamples::Values() const {
    switch (About.Type) {
        case KelvarinBool:
        case KelvarinInt64:
            return InPlace(DtypeOf(About.Type, ColumnType));
        case KelvarinDouble:
            return Floats();
        default:
            return Objects();
    }
}

py::object SignalSamples::Mask() const {
    if (Sum.WithoutValue == 0 || About.Type == KelvarinDouble) return py::none();
    py::array mask(py::dtype("bool"), {Count()}, {});
    Signal().CopyGaps(static_cast<std::uint8_t*>(mask.mutable_data()));
    return mask;
}

py::array SignalSamples::Times() const {
    py::array times(py::dtype("int64"), {Count()}, {});
    auto* const data = static_cast<std::int64_t*>(times.mutable_data());
    const py::gil_scoped_release released;
    Signal().CopyTimes(data);
    return times;
}

std::uintptr_t SignalSamples::TimesId() const {
    return reinterpret_cast<std::uintptr_t>(Signal().TimesId());
}

py::array LocalTimes(const py::array_t<std::int64_t>& moments) {
    py::array local(py::dtype("int64"), {moments.size()}, {});
    auto* const data = static_cast<std::int64_t*>(local.mutable_data());
    const std::int64_t* const source = moments.data();
    const auto count = static_cast<std::size_t>(moments.size());
    const py::gil_scoped_release released;
    std::copy_n(source, count, data);
    ToLocalClock({data, count});
    return local;
}
}  // namespace kelvarin::python
