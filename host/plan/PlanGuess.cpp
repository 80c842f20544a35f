#include "host/plan/PlanGuess.h"

#include <algorithm>

#include "host/language/Phrase.h"
#include "host/plan/Sureness.h"
#include "host/sidecar/Sidecars.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
// "3 (lines 1, 2, 9)", or with "..." where more than the first lines are meant.
std::string LinesInWords(const LinesLeftOut& lines) {
    constexpr std::size_t MostNamed = 5;
    std::string named;
    const std::size_t count = std::min(lines.First.size(), MostNamed);
    for (std::size_t i = 0; i < count; ++i) named += (i == 0 ? "" : ", ") + std::to_string(lines.First[i]);
    if (lines.Count > count) named += ", ...";
    return std::to_string(lines.Count) + " (" + Phrase("line {}", named) + ")";
}

// What a copy does to the file.
std::string CopyInWords(const CopyResult& copy) {
    std::string text = Phrase("no settings read this file, so a clean copy is read in its place");
    const auto add = [&text](const std::string& what) { text += "; " + what; };
    if (copy.Sorted) add(Phrase("rows sorted by their times"));
    if (copy.Shift != 0) add(Phrase("times shifted so that the first is 0"));
    if (copy.Rows.Headers.Count != 0) add(Phrase("headers left out: {}", LinesInWords(copy.Rows.Headers)));
    if (copy.Rows.Timeless.Count != 0)
        add(Phrase("lines without a time left out: {}", LinesInWords(copy.Rows.Timeless)));
    if (copy.Changes.Values != 0) add(Phrase("values rewritten: {}", copy.Changes.Values));
    return text;
}
}  // namespace

guess::TimeGuess GuessOf(const AutomaticReading& reading) {
    guess::TimeGuess guess;
    const ReadingPlan& plan = *reading.Plan();
    guess.Settings = reading.Copy() == nullptr ? reading.Settings() : SettingList{};
    guess.Rows = plan.RowsLookedAt;
    guess.Assumed = Assumptions(plan);
    guess.Sureness = SurenessOf(guess.Assumed);
    for (const Assumption& one : guess.Assumed) {
        if (one.Kind == "times") guess.Basis = one.Text;
        guess.Objections.insert(guess.Objections.end(), one.Objections.begin(), one.Objections.end());
    }
    if (reading.Copy() != nullptr) guess.Assumed.push_back({"copy", CopyInWords(*reading.Copy())});
    if (!plan.Times) return guess;
    guess.Read = plan.Times->Trial.Read;
    guess.Rising = plan.Times->Trial.Rising + (guess.Read == 0 ? 0 : 1);
    guess.IsFixedInterval = plan.Times->Recipe.Kind == TimeKind::Interval;
    return guess;
}

std::string WhyNotSaved() {
    return Phrase("no sidecar can say how this file is read; a clean copy of it needs none");
}

void SaveGuess(const ModuleLoader& module, const std::u16string& path, const AutomaticReading& reading,
               guess::TimeGuess& guess) {
    const bool hadSidecar = sidecar::HasSidecar(path);
    guess.SaveFailure = reading.Copy() != nullptr ? WhyNotSaved() : sidecar::SaveSidecar(module, path);
    guess.Saved = guess.SaveFailure.empty() ? Utf16ToUtf8(path + u".info") : std::string();
    guess.IsSaveLost = guess.Saved.empty() && !hadSidecar;
}
}  // namespace kelvarin::plan
