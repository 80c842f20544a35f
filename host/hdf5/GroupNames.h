// The names of groups in a file.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/hdf5/Hdf5Handle.h"
#include "host/store/StoredSignal.h"

namespace kelvarin::hdf5 {

// Finds names for the members of a group. A slash would mean a group within, so it becomes an underscore;
// names that are taken get a number.
class GroupNames {
  public:
    // Knows the members that the group has.
    explicit GroupNames(hid_t group) : Group(group) {}

    // The name for the next member, which must be made before the next call.
    std::string Add(const std::string& wanted);

  private:
    const hid_t Group;
    std::map<std::string, int> Numbers;  // last one given behind a name
};

// The members of a group in the order of their making.
std::vector<std::string> MemberNames(hid_t group);

// The 0-based column of the source that a signal comes from, by the number at the end of its name; -1 for
// none.
std::int64_t ColumnOf(const store::SignalDescription& about);

}  // namespace kelvarin::hdf5
