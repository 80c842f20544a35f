// The samples of a run as arrays of numpy.
#pragma once

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "host/Reading.h"
#include "host/store/StoredDevice.h"

namespace kelvarin::python {
namespace py = pybind11;

using Device = std::shared_ptr<const store::StoredDevice>;

// A signal of a device, which lives as long as the signal, or an array that lies in its memory.
class SignalSamples {
  public:
    // `type` is that of the signal's column in the file, an ECsvDataType.
    SignalSamples(Device device, std::size_t index, int type);

    py::object Name() const;
    py::object Unit() const;
    const char* Type() const;                     // "boolean", "integer", "float" or "text"
    int Column() const { return About.Column; }   // from 0; -1: unknown
    py::tuple MetaData() const;                   // pieces of XML
    std::uint64_t Count() const;                  // of samples
    std::string Course(std::size_t width) const;  // a sparkline of at most `width` characters

    // A new array of one dimension: float64 with NaN for a missing value, int64, uint64 of hexadecimal
    // numbers, bool, or objects, which are str and None for a missing text. In the device's memory where it
    // lies there in one piece.
    py::array Values() const;

    // A new array of bool, true where there is no value; None if none is missing or they are floats.
    py::object Mask() const;

    // A new array of int64: nanoseconds since 1970-01-01 00:00 UTC.
    py::array Times() const;

    // Equal for signals of a run that have the same times.
    std::uintptr_t TimesId() const;

  private:
    const store::StoredSignal& Signal() const { return *Samples->Signals[Index]; }
    py::array Floats() const;
    py::array Objects() const;
    py::array Copied(const py::dtype& type) const;
    py::array InPlace(const py::dtype& type) const;

    const Device Samples;
    const std::size_t Index;
    const int ColumnType;
    const store::SignalDescription About;
    const store::SignalSummary Sum;
};

// The local clock's times for moments, in a new array of int64.
py::array LocalTimes(const py::array_t<std::int64_t>& moments);
}  // namespace kelvarin::python
