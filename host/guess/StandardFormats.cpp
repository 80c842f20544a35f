// The module's standard formats in place of those made from a text.
#include "host/guess/TimeCandidate.h"
#include "platform/framework/Text.h"
#include "resources/ResourceIds.h"

namespace kelvarin::guess {

namespace {

TextList Items(const ModuleLoader& module, unsigned id) {
    TextList items;
    for (const std::u16string& item : module.ResourceItems(id)) items.emplace_back(TrimWhiteSpace(item));
    return items;
}

TextList StandardFormats(const ModuleLoader& module, const TableTrial& trial,
                         const TimeCandidate& candidate) {
    TextList times = Items(module, IdTimeFormats);
    if (!candidate.HasDate()) {
        const TextList elapsed = Items(module, IdElapsedTimeFormats);
        times.insert(times.end(), elapsed.begin(), elapsed.end());
        return times;
    }
    const TextList dates = Items(module, IdDateFormats);
    if (candidate.Kind == TimeKind::Date) return dates;
    const bool sameColumn = candidate.DateColumn == candidate.TimeColumn;
    const std::u16string& separator = trial.Sample().Separator;
    const bool isBlank = sameColumn || IsWhiteSpace(separator[0]);
    const std::u16string joint = isBlank ? u" " : separator + u" ";
    TextList formats;
    for (const std::u16string& date : dates) {
        for (const std::u16string& time : times) {
            formats.push_back(candidate.DateColumn <= candidate.TimeColumn ? date + joint + time
                                                                           : time + joint + date);
        }
    }
    return formats;
}

}  // namespace

void UseStandardFormat(const ModuleLoader& module, const TableTrial& trial, TimeCandidate& candidate) {
    const bool hasDate = candidate.HasDate();
    const auto time = static_cast<std::size_t>(candidate.TimeColumn) - 1;
    const TextList texts =
        trial.Texts(time, hasDate ? static_cast<std::size_t>(candidate.DateColumn) - 1 : time);
    for (const std::u16string& format : StandardFormats(module, trial, candidate)) {
        if (!trial.FitsFirstRows(format, texts, hasDate)) continue;
        if (trial.Read(format, texts, hasDate).Times != candidate.Reading.Times) continue;
        candidate.Shape.Format = format;
        return;
    }
}

}  // namespace kelvarin::guess
