#include "host/guess/StandardSpelling.h"

#include <algorithm>

#include "platform/framework/Text.h"

namespace kelvarin::guess {

namespace {

// Strings of the module with its standard formats.
constexpr unsigned TimeFormatsId = 1000;
constexpr unsigned ElapsedTimeFormatsId = 1001;
constexpr unsigned DateFormatsId = 1002;

TextList Items(const ModuleLoader& module, unsigned id) {
    TextList items;
    for (const std::u16string& item : module.ResourceItems(id)) items.emplace_back(TrimWhiteSpace(item));
    return items;
}

TextList StandardFormats(const ModuleLoader& module, const TableTrial& trial,
                         const TimeCandidate& candidate) {
    TextList times = Items(module, TimeFormatsId);
    if (!candidate.HasDate()) {
        for (std::u16string& elapsed : Items(module, ElapsedTimeFormatsId))
            times.push_back(std::move(elapsed));
        return times;
    }
    const TextList dates = Items(module, DateFormatsId);
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

void UseStandardSpelling(const ModuleLoader& module, const TableTrial& trial, TimeCandidate& candidate) {
    const auto date = static_cast<std::size_t>(candidate.DateColumn) - 1;
    const auto time = static_cast<std::size_t>(candidate.TimeColumn) - 1;
    const bool joined = candidate.HasDate() && date != time;
    const TextList texts =
        joined ? trial.JoinedTexts(std::min(date, time), std::max(date, time)) : trial.Texts(time);
    for (const std::u16string& format : StandardFormats(module, trial, candidate)) {
        if (!trial.FitsFirstRows(format, texts, candidate.HasDate())) continue;
        if (trial.Read(format, texts, candidate.HasDate()).Times != candidate.Reading.Times) continue;
        candidate.Shape.Format = format;
        return;
    }
}

}  // namespace kelvarin::guess
