#include "host/plan/FileKinds.h"

#include <algorithm>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <utility>

#include "host/language/Phrase.h"
#include "host/plan/SharedTimes.h"
#include "platform/framework/File.h"
#include "platform/framework/Path.h"

namespace kelvarin::plan {
namespace {
void SortBySize(std::vector<std::u16string>& paths) {
    std::vector<std::pair<std::uintmax_t, std::u16string>> sized;
    for (std::u16string& path : paths) {
        std::error_code error;
        const std::uintmax_t size = std::filesystem::file_size(PathForStream(path), error);
        sized.emplace_back(error ? 0 : size, std::move(path));
    }
    std::stable_sort(sized.begin(), sized.end(),
                     [](const auto& one, const auto& other) { return one.first > other.first; });
    paths.clear();
    for (auto& [size, path] : sized) paths.push_back(std::move(path));
}

// A plan by a kind, and which.
struct Followed {
    ReadingPlan Plan;
    std::size_t Kind = 0;
};

// By the kind of most files. Where another one gives the rows other dates, the file itself doesn't tell which
// of both is right.
std::optional<Followed> FollowAny(const FileSample& sample, const std::vector<FileKind>& kinds) {
    KindSearch search(sample, kinds);
    std::optional<Followed> best;
    bool isOrderOpen = false;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        std::optional<ReadingPlan> plan = search.Follow(i);
        if (!plan) continue;
        isOrderOpen |= best && AreOrdersOpposed(*best->Plan.Times, *plan->Times);
        if (!best || kinds[i].Files > kinds[best->Kind].Files) best = Followed{*std::move(plan), i};
    }
    if (isOrderOpen) best->Plan.Times->Order = OrderProof::None;
    return best;
}

void AddFileTo(std::vector<FileKind>& kinds, const std::u16string& path) {
    const std::u16string name = PathStripPath(path);
    std::optional<std::size_t> kind;
    std::optional<ReadingPlan> plan = FindPlan(path, [&](const FileSample& sample) {
        std::optional<Followed> followed = FollowAny(sample, kinds);
        kind = followed ? std::optional(followed->Kind) : std::nullopt;
        return followed ? std::optional(std::move(followed->Plan)) : FindPlan(sample);
    });
    if (kind) {
        AddFile(kinds[*kind], *plan, name);
    } else if (plan && plan->Times) {
        kinds.push_back(KindFrom(*std::move(plan), name));
    }
}

std::size_t CountFiles(const std::vector<FileKind>& kinds) {
    std::size_t files = 0;
    for (const FileKind& kind : kinds) files += kind.Files;
    return files;
}

Kinship KinshipOf(const ReadingPlan& plan, const FileKind& kind, const FileKinds& kinds) {
    Kinship kin;
    kin.Files = kind.Files;
    kin.Others = CountFiles(kinds.All) - kind.Files;
    kin.PlanFile = kinds.PlanFile;
    if (plan.Times->IsOrderElsewhere) kin.OrderFile = kind.OrderFile;
    const FileKind& common = MostCommon(kinds);
    kin.Differences = TypeDifferencesOf(plan, kind);
    if (kinds.AreFound() && kind.Files < common.Files) kin.Differences = DifferencesOf(plan, common);
    return kin;
}

// How the file of this plan differs from the kind that is most like it.
std::vector<std::string> LeastDifferences(const std::optional<ReadingPlan>& plan, const FileKinds& kinds) {
    if (!plan) return {Phrase("no table was found in it")};
    std::optional<std::vector<std::string>> least;
    for (const FileKind& kind : kinds.All) {
        std::vector<std::string> differences = DifferencesOf(*plan, kind);
        if (!least || differences.size() < least->size()) least = std::move(differences);
    }
    if (!least || least->empty()) return {Phrase("most of its rows have no time")};
    return *std::move(least);
}
}  // namespace

const FileKind& MostCommon(const FileKinds& kinds) {
    return *std::max_element(
        kinds.All.begin(), kinds.All.end(),
        [](const FileKind& one, const FileKind& other) { return one.Files < other.Files; });
}

FileKinds FindKinds(std::vector<std::u16string> paths) {
    FileKinds kinds;
    SortBySize(paths);
    for (const std::u16string& path : paths) {
        try {
            AddFileTo(kinds.All, path);
        } catch (CFileException* failure) {
            failure->Delete();
        } catch (const std::bad_alloc&) {
            // A line is too large for this process: the reading of the file says so.
        } catch (const std::length_error&) {
            // The same.
        }
    }
    return kinds;
}

std::optional<ReadingPlan> FindPlan(const std::u16string& path, const FileKinds& kinds,
                                    std::vector<std::string>& unlike) {
    std::optional<std::size_t> kind;
    std::optional<ReadingPlan> plan = FindPlan(path, [&](const FileSample& sample) {
        std::optional<Followed> followed = FollowAny(sample, kinds.All);
        kind = followed ? std::optional(followed->Kind) : std::nullopt;
        return followed ? std::optional(std::move(followed->Plan)) : FindPlan(sample);
    });
    if (kind) {
        plan->Kin = KinshipOf(*plan, kinds.All[*kind], kinds);
        if (plan->Kin->Files == 1 && plan->Kin->Others == 0 && kinds.AreFound()) plan->Kin.reset();
    } else if (!kinds.AreFound()) {
        unlike = LeastDifferences(plan, kinds);
        plan.reset();
    }
    return plan;
}
}  // namespace kelvarin::plan
