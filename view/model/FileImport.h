// A measurement file read for a viewer: its signals, what was assumed of it, what was found in it.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/HostSession.h"
#include "host/ModuleLoader.h"
#include "host/SettingText.h"
#include "host/check/Findings.h"
#include "host/plan/PlanGuess.h"
#include "view/model/PlottedSignal.h"
#include "view/model/RowLines.h"

namespace kelvarin::view {
// A signal while its file is read. Texts are UTF-8.
struct GrowingSignal {
    std::string Name, Unit;
    std::uint64_t Samples = 0;
    std::string Course;  // as of Sparkline
};

struct ImportProgress {
    bool IsCopying = false;  // a clean copy is made before the file is read
    std::uint32_t Percent = 0;
    std::vector<GrowingSignal> Signals;                       // the first 200, as far as they are read
    std::vector<std::shared_ptr<const PlottedSignal>> Plots;  // of ImportOrder::Plots, up to here
    bool IsRelative = false;                                  // as of ImportedFile
};

// Which signals progress is to bring as plots need them.
struct WantedPlots {
    std::size_t First = 0;           // so many as are plotted of a file at first
    std::vector<std::string> Named;  // and those of these names
};

// What a later reading of a file that has only grown goes on from.
class CheckedRun;

struct ImportOrder {
    std::u16string Path;
    std::vector<ParsedSetting> Settings = {};   // chosen for this file
    bool Saves = false;                         // keep what was found in a sidecar beside the file
    const std::atomic<bool>* Cancel = nullptr;  // any thread sets it
    std::function<void(const ImportProgress&)> OnProgress =
        {};  // on any thread, one at a time and a few times a second; may be empty
    WantedPlots Plots = {};

    // The file has grown since it was read. If it begins as before, only what has come is read, behind what
    // was read before; the result is that of the whole file. Else all of it is, without plots while it is
    // read. A last line without an end isn't read: it may still be written.
    bool HasGrown = false;
    std::shared_ptr<CheckedRun> Before = nullptr;  // ImportedFile::Next of before; used once
};

struct ImportedFile {
    std::u16string Path;
    std::uint64_t Size = 0;       // bytes
    std::int64_t Modified = 0;    // seconds since 1970
    std::string Failure;          // why there are no signals, in one clause; empty if there are some
    bool IsInterrupted = false;   // signals are those of the lines read so far
    bool IsRelative = false;      // times count from a start that no calendar has
    std::uint64_t LinesRead = 0;  // from the first row on
    store::SampleOrigin Origin;   // for a file of the samples
    std::shared_ptr<const store::StoredDevice> Device;  // null if there are no signals
    std::vector<std::shared_ptr<const PlottedSignal>> Signals;
    RowLines Lines;  // of the rows of signals that share their times
    std::optional<plan::Guess> Guess;
    std::vector<check::Finding> Findings;
    std::vector<MessageGroup> Messages;
    Reading Format;
    std::shared_ptr<CheckedRun> Next;  // null if the file is to be read from its beginning once it has grown
    std::uint64_t LinesBefore = 0;     // of LinesRead, those of earlier readings that this one went on from
};

// Reads a file as the program does, with all processors if it is large. One thread at a time; raises nothing
// but std::bad_alloc.
ImportedFile ImportFile(const ModuleLoader& module, const ImportOrder& order);
}  // namespace kelvarin::view
