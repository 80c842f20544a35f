// A file read by a plan that is found for it, where nobody has said how it is to be read.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "contract/GuidedReading.h"
#include "host/ModuleLoader.h"
#include "host/SettingText.h"
#include "host/plan/CleanCopy.h"
#include "host/plan/FileKinds.h"
#include "host/plan/ReadingPlan.h"
#include "host/plan/RunGuide.h"
#include "platform/framework/ScratchFile.h"

namespace kelvarin::plan {
// Keys of settings that mean something only together: those that say where the table is, and those that say
// how times are read. Of times nothing is looked for once one of theirs is chosen.
bool IsTableKey(std::string_view key);
bool IsTimeKey(std::string_view key);

// A choice for one column, by hand.
struct ColumnWish {
    std::u16string Column;  // number from 1, or name
    std::optional<std::u16string> Name, Unit;
    int Type = 0;  // of the module, 1 boolean to 8 text; 0 as it is found
    bool Skip = false;
};

struct AutomaticOptions {
    bool IsOff = false;        // nothing is found, only the wishes are followed
    bool ColumnsOnly = false;  // the settings in force stay; names, units and types are found
    bool Copies = false;       // a clean copy is read also where settings read the file
    std::vector<ColumnWish> Wishes;
    std::u16string FormatLetters;  // of the formats in force, as IGuidedReading::ReadFormatsBy takes them;
                                   // empty for those of the language
    const FileKinds* Kinds = nullptr;               // the file is read as others of its kind; may be null
    const std::atomic<bool>* Cancel = nullptr;      // ends the making of a copy
    std::function<void(std::uint32_t)> OnProgress;  // gets each new percentage of a copy; may be empty
};

// True if AutomaticReading finds a plan for the file. `chosen` are the settings of this run.
bool IsPlanWanted(const ModuleLoader& module, const std::u16string& path,
                  const std::vector<ParsedSetting>& chosen);

// Finds the plan of a file, and makes it the settings of every filter made while the object lives, as a
// SettingsLayer does. Settings that the user has chosen stay, and the rest is found under them. Nothing is
// found for a file with a sidecar, or if both the table and the times are chosen. One thread.
class AutomaticReading {
  public:
    // `chosen` are the settings in force that were chosen for this run, over those of the profile.
    AutomaticReading(const ModuleLoader& module, const std::u16string& path,
                     const std::vector<ParsedSetting>& chosen, AutomaticOptions options);

    // The plan that is followed; null for none.
    const ReadingPlan* Plan() const { return Found ? &*Found : nullptr; }

    // The settings that follow it, of the copy if there is one.
    const SettingList& Settings() const { return Followed; }

    // By which the format among them is read, as IGuidedReading::ReadFormatsBy takes them; empty for those of
    // the language in force.
    const std::u16string& Letters() const { return FormatLetters; }

    // Of the copy that is read in place of the file; null for none.
    const CopyResult* Copy() const { return Copied ? &*Copied : nullptr; }

    // Why the file could not be looked at, so that it is read otherwise than it is at other times; empty if
    // it could.
    const std::string& WhyUnread() const { return Unread; }

    // How the file differs from the kinds that were read from a plan file, a sentence each: it is not to be
    // read. Empty for a file that may be.
    const std::vector<std::string>& Unlikeness() const { return Unlike; }

    // Why there is no copy although one is needed; empty if none is.
    const std::string& CopyFailure() const { return Failure; }

    // AutomaticOptions::Cancel ended the making of a copy.
    bool IsInterrupted() const { return Interrupted; }

    // Columns that were wished for and that the file doesn't have.
    const std::vector<std::u16string>& UnknownColumns() const { return Unknown; }

    // A sidecar or the user has said how the file is read, so that nothing was looked for.
    bool IsBySidecar() const { return HasSidecar; }
    bool IsByUser() const { return IsChosenWhole; }

    // The user has said how times are read: those of the plan are not followed.
    bool HasChosenTimes() const { return AreTimesChosen; }

    // The file that filters are to read: the user's, or a copy in place of it.
    const std::u16string& Path() const { return ReadPath; }

    // The choices for columns without which the settings alone would give other names, units or types. None
    // for a copy, which settings can't say.
    std::vector<ColumnChoice> ColumnsToPin() const;

    // Gives a filter of Path what is known of the columns and lines. It must not outlive this object.
    void Guide(CImportFilter& filter);

    // What the last filter that was given to Guide asks; null for none.
    RunGuide* Guiding() { return Asked.get(); }

    // The line of the user's file, from 1, for a line of the file that is read.
    std::uint64_t SourceLine(std::uint64_t line) const;

    // After a run that a filter of Path did: follows the plan by a copy from now on if that run has lost what
    // a copy keeps, so that the run is to be done again. Else false.
    bool TakesCopy();

  private:
    void Look(const FixedTable& fixed);
    int NumberOf(
        const std::u16string& name) const;  // of a column, from 1, as the module names it; 0 for none
    void FollowDirectly();
    void MakeCopy();
    void Follow(SettingList settings);
    void ChooseColumns();
    void NameColumns();
    void ApplyWishes();

    const ModuleLoader& Module;
    const std::u16string Source;
    const std::vector<ParsedSetting> Chosen;
    const AutomaticOptions Options;
    std::u16string ReadPath;
    SettingsLayer Layer;
    bool AreTimesChosen = false;
    bool HasSidecar = false;
    bool IsChosenWhole = false;  // table and times
    std::optional<ReadingPlan> Found;
    SettingList Followed;
    std::u16string FormatLetters;
    std::vector<ColumnChoice> Columns;
    std::vector<std::u16string> Unknown;
    std::unique_ptr<RunGuide> Asked;  // by the last run
    std::unique_ptr<ScratchFile> CopyFile;
    std::optional<CopyResult> Copied;
    std::string Unread;
    std::vector<std::string> Unlike;
    std::string Failure;
    bool Interrupted = false;
};
}  // namespace kelvarin::plan
