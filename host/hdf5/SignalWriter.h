// The samples of one signal on their way into a file.
#pragma once

#include <memory>
#include <string>

#include "host/hdf5/ColumnWriter.h"
#include "host/store/SampleSink.h"

namespace kelvarin::hdf5 {

// What the signals of a device share while they are written.
struct DeviceState {
    DatasetPlace Place;
    std::size_t ChunkValues = 0;  // samples of a chunk, settled when the first one comes
    std::string Failure;          // empty, or why the file can't be written

    // Calls `write` unless there was a failure, and remembers one.
    template <class Write>
    void Try(Write write) {
        if (!Failure.empty()) return;
        try {
            write();
        } catch (const Hdf5Error& error) {
            Failure = error.what();
        }
    }
};

class SignalWriter : public store::SignalSink {
  public:
    // Writes the rest and gives the data sets their places in the signal's group.
    virtual void Finish(hid_t group) = 0;

    // Samples so far.
    virtual std::uint64_t Count() const = 0;
};

// A writer for the values of a type code. The state must outlive it.
std::unique_ptr<SignalWriter> MakeSignalWriter(std::uint32_t type, DeviceState& state);

}  // namespace kelvarin::hdf5
