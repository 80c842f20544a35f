// What the HDF5 library hands out, and its failures.
#pragma once

#include <hdf5.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace kelvarin::hdf5 {

// A call of the library failed. The text is a clause for people.
class Hdf5Error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Raises Hdf5Error with the operating system's reason, or else with what the library says last.
[[noreturn]] void RaiseHdf5Error();

// The answer of a call, unless it is a failure.
template <class Answer>
Answer Hdf5Checked(Answer answer) {
    if (answer < 0) RaiseHdf5Error();
    return answer;
}

// From now on the library prints nothing and does nothing at the end of the program: after a failed write it
// would try again and again.
void BeginHdf5();

// Owns an identifier of any kind.
class Hdf5Handle {
  public:
    Hdf5Handle() = default;
    explicit Hdf5Handle(hid_t id) : Id(Hdf5Checked(id)) {}
    Hdf5Handle(Hdf5Handle&& other) noexcept : Id(std::exchange(other.Id, H5I_INVALID_HID)) {}
    Hdf5Handle& operator=(Hdf5Handle&& other) noexcept {
        std::swap(Id, other.Id);
        return *this;
    }
    ~Hdf5Handle() {
        if (IsOpen()) H5Idec_ref(Id);
    }

    operator hid_t() const { return Id; }
    bool IsOpen() const { return Id >= 0; }

    // Closes it now, so that a failure is heard.
    void Close() { Hdf5Checked(H5Idec_ref(std::exchange(Id, H5I_INVALID_HID))); }

  private:
    hid_t Id = H5I_INVALID_HID;
};

// How files are opened: without the library's locks, and with little memory.
Hdf5Handle MakeFileAccess();

}  // namespace kelvarin::hdf5
