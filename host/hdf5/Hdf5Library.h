// The HDF5 library: its identifiers, its failures, and its groups and attributes.
#pragma once

#include <hdf5.h>

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "platform/framework/GuardedProcess.h"

namespace kelvarin::hdf5 {
// A call of the library failed. The text is a clause for people. All functions here raise it.
class Hdf5Error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Raises Hdf5Error with the operating system's reason, or else with what the library says last.
[[noreturn]] void RaiseHdf5Error();

// The result of a call, unless it is a failure.
template <class Result>
Result Hdf5Checked(Result result) {
    ReportLife();
    if (result < 0) RaiseHdf5Error();
    return result;
}

// Empty, or why a call failed.
template <class Call>
std::string FailureOf(Call call) {
    try {
        call();
        return {};
    } catch (const Hdf5Error& error) {
        return error.what();
    }
}

// After BeginHdf5: the library prints nothing from now on where this thread calls it.
void KeepHdf5Quiet();

// Remembers the first failure of many calls, for sinks, which may raise nothing and are called by any thread.
struct FailureGuard {
    std::string Failure;  // empty: none so far

    // Does nothing after a failure.
    template <class Call>
    void Try(Call call) {
        if (!Failure.empty()) return;
        Failure = FailureOf([&] {
            KeepHdf5Quiet();
            call();
        });
    }
};

// From now on the library prints nothing, loads no filters of others, and does nothing at the end of the
// program: after a failed write it would try again and again.
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
        if (Id >= 0) H5Idec_ref(Id);
    }

    operator hid_t() const { return Id; }

    // Closes it now, so that a failure is noticed.
    void Close() { Hdf5Checked(H5Idec_ref(std::exchange(Id, H5I_INVALID_HID))); }

  private:
    hid_t Id = H5I_INVALID_HID;
};

// How files are opened: without the library's locks, and with little memory.
Hdf5Handle MakeFileAccess();

// A new group whose members are listed in the order of their making.
Hdf5Handle MakeGroup(hid_t parent, const std::string& name);

// Raises Hdf5Error if a member is a link by name, which may lead into any other file.
void RequireMember(hid_t group, const std::string& path);

// A member that is a group.
Hdf5Handle OpenGroup(hid_t parent, const std::string& name);

// The members of a group in the order of their making.
std::vector<std::string> MemberNames(hid_t group);

// Finds names for new members of a group. A slash would mean a group within, so it becomes an underscore;
// names that are taken get a number.
class GroupNames {
  public:
    explicit GroupNames(hid_t group) : Group(group) {}

    // The name for the next member, which must be made before the next call.
    std::string Add(const std::string& wanted);

  private:
    const hid_t Group;
    std::map<std::string, int> Numbers;  // the last one given to a name
};

// Gives an object an attribute: a number, or text in UTF-8 of variable length up to its first NUL.
void WriteAttribute(hid_t object, const char* name, std::int64_t number);
void WriteAttribute(hid_t object, const char* name, const std::string& text);

// An attribute's value. It must be a single one of this type.
std::int64_t ReadNumberAttribute(hid_t object, const char* name);
std::string ReadTextAttribute(hid_t object, const char* name);
bool HasAttribute(hid_t object, const char* name);
}  // namespace kelvarin::hdf5
