// The store of the embedded host: a device, its signals, their summaries and the first of their samples.
//
// A run fills a device on one thread, or appends parts that others fill, one at a time. After Finish any
// number of threads may read it, until it is destroyed or filled on; ValueReader and TimeIndex read on while
// it is filled.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "contract/DataStore.h"
#include "contract/DeviceHost.h"
#include "host/store/SampleFile.h"
#include "host/store/Sparkline.h"

namespace kelvarin::store {
class TimeAxis;
class ValueReader;

// What a signal is made with, and its texts.
struct SignalDescription {
    std::u16string Name;     // unique within the device
    std::uint32_t Type = 0;  // an EKelvarinType
    std::uint32_t Size = 0;  // bytes of a value, or VariableSampleSize
    int Column = -1;         // of the source, from 0; -1: unknown
    std::u16string Symbol;   // the name for people
    std::u16string Unit;
    std::vector<std::string> MetaData;  // pieces of XML

    bool operator==(const SignalDescription&) const = default;
};

// Over all samples of a signal, kept or not.
struct SignalSummary {
    std::uint64_t Count = 0;
    std::uint64_t WithoutValue = 0;            // samples among them
    std::int64_t FirstTime = 0, LastTime = 0;  // nanoseconds; 0 without samples
    std::optional<std::string> First, Last;    // bytes of the first and the last value, if there is one
    Sparkline Plot;                            // of truth values (0 and 1) and numbers; empty for others
};

// A signal: a summary of all its samples, and the first of them up to a limit.
class StoredSignal : public DM::SignalProxy {
  public:
    const DM::SUniqueSignalId& GetUniqueSignalId() const override { return Id; }

    virtual SignalDescription Description() const = 0;

    // Complete once the device is finished.
    virtual SignalSummary Summary() const = 0;

    // Gets a sample as it was given: its time in nanoseconds, `size` bytes of the signal's type, valid during
    // the call. Null data is a sample without a value.
    using SampleVisitor = std::function<void(std::int64_t time, const void* data, std::uint32_t size)>;

    // Visits the first samples in order, `limit` at most and none beyond those kept.
    virtual void VisitSamples(std::uint64_t limit, const SampleVisitor& visit) const = 0;

    // How many of the first samples lie in blocks that are complete: all once the device is finished.
    virtual std::uint64_t SettledCount() const = 0;

    // Reads these samples, `most` at most, in any order, also while the device is filled on; null for texts
    // and without samples. The device outlives the reader. `before` is null or what this has returned last,
    // with which the new reader shares what that one knows.
    virtual std::unique_ptr<ValueReader> ReadValues(std::uint64_t most, const ValueReader* before) const;

    // The times of the samples kept, which signals share where they agree; null where none are kept.
    virtual std::shared_ptr<const TimeAxis> Times() const;
    // The samples kept, which the functions below copy as arrays: their number, the time of each in
    // nanoseconds, and 1 for each without a value, else 0.
    virtual std::uint64_t KeptCount() const = 0;
    virtual void CopyTimes(std::int64_t* times) const = 0;
    virtual void CopyGaps(std::uint8_t* gaps) const = 0;

    // Equal for signals of a device that have the same times, null for one without times.
    virtual const void* TimesId() const = 0;

    // Copies values of a fixed size, Description().Size bytes each; zeros where there is none. Does nothing
    // for texts.
    virtual void CopyValues(void* values) const = 0;

    // The same values where they are, if they lie in one piece; null if not. They live as long as the device,
    // which never reads them again: the caller may change them.
    virtual void* ValuesInPlace() const = 0;

    // A text as it is kept: characters below 256 in a byte each, or the units of UTF-16 in two; null for a
    // sample without a value.
    struct KeptText {
        const char* Bytes = nullptr;
        std::uint32_t Length = 0;  // units
        bool IsNarrow = false;
    };

    // Visits the texts of a signal of texts in order; those of other signals are none. A text is valid as
    // long as the device.
    virtual void VisitTexts(const std::function<void(const KeptText& text)>& visit) const = 0;

    // The next sample of a visit that goes on after more samples have come.
    struct SamplePlace {
        std::uint64_t Row = 0;
        std::size_t TextBlock = 0, TextOffset = 0;
    };

    // Visits settled samples from a place up to row `end`, which becomes the place, as VisitSamples does but
    // without their times.
    virtual void VisitFrom(SamplePlace& place, std::uint64_t end,
                           const std::function<void(const void* data, std::uint32_t size)>& visit) const = 0;

    // Called by the device after the last sample, for now.
    virtual void Finish() = 0;

    // Forgets its texts but its name, and its unit.
    virtual void Resume() = 0;

    // For parts: summarises the samples so far, so that Take has less to do.
    virtual void Close() = 0;

    // For devices of parts; the signals are of one type. Appends the samples of a part's signal, which has
    // none afterwards; their times are appended by the device, after this. With `keep` what the part has kept
    // is taken over, else it can be dropped.
    virtual void Take(StoredSignal& part, bool keep) = 0;

    // Forgets all samples, and the memory that they had but for what the device retains.
    virtual void Drop() = 0;

    // True if its samples have the times of the device.
    virtual bool HasSharedTimes() const = 0;

  protected:
    explicit StoredSignal(std::uint32_t id) : Id{{0, 0, 0}, id} {}

  private:
    const DM::SUniqueSignalId Id;
};

// What the signals of a device share.
struct SharedStore;

// A device, which is also its own source of signals.
class StoredDevice : public CDevice, public DM::SourceProxy {
  public:
    // Its signals keep at most `keepLimit` samples each. All of them go to `sink` too, unless it is null; it
    // must outlive the run. `columns` has the source's columns of the signals in the order of their making,
    // as far as they are known. Where nothing is kept and there is no sink, the signals after the first
    // thousand count their samples but don't look at them.
    StoredDevice(std::u16string name, std::u16string description, std::uint64_t keepLimit,
                 DeviceSink* sink = nullptr, std::vector<int> columns = {});
    ~StoredDevice() override;

    DM::SourceProxy* GetDmSource() override { return this; }
    DM::EResult CreateSignal(DM::SignalProxy*& signal, const char16_t* name, std::uint32_t type,
                             std::uint32_t size) override;

    // Called after the last sample of all signals. More may follow after Resume.
    void Finish();

    // The same signals, and no others, are made once more, for samples behind those that there are; their
    // texts and units are given anew.
    void Resume();

    // A device for some of the rows of this one, to be filled on another thread and appended. It is never
    // finished.
    std::unique_ptr<StoredDevice> MakePart();

    // Ends the filling of a part for now, on the thread that has filled it: Append then has less to do.
    void Close();

    // Appends the samples of a part, which has the same signals and is empty afterwards. False, with nothing
    // done, if signals differ in their times.
    bool Append(StoredDevice& part);

    // Empties a part.
    void Clear();

    // Takes a part that is no longer filled: samples taken from it are in its memory. Raises nothing.
    void Keep(std::unique_ptr<StoredDevice> part);

    const std::u16string Name;
    const std::u16string Description;

  private:
    DM::EResult FindSignal(DM::SignalProxy*& signal, const char16_t* name, std::uint32_t type,
                           std::uint32_t size);

    const std::vector<int> Columns;
    std::unique_ptr<SharedStore> Store;
    std::optional<std::size_t> MadeAgain;  // signals since Resume

  public:
    std::vector<std::unique_ptr<StoredSignal>> Signals;  // in the order of their making; they use Store
};
}  // namespace kelvarin::store
