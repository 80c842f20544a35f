// Compares the samples of one signal with those of a file.
#pragma once

#include <memory>

#include "host/hdf5/ColumnReader.h"
#include "host/store/SampleFile.h"
#include "host/store/StoredSignal.h"

namespace kelvarin::hdf5 {

// What the signals of a device share while they are compared.
struct CheckState {
    std::string Failure;                                  // empty, or why the file can't be read
    std::optional<store::SampleCheck::Difference> First;  // the earliest
    std::uint64_t Compared = 0;                           // values

    // Keeps a difference unless an earlier one is known; one without a sample comes last.
    void Report(store::SampleCheck::Difference difference);

    bool IsDecided() const { return First.has_value() || !Failure.empty(); }

    // Calls `read` unless there was a failure, and remembers one.
    template <class Read>
    void Try(Read read) {
        if (!Failure.empty()) return;
        try {
            read();
        } catch (const Hdf5Error& error) {
            Failure = error.what();
        }
    }
};

class SignalCheck : public store::SignalSink {
  public:
    // No samples come any more: the file must have no more either.
    virtual void Finish() = 0;
};

// Where the data sets of a signal stand.
struct SignalPlace {
    hid_t Device;
    std::string Name;

    std::string PathOf(const char* set) const { return Name + "/" + set; }
};

// Compares with the data sets of a signal, by its type code. The device's group, the state and the
// description must outlive it. Raises Hdf5Error if they aren't as they should be.
std::unique_ptr<SignalCheck> MakeSignalCheck(const SignalPlace& place, const store::SignalDescription& about,
                                             CheckState& state);

}  // namespace kelvarin::hdf5
