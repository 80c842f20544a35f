#include "host/ranges/RangeWorker.h"

#include <limits>

#include "contract/GuidedReading.h"

namespace kelvarin::ranges {
RangeWorker::RangeWorker(std::unique_ptr<CImportFilter> filter, IRelativeTimeContext& times,
                         store::StoredDevice& whole, const plan::RunGuide* guide,
                         const std::atomic<bool>* cancel, std::size_t mostMessages)
    : Whole(whole),
      Cancel(cancel),
      MostMessages(mostMessages),
      Filter(std::move(filter)),
      Reading(Filter->Find<IRangeReading>()) {
    Filter->DeviceHost = this;
    Filter->TimeContext = &times;
    IGuidedReading* const guided = Filter->Find<IGuidedReading>();
    if (guide == nullptr || guided == nullptr) return;
    Asked.emplace(guide->ForRange());
    guided->FollowGuide(&*Asked);
}

RangeWorker::~RangeWorker() = default;

bool RangeWorker::Follow(IRangeReading& leader) {
    return Reading != nullptr && Reading->Follow(leader);
}

void RangeWorker::KeepRecord() {
    if (IObservedRun* const run = Filter->Find<IObservedRun>()) run->ObserveRun(&Told);
}

CDevice* RangeWorker::CreateDevice(std::u16string, const char16_t*, int) {
    Part = Whole.MakePart();
    return Part.get();
}

void RangeWorker::BeGuidedAs(const plan::RunGuide* guide) {
    if (Asked) Asked.emplace(guide->ForRange());
}

void RangeWorker::Import(const RunState& assumed) {
    constexpr std::uint32_t Unset = std::numeric_limits<std::uint32_t>::max();
    Assumed = assumed;
    Imported = {};
    MessageBytes = 0;
    Told.Clear();
    Part->Clear();
    Reading->BeginRange(assumed);
    std::uint32_t progress = Unset;
    std::uint32_t noted = Unset;
    for (bool more = true; more;) {
        if (Cancel != nullptr && *Cancel) {
            Imported.Interrupted = true;
            return;
        }
        more = Filter->ImportNextLine(&progress);
        const bool anyFailure = CollectMessages();
        if (MessageBytes > MostMessages || Told.Bytes() > MostMessages) {
            Imported.HasTooMany = true;
            return;
        }
        if (progress != noted) Imported.Progress.push_back(noted = progress);
        if (more) {
            ++Imported.Lines;
        } else {
            Imported.Failed = anyFailure;
        }
    }
    Part->Close();
}

bool RangeWorker::CollectMessages() {
    if (!Filter->HasMessages()) return false;
    bool anyFailure = false;
    for (ImportMessage& message : Filter->TakeMessages()) {
        anyFailure |= message.Failure;
        MessageBytes += sizeof message + message.Text.size() * sizeof(char16_t);
        Imported.Messages.emplace_back(Imported.Lines, std::move(message));
    }
    return anyFailure;
}

bool RangeWorker::IsConfirmed(const RunState& truth, const plan::RunGuide* guide) const {
    if (Assumed.Line != truth.Line || Assumed.BlankLines != truth.BlankLines ||
        Assumed.FirstRowTime != truth.FirstRowTime || Assumed.Units != truth.Units)
        return false;
    if (Asked && !guide->Confirms(*Asked)) return false;
    if (Assumed.LastTime == truth.LastTime) return true;
    // A later last time changes nothing for rows that are later still: not even the day on which a time
    // without a date is.
    const RangeTimes times = Reading->GetRangeTimes();
    return Assumed.LastTime < truth.LastTime && !times.DropsFirst &&
           (!times.FirstStored || *times.FirstStored > truth.LastTime);
}

RunState RangeWorker::StateAfter(const RunState& truth) const {
    RunState state = Reading->GetState();
    if (!Reading->GetRangeTimes().FirstStored) state.LastTime = truth.LastTime;
    return state;
}

std::unique_ptr<store::StoredDevice> RangeWorker::End() {
    Filter->EndImport();
    Filter.reset();
    return std::move(Part);
}
}  // namespace kelvarin::ranges
