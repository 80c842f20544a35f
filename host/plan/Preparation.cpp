#include "host/plan/Preparation.h"

#include <algorithm>

#include "host/SourceFiles.h"
#include "host/language/Phrase.h"
#include "platform/framework/File.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
// Why there is no plan for the file. Raises CFileException.
ImportFailure WhyUnplanned(const std::u16string& path, const std::optional<ReadingPlan>& plan) {
    if (!plan) {
        const std::string reason = WhyUnreadable(path);
        if (!reason.empty()) return {reason};
        return {Phrase("no table was found: no lines look like rows of values"), true};
    }
    const bool isCounted = plan->Times && plan->Times->Recipe.Kind == TimeKind::Interval;
    if (plan->Times && (!isCounted || plan->Times->IsUnitNamed)) return {};
    return {Phrase(
        "no times were found: no column holds any, and no line above the table names the interval of its "
        "rows. Add such a line, as in \"Interval: 0.5 s\", or a column of times")};
}

// A name for the copy of one device: its own before the ending. What not every system takes in a name becomes
// a low line.
std::string CopyOfDevice(const std::string& copy, const std::string& device, const std::string& ending) {
    std::string name = device;
    for (char& c : name) {
        const bool isAscii = static_cast<unsigned char>(c) < 0x80;
        const bool isAllowed =
            (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-';
        if (isAscii && !isAllowed) c = '_';
    }
    const std::size_t folder = copy.find_last_of("/\\") + 1;  // npos + 1 is 0
    const std::size_t end = copy.ends_with(ending) ? copy.size() - ending.size() : copy.rfind('.');
    const std::size_t at = end == copy.npos || end <= folder ? copy.size() : end;
    return copy.substr(0, at) + "." + name + copy.substr(at);
}

}  // namespace

Preparation FindPreparation(const std::u16string& source) {
    Preparation found{source, {}, {}, {}};
    try {
        found.Plan = FindPlan(source);
        found.Failure = WhyUnplanned(source, found.Plan);
        const bool isOrdered = !found.Plan || !found.Plan->Times ||
                               found.Plan->Times->Trial.Equal + found.Plan->Times->Trial.Falling == 0;
        if (!isOrdered) found.Devices = FindDeviceColumn(source, *found.Plan);
    } catch (CFileException* error) {
        found.Failure = {Utf16ToUtf8(DescribeFileError(*error))};
        error->Delete();
    }
    return found;
}

std::vector<PreparedCopy> CopiesAt(const Preparation& preparation, const std::string& copy,
                                   const std::string& ending) {
    if (!preparation.Devices) return {{copy, {}}};
    std::vector<PreparedCopy> copies;
    for (const std::u16string& device : preparation.Devices->Devices) {
        const std::string name = Utf16ToUtf8(device);
        std::string path = CopyOfDevice(copy, name, ending);
        const auto isTaken = [&](const PreparedCopy& other) { return other.Path == path; };
        while (std::any_of(copies.begin(), copies.end(), isTaken)) path = CopyOfDevice(path, "2", ending);
        copies.push_back({path, name});
    }
    return copies;
}

void WriteCopies(const Preparation& preparation, std::vector<PreparedCopy>& copies, CopyOptions options) {
    options.Layout = CopyLayout::ForPeople;
    if (!preparation.Devices) {
        PreparedCopy& copy = copies.front();
        copy.Result =
            WriteCleanCopy(preparation.Source, *preparation.Plan, PathFromNative(copy.Path), options);
        return;
    }
    std::vector<DeviceCopy> targets;
    for (const PreparedCopy& copy : copies)
        targets.push_back(
            {{preparation.Devices->Column, Utf8ToUtf16(copy.Device)}, PathFromNative(copy.Path)});
    std::vector<CopyResult> results =
        WriteDeviceCopies(preparation.Source, *preparation.Plan, targets, options);
    for (std::size_t i = 0; i < results.size(); ++i) copies[i].Result = std::move(results[i]);
}
}  // namespace kelvarin::plan
