// What is done with a guess: it is laid over the settings, saved, or given as advice.
#include <algorithm>

#include "host/guess/TimeAdvice.h"
#include "host/guess/TimeGuess.h"
#include "host/language/Phrase.h"
#include "host/sidecar/Sidecars.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin::guess {

GuessLayer::GuessLayer(const ModuleLoader& module, const std::u16string& path, const GuessOptions& options,
                       const std::vector<ParsedSetting>& chosen) {
    if (!options.GuessTime) return;
    Made = GuessTime(module, path);
    if (!Made->Failure.empty()) return;
    const std::u16string sidecar = path + u".info";
    if (sidecar::CheckSidecar(module, sidecar).Errors == 0) {
        Made->Objections.push_back(
            Phrase("it is not used: {} is in force", Utf16ToUtf8(PathStripPath(sidecar))));
    }
    for (const auto& guessed : Made->Settings) {
        const bool isChosen = std::any_of(chosen.begin(), chosen.end(), [&](const ParsedSetting& setting) {
            return Utf16ToUtf8(setting.Key) == guessed.first;
        });
        if (isChosen) {
            Made->Objections.push_back(Phrase("{} stays as it was set", guessed.first));
        } else {
            Layer.Set(guessed.first, guessed.second);
        }
    }
    if (!options.Save) return;
    Made->SaveFailure = sidecar::SaveSidecar(module, path);
    if (Made->SaveFailure.empty()) Made->Saved = Utf16ToUtf8(sidecar);
}

Remedy AdviseTimestamp(const ModuleLoader& module, const std::u16string& path, const Reading& reading) {
    const std::string why =
        reading.TimestampFormat.empty()
            ? Phrase("no row has a timestamp, since no timestamp format is set")
            : Phrase("no row fits the timestamp format '{}'", Utf16ToUtf8(reading.TimestampFormat));
    const TimeGuess guess = GuessTime(module, path);
    if (!guess.Failure.empty()) return {why, {}};
    const std::string what = guess.IsFixedInterval
                                 ? Phrase(" and no format fits; {}", guess.Basis)
                                 : Phrase("; {} ({})", guess.Basis, CertaintyInWords(guess.Sureness));
    return {why + what, guess.Settings};
}

}  // namespace kelvarin::guess
