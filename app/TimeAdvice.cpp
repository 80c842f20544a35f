#include "app/TimeAdvice.h"

#include "app/SettingsJson.h"
#include "app/guess/GuessReport.h"
#include "app/language/Phrase.h"
#include "platform/framework/Text.h"

std::string AdviseTimestamp(const ModuleLoader& module, const std::u16string& path,
                            const CImportFilter& filter) {
    const FormatSummary format = SummarizeFormat(SettingsOf(filter));
    const std::string why =
        format.TimestampFormat.empty()
            ? Phrase("no row has a timestamp, since no timestamp format is set")
            : Phrase("no row fits the timestamp format '{}'", Utf16ToUtf8(format.TimestampFormat));
    const TimeGuess guess = GuessTime(module, path);
    if (!guess.Failure.empty()) return why;
    if (guess.IsFixedInterval) {
        return why + Phrase(" and no format fits; {}: {}", guess.Basis, OptionsText(guess.Settings));
    }
    return why +
           Phrase("; {} ({}): {}", guess.Basis, CertaintyText(guess.Sureness), OptionsText(guess.Settings));
}
