#include "host/plan/PlanGuess.h"

#include "host/language/Phrase.h"
#include "host/plan/CopyInWords.h"
#include "host/plan/Sureness.h"
#include "host/sidecar/ColumnsFile.h"
#include "host/sidecar/Sidecars.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
Guess GuessOf(const AutomaticReading& reading) {
    Guess guess;
    if (reading.Plan() == nullptr) {
        guess.Failure = reading.IsBySidecar() ? Phrase("a sidecar says how the file is read")
                        : reading.IsByUser()  ? Phrase("the settings say how the file is read")
                                              : Phrase("no rows of a table were found");
        return guess;
    }
    const ReadingPlan& plan = *reading.Plan();
    guess.IsCopied = reading.Copy() != nullptr;
    guess.Settings = guess.IsCopied ? SettingList{} : reading.Settings();
    guess.Letters = reading.Letters();
    guess.Columns = reading.ColumnsToPin();
    guess.Others = plan.Others;
    guess.Rows = plan.RowsLookedAt;
    guess.Assumed = Assumptions(plan);
    if (reading.HasChosenTimes()) {
        std::erase_if(guess.Assumed,
                      [](const Assumption& one) { return one.Kind == "times" || one.Kind == "rows"; });
    }
    guess.Sureness = SurenessOf(guess.Assumed);
    for (const Assumption& one : guess.Assumed) {
        if (one.Kind == "times") guess.Basis = one.Text;
        guess.Objections.insert(guess.Objections.end(), one.Objections.begin(), one.Objections.end());
    }
    if (guess.IsCopied) guess.Assumed.push_back({"copy", CopyInWords(*reading.Copy())});
    if (!plan.Times || reading.HasChosenTimes()) return guess;
    guess.Read = plan.Times->Trial.Read;
    guess.Rising = plan.Times->Trial.Rising + (guess.Read == 0 ? 0 : 1);
    guess.IsFixedInterval = plan.Times->Recipe.Kind == TimeKind::Interval;
    return guess;
}

std::string WhyNotSaved() {
    return Phrase("no sidecar can say how this file is read; a clean copy of it needs none");
}

void SaveGuess(const ModuleLoader& module, const std::u16string& path, const AutomaticReading& reading,
               Guess& guess) {
    const bool hadSidecar = sidecar::HasSidecar(path);
    if (reading.Plan() == nullptr && !hadSidecar && !reading.IsByUser()) return;
    guess.SaveFailure = reading.Copy() != nullptr ? WhyNotSaved() : sidecar::SaveSidecar(module, path);
    if (guess.SaveFailure.empty())
        guess.SaveFailure = sidecar::SaveChoices(path, {guess.Columns, guess.Letters});
    guess.Saved = guess.SaveFailure.empty() ? Utf16ToUtf8(path + u".info") : std::string();
    guess.IsSaveLost = guess.Saved.empty() && !hadSidecar;
}
}  // namespace kelvarin::plan
