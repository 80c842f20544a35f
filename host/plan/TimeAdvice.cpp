#include "host/plan/TimeAdvice.h"

#include <algorithm>
#include <new>
#include <stdexcept>

#include "host/language/Phrase.h"
#include "host/plan/PlanSettings.h"
#include "host/plan/Sureness.h"
#include "platform/framework/File.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
std::optional<ReadingPlan> FindPlanIfReadable(const std::u16string& path, const FixedTable& fixed) {
    try {
        return FindPlan(path, fixed);
    } catch (CFileException* failure) {
        failure->Delete();
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    } catch (const std::length_error&) {
        return std::nullopt;
    }
    return std::nullopt;
}

Remedy AdviseTimes(const ModuleLoader& module, const std::u16string& path, const Reading& reading) {
    const std::string why =
        reading.TimestampFormat.empty()
            ? Phrase("no row has a timestamp, since no timestamp format is set")
            : Phrase("no row fits the timestamp format '{}'", Utf16ToUtf8(reading.TimestampFormat));
    const std::optional<ReadingPlan> plan = FindPlanIfReadable(path, TableOf(reading));
    if (!plan || !plan->Times) return {why};
    const std::vector<Assumption> assumed = Assumptions(*plan);
    const auto times = std::find_if(assumed.begin(), assumed.end(),
                                    [](const Assumption& one) { return one.Kind == "times"; });
    const std::string what = why + Phrase("; {} ({})", times->Text, CertaintyInWords(times->Sureness));
    if (std::optional<TimeSettings> found = TimeSettingsOf(*module.MakeFilter(path), *plan, path))
        return {what, std::move(found->Settings), RemedyAction::None, {}, std::move(found->Letters)};
    return {what, {}, RemedyAction::CopyFile};
}
}  // namespace kelvarin::plan
