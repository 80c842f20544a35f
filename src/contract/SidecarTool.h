// Optional interface of a filter: sidecar files made and checked without a user.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

// One value of a sidecar as it was understood, under the name of its element.
struct SidecarField {
    std::string Element;
    std::u16string Value;
};

// What is to be said about a sidecar file.
struct SidecarCheck {
    int Errors = 0;              // -1: it can't be read
    int Line = 0;                // of the first error, from 1; 0 without one
    std::size_t Column = 0;      // in bytes of UTF-8, from 1
    std::string Reason;          // of the first error
    std::u16string Revision;     // as the file says it; empty means 1
    bool KnownRevision = false;  // else nothing was read from it
    std::vector<SidecarField> Fields;
};

class ISidecarTool {
  public:
    static constexpr const char* Id = "kelvarin.SidecarTool/2";

    virtual ~ISidecarTool() = default;

    // Writes the sidecar of the filter's file from the profile and the detected format, such that an import
    // under it reads the same lines as one under those. One that exists is replaced, and only what no setting
    // knows is kept of it. False, with the reason, if the file can't be read, a setting can't be said in a
    // sidecar, or the sidecar can't be written.
    virtual bool WriteSidecar(std::string& reason) = 0;

    // Reads the sidecar at this path, whatever file it belongs to.
    virtual SidecarCheck CheckSidecar(const char16_t* sidecarPath) = 0;
};
