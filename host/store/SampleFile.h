// Where the samples of a run go besides the store: sinks that get them as they come, and a file that keeps
// every sample of imported devices (HDF5, where the library is there).
//
// One thread at a time may use the files of a process, whatever their number: the HDF5 library keeps state
// that they share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "host/SettingText.h"

namespace kelvarin::store {
class StoredDevice;
struct SignalDescription;

// Gets the samples of one signal in order. It is called within the module, or on any thread that joins ranges
// of a file, one at a time, so no exception may leave it: a failure is remembered and reported by
// DeviceSink::HasFailed.
class SignalSink {
  public:
    virtual ~SignalSink() = default;

    // The next `count` values, one after the other, each of the size of the signal's type. `valid` is null or
    // has `count` flags: 1 where a sample has a value, else 0. Both end with the call.
    virtual void TakeValues(const void* values, std::size_t count, const std::uint8_t* valid) = 0;

    // The next text of a signal of texts, in code units of UTF-16; null for a sample without a value.
    virtual void TakeText(const char16_t* text, std::size_t length) = 0;
};

// Gets the samples of one device, whose signals share their times.
class DeviceSink {
  public:
    virtual ~DeviceSink() = default;

    // Called for each signal before the first time. The description and the sink returned must live as long
    // as the device; symbol and unit are set later. Null: the signal's samples aren't wanted.
    virtual SignalSink* AddSignal(const SignalDescription& about) = 0;

    // The time of the next sample of every signal in nanoseconds; comes before the last of those samples.
    virtual void TakeTime(std::int64_t time) = 0;

    // True if the run can end now, since the sink takes no more.
    virtual bool HasFailed() const = 0;
};

// Where a device came from.
struct SampleOrigin {
    std::uint64_t SourceSize = 0;          // bytes
    std::int64_t SourceModified = 0;       // seconds since 1970, UTC
    SettingList Settings;                  // those of the run
    std::optional<std::int64_t> BaseTime;  // of relative time in nanoseconds, as given by the user
    bool IsRelative = false;               // the times are relative measurement time
    bool IsAutomatic = false;              // it was found how to read the file, and what its columns are
    bool IsCopied = false;                 // a clean copy was read in place of the file
    std::u16string FormatLetters = {};     // by which the settings' format is read; empty: unknown
};

// A file while it is written. Nothing is seen at its path until Finish; if the object is destroyed without
// that, what was there stays and nothing else is left.
class SampleFile {
  public:
    virtual ~SampleFile() = default;

    // Begins a device; its sink lives until KeepDevice or DropDevice.
    virtual DeviceSink& BeginDevice() = 0;

    // Puts the device that was begun into the file, under its name or, if that is taken, under another.
    // Empty, or why the file can't be written; it can then only be destroyed.
    virtual std::string KeepDevice(const StoredDevice& device, const SampleOrigin& origin) = 0;

    // Forgets the device that was begun.
    virtual void DropDevice() = 0;

    // Moves the file to its path, after it is on the disk. Empty, or why it can't.
    virtual std::string Finish() = 0;
};

// A device of a file that is compared with a run: as the run's sink it reads the file along.
class SampleCheck : public DeviceSink {
  public:
    // What the device was made with; SourceSize and SourceModified are not read.
    virtual const SampleOrigin& Origin() const = 0;

    struct Difference {
        std::string Signal;                   // its symbol; empty: it concerns the device
        std::optional<std::uint64_t> Sample;  // 0-based; none: it concerns no sample
        std::string What;                     // "value", "time", "unit" and so on; a text for Phrase
        std::string Stored, Imported;         // texts for people; "-" for none
    };

    // Called after the run. Null: the file holds exactly what the device got, or Failure says more. Otherwise
    // the difference in the earliest sample, which lives as long as this object.
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

    // The n-th device of this name, n from 0; it may outlive the archive. Null: there is none, or it can't be
    // read, as `complaint` then says.
    virtual std::unique_ptr<SampleCheck> FindDevice(const std::string& name, std::size_t n,
                                                    std::string& complaint) = 0;
};

// True if files can be written and read in this build.
bool HasSampleFiles();

// The path is in the system's encoding. Null: the file can't be written or read, as `complaint` then says.
std::unique_ptr<SampleFile> CreateSampleFile(const std::string& path, std::string& complaint);
std::unique_ptr<SampleArchive> OpenSampleFile(const std::string& path, std::string& complaint);
}  // namespace kelvarin::store
