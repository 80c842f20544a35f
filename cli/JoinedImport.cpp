#include "cli/JoinedImport.h"

#include <algorithm>
#include <utility>

#include "cli/Complaints.h"
#include "host/language/Phrase.h"
#include "platform/framework/File.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {
namespace {
// The step from row to row as a person would name it: that of half the rows at least, in a plan; else the
// mean.
std::int64_t StepOf(const plan::ReadingPlan* plan, const store::JoinedPart& part) {
    const std::int64_t median = plan != nullptr && plan->Times ? plan->Times->Trial.MedianStep : 0;
    if (part.Rows < 2) return median;
    const std::int64_t span = part.LastTime - part.FirstTime;
    return std::max(median, span / static_cast<std::int64_t>(part.Rows - 1));
}

// The time of the first row, or of the last where the newest row is the first.
std::int64_t BeginOf(const plan::ReadingPlan& plan) {
    return std::min(plan.Times->Trial.First, plan.Times->Trial.Last);
}
}  // namespace

int JoinedImport::Run(std::vector<std::string> files) {
    CatchInterrupt();
    Names = std::move(files);
    if (const int status = Order(); status != ExitDone) return status;
    constexpr int MostAttempts = 20;
    for (int attempt = 0; attempt < MostAttempts; ++attempt) {
        const Outcome outcome = Attempt();
        if (outcome == Outcome::Interrupted) return ExitInterrupted;
        if (outcome == Outcome::Failed) return ExitFileFailed;
        if (outcome == Outcome::Done) return Status;
    }
    return Fail(Names.front(), Phrase("no types hold the columns of all files"));
}

int JoinedImport::Order() {
    if (Options.Reading.Kinds == nullptr) return ExitDone;
    Kinds.PlanFile = Options.Reading.Kinds->PlanFile;
    Kinds.All = {KindToJoin()};
    plan::FileKinds only = Kinds;
    if (only.AreFound()) only.PlanFile = u"-";  // other files get no plan of their own
    std::vector<std::pair<std::int64_t, std::string>> begins;
    int status = ExitDone;
    for (const std::string& file : Names) {
        const std::u16string path = PathFromNative(file);
        if (!plan::IsPlanWanted(Module, path, Common.Settings)) continue;
        std::vector<std::string> unlike;
        try {
            const std::optional<plan::ReadingPlan> found = plan::FindPlan(path, only, unlike);
            if (!found) {
                status =
                    Fail(file, Phrase("not like the files that it is to be joined with: {}", Joint(unlike)));
                continue;
            }
            if (found->RowsLookedAt == 0) WithoutRows.insert(file);
            if (found->Times->Recipe.IsAbsolute) begins.emplace_back(BeginOf(*found), file);
        } catch (CFileException* failure) {
            status = Fail(file, Utf16ToUtf8(DescribeFileError(*failure)));
            failure->Delete();
        }
    }
    if (begins.size() == Names.size()) {
        std::stable_sort(begins.begin(), begins.end(),
                         [](const auto& one, const auto& other) { return one.first < other.first; });
        Names.clear();
        for (auto& [begin, file] : begins) Names.push_back(std::move(file));
    }
    std::stable_partition(Names.begin(), Names.end(),
                          [this](const std::string& file) { return !WithoutRows.contains(file); });
    return status;
}

// That of most files; of a plan that was kept, that of the first file.
const plan::FileKind& JoinedImport::KindToJoin() const {
    const plan::FileKinds& kinds = *Options.Reading.Kinds;
    for (std::size_t i = 0; i < kinds.All.size() && !kinds.AreFound(); ++i) {
        std::vector<std::string> unlike;
        try {
            if (plan::FindPlan(PathFromNative(Names.front()), {{kinds.All[i]}, kinds.PlanFile}, unlike))
                return kinds.All[i];
        } catch (CFileException* failure) {
            failure->Delete();
        }
    }
    return plan::MostCommon(kinds);
}

JoinedImport::Outcome JoinedImport::Attempt() {
    Files.clear();
    Guess.reset();
    Total = {};
    Total.Begun = true;
    MessagesKept = 0;
    UsualStep = 0;
    Status = ExitDone;
    Sink = NewSink(Names.front());
    const std::size_t kept = Options.KeepSamples ? KeepAll : Options.Samples.value_or(0);
    Joined = std::make_unique<store::JoinedDevice>(kept, Sink);
    for (const std::string& file : Names) {
        if (WithoutRows.contains(file)) {
            Files.push_back({file, 0, {}, {}, MessageList(0)});
            continue;
        }
        const Outcome outcome = ImportPart(file);
        if (outcome != Outcome::Done) return outcome;
    }
    if (Joined->Device() == nullptr) {
        Fail(Names.front(), Phrase("no file has a row"));
        return Outcome::Failed;
    }
    Joined->Finish();
    IsComplete = true;
    return Outcome::Done;
}

JoinedImport::Outcome JoinedImport::ImportPart(const std::string& file) {
    const std::u16string path = PathFromNative(file);
    ProgressLine progress(file);
    ReadingOptions wanted = Options.Reading;
    wanted.Kinds = Kinds.All.empty() ? nullptr : &Kinds;
    wanted.Copies = Copies;
    FileReading reading(Module, file, Common, wanted, [&](std::uint32_t percent) {
        if (Options.OnProgress) Options.OnProgress();
        progress.Show(percent);
    });
    if (IsWidened(reading)) return Outcome::Again;
    RunOptions options = MakeRunOptions(Common, Options, progress);
    options.KeepMessages =
        Common.Json && Options.Messages > MessagesKept ? Options.Messages - MessagesKept : 0;
    options.Sink = Sink;
    options.Joined = Joined.get();
    options.Reading = reading.Automatic();
    const plan::ReadingPlan* const plan = reading.Automatic()->Plan();
    if (plan != nullptr && plan->Times && plan->Times->Recipe.RollsOver) Joined->AllowDays();
    HostSession session(Module, path, std::move(options));
    const RunResult result = session.Run();
    if (result.Interrupted || reading.Automatic()->IsInterrupted()) return Outcome::Interrupted;
    if (reading.TakesCopy()) {
        Copies = true;
        IsWidened(reading);
        return Outcome::Again;
    }
    progress.Clear();
    const store::JoinedPart part = Joined->EndRun();
    const store::SampleOrigin origin = session.Origin();
    std::string reason = Joined->WhyUnlike();
    if (reason.empty()) reason = FailureText(path, result, session);
    if (reason.empty()) reason = reading.Automatic()->WhyUnread();
    if (reason.empty()) reason = WhyNotJoined(part, origin.IsRelative);
    if (!reason.empty()) {
        Fail(file, reason);
        return Outcome::Failed;
    }
    Status = WorseStatus(Status, reading.WithComplaints(ExitDone));
    if (Files.empty() && reading.Guess() != nullptr) Guess = *reading.Guess();
    AddOrigin(origin);
    Total.Lines += result.Lines;
    MessagesKept += session.Messages().Kept().size();
    AddPart({file, result.Lines, part, {}, session.Messages()}, StepOf(plan, part));
    return Outcome::Done;
}

// A copy of the file has shown cells for which the types of the kind are too narrow.
bool JoinedImport::IsWidened(FileReading& reading) {
    const plan::CopyResult* const copy = reading.Automatic()->Copy();
    if (copy == nullptr || Kinds.All.empty()) return false;
    return plan::WidenTypes(Kinds.All.front(), *reading.Automatic()->Plan(), copy->Cells);
}

std::string JoinedImport::WhyNotJoined(const store::JoinedPart& part, bool isRelative) const {
    if (!Files.empty() && isRelative != Origin.IsRelative)
        return Phrase("of this file and the ones before some have times of a calendar and others don't");
    if (isRelative && part.LeftOut > 0)
        return Phrase(
            "its times begin before the end of the file before, and nothing says when it was measured");
    return {};
}

void JoinedImport::AddPart(JoinedFile part, std::int64_t usualStep) {
    const auto before =
        std::find_if(Files.rbegin(), Files.rend(), [](const JoinedFile& one) { return one.Part.Rows > 0; });
    UsualStep = std::max(UsualStep, usualStep);
    if (before != Files.rend() && part.Part.Rows > 0 && UsualStep > 0) {
        const std::int64_t gap = part.Part.FirstTime - before->Part.LastTime;
        if (gap / 2 > UsualStep) part.Gap = gap;
    }
    Files.push_back(std::move(part));
}

// Settings and moment of the first file, the size of all.
void JoinedImport::AddOrigin(const store::SampleOrigin& origin) {
    if (Files.empty()) {
        Origin = origin;
        return;
    }
    Origin.SourceSize += origin.SourceSize;
    Origin.IsCopied |= origin.IsCopied;
}

ImportDocument JoinedImport::Document() const {
    ImportDocument document{
        Names.front(), Total, Joined->Device(), {}, Options.Samples, Guess ? &*Guess : nullptr};
    for (const JoinedFile& file : Files) document.Messages.push_back(&file.Messages);
    return document;
}
}  // namespace kelvarin::cli
