// Several files that follow each other, imported as one device.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "cli/Complaints.h"
#include "cli/ImportOptions.h"
#include "cli/report/JoinedReport.h"
#include "host/plan/FileKinds.h"
#include "host/plan/PlanGuess.h"

namespace kelvarin::cli {
// Files with times of a calendar are taken in the order of their first rows, others as they are given. A run
// that finds out that settings don't read a file, or that a column needs a wider type, is done anew for all
// files.
class JoinedImport {
  public:
    // Gets the name of the first file and gives what takes the samples, null for nothing; called at the
    // beginning of each attempt.
    using MakeSink = std::function<store::DeviceSink*(const std::string& first)>;

    // All outlive the object.
    JoinedImport(const ModuleLoader& module, const CommonOptions& common, const ImportOptions& options,
                 MakeSink makeSink)
        : Module(module), Common(common), Options(options), NewSink(std::move(makeSink)) {}

    // Imports the files. Returns the exit status, after complaints if it isn't ExitDone.
    int Run(std::vector<std::string> files);

    // After Run: the device of all files, null if there is none, and where it comes from.
    const store::StoredDevice* Device() const { return IsComplete ? Joined->Device() : nullptr; }
    const store::SampleOrigin& FilesOrigin() const { return Origin; }

    // What is said of the files and of the device, which must be there.
    const std::vector<JoinedFile>& Parts() const { return Files; }
    ImportDocument Document() const;

  private:
    enum class Outcome { Done, Again, Failed, Interrupted };

    // Refuses files of other kinds; else ExitDone.
    int Order();
    const plan::FileKind& KindToJoin() const;
    Outcome Attempt();
    Outcome ImportPart(const std::string& file);
    bool IsWidened(FileReading& reading);
    std::string WhyNotJoined(const store::JoinedPart& part, bool isRelative) const;
    void AddPart(JoinedFile part, std::int64_t usualStep);
    void AddOrigin(const store::SampleOrigin& origin);

    const ModuleLoader& Module;
    const CommonOptions& Common;
    const ImportOptions& Options;
    const MakeSink NewSink;

    std::vector<std::string> Names;     // of the files, in order
    std::set<std::string> WithoutRows;  // of Names: a header alone
    plan::FileKinds Kinds;              // the one of all files; empty if none was found
    bool Copies = false;                // settings don't read all files

    // Of the attempt at hand.
    std::unique_ptr<store::JoinedDevice> Joined;
    store::DeviceSink* Sink = nullptr;
    std::vector<JoinedFile> Files;
    store::SampleOrigin Origin;
    std::optional<plan::Guess> Guess;
    RunResult Total;
    std::size_t MessagesKept = 0;
    std::int64_t UsualStep = 0;  // ns, of the files so far
    int Status = ExitDone;
    bool IsComplete = false;
};
}  // namespace kelvarin::cli
