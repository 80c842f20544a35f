// A file that keeps every sample of imported devices: HDF5, where the library is there.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/store/SampleSink.h"

namespace kelvarin::store {

class StoredDevice;

// Where a device came from.
struct SampleOrigin {
    std::uint64_t SourceSize = 0;          // bytes
    std::int64_t SourceModified = 0;       // seconds since 1970, UTC
    std::vector<std::string> Settings;     // those of the run, as KEY=VALUE
    std::optional<std::int64_t> BaseTime;  // of relative time, as given by the user
    bool IsRelative = false;               // the times are relative measurement time
};

// A file while it is written. Nothing is seen at its path until Finish; if the object goes without that, what
// was there stays and nothing is left behind.
class SampleFile {
  public:
    virtual ~SampleFile() = default;

    // Begins a device; its sink lives until KeepDevice or DropDevice.
    virtual DeviceSink& BeginDevice() = 0;

    // Puts the device that was begun into the file, under its name or, if that is taken, under another.
    // Empty, or why the file can't be written; it is lost then.
    virtual std::string KeepDevice(const StoredDevice& device, const SampleOrigin& origin) = 0;

    // Forgets the device that was begun.
    virtual void DropDevice() = 0;

    // Puts the file in its place, on the disk for good. Empty, or why it can't.
    virtual std::string Finish() = 0;
};

// A device of a file, read along with a run that should give the same samples.
class SampleCheck : public DeviceSink {
  public:
    // What the device was made with; the source's size and time are not read.
    virtual const SampleOrigin& Origin() const = 0;

    // After the run: null means that the file holds exactly what the device got.
    struct Difference {
        std::string Signal;                   // its symbol; empty: it concerns the device
        std::optional<std::uint64_t> Sample;  // 0-based
        std::string What;                     // "value", "time", "unit" and so on
        std::string Stored, Imported;
    };
    virtual const Difference* Compare(const StoredDevice& device) = 0;

    // Empty, or why the file can't be read to the end.
    virtual const std::string& Failure() const = 0;

    // Values compared so far.
    virtual std::uint64_t Compared() const = 0;
};

// A finished file.
class SampleArchive {
  public:
    virtual ~SampleArchive() = default;

    // The n-th device of this name, n from 0. Null: there is none, or it can't be read, which `complaint`
    // tells.
    virtual std::unique_ptr<SampleCheck> FindDevice(const std::string& name, std::size_t n,
                                                    std::string& complaint) = 0;
};

// True if files can be written and read in this build.
bool HasSampleFiles();

// Null if the file can't be written or read, which `complaint` tells.
std::unique_ptr<SampleFile> CreateSampleFile(const std::string& path, std::string& complaint);
std::unique_ptr<SampleArchive> OpenSampleFile(const std::string& path, std::string& complaint);

}  // namespace kelvarin::store
