// What the functions of the package that take a file have in common, and the reading itself.
#pragma once

#include <pybind11/pybind11.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/FileReading.h"
#include "host/HostSession.h"
#include "python/native/Call.h"

namespace kelvarin::python {
namespace py = pybind11;

// A choice for a column: number from 1 or name; a type's word, a name, a unit, each may be missing; not
// imported.
struct Wish {
    std::string Column;
    std::optional<std::string> Type, Name, Unit;
    bool Skip = false;
};

// A file and how it is to be read. Texts are UTF-8.
struct Request {
    std::string Path;  // as the system has it
    std::vector<std::pair<std::string, std::string>>
        Settings;  // keys and values, as SettingsLayer takes them
    std::vector<Wish> Wishes;
    std::optional<std::vector<std::string>> Signals;  // numbers from 1 or names; none: all
    bool Guess = true;
    std::size_t Threads = 1;
    std::optional<std::int64_t> BaseTime;
};

// A file that is being read, with the settings of its request in force. On the thread of the work.
class FileInWork {
  public:
    // Raises Failure if the request can't be followed or the file can't be looked at.
    FileInWork(const ModuleLoader& module, const Request& request, CallState& state);

    FileReading& Reading() { return *Plan; }

    // Of a run by this reading.
    RunOptions Options();

    const std::u16string Path;

  private:
    void Find();
    void KeepSignals(const std::vector<std::string>& wanted);

    const ModuleLoader& Module;
    const Request& Wanted;
    CallState& State;
    SettingsLayer Layer;
    std::vector<ParsedSetting> Chosen;
    ReadingOptions How;
    std::optional<FileReading> Plan;
};

// Raises Failure for a run that failed or stored nothing.
void RefuseFailed(const ModuleLoader& module, const Request& request, FileInWork& file,
                  const HostSession& session, const RunResult& result);

// Reads the file into memory. Returns a dict; _native.pyi says what is in it. Raises Failure, or what
// `progress` raises.
py::dict ReadFile(const Request& request, const py::object& progress);
}  // namespace kelvarin::python
