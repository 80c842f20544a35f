#include "cli/many/CopyPool.h"

#include <algorithm>
#include <chrono>
#include <iostream>
#include <thread>

#include "cli/Complaints.h"
#include "cli/ExitStatus.h"
#include "host/language/Phrase.h"
#include "platform/framework/ChildProcess.h"
#include "platform/framework/Terminal.h"

namespace kelvarin::cli {

namespace {

// Small shares spread uneven files; to start a copy costs some milliseconds.
constexpr std::size_t SharesPerJob = 4;
constexpr std::size_t LargestShare = 16;
constexpr std::chrono::milliseconds Pause(5);

void Pass(std::FILE* from, std::ostream& to) {
    char block[65536];
    while (const std::size_t count = std::fread(block, 1, sizeof block, from))
        to.write(block, static_cast<std::streamsize>(count));
    to.flush();
}

std::string ReadAll(std::FILE* file) {
    std::string text;
    char block[4096];
    while (const std::size_t count = std::fread(block, 1, sizeof block, file)) text.append(block, count);
    return text;
}

}  // namespace

CopyPool::CopyPool(std::vector<std::string> arguments, std::size_t jobs)
    : Arguments(std::move(arguments)), Jobs(jobs) {}

CopyPool::~CopyPool() = default;

int CopyPool::Run(const std::vector<std::string>& files, Tally& tally) {
    const std::size_t size = std::clamp<std::size_t>(files.size() / (SharesPerJob * Jobs), 1, LargestShare);
    for (std::size_t begin = 0; begin < files.size(); begin += size) {
        const auto from = files.begin() + static_cast<std::ptrdiff_t>(begin);
        const auto count = static_cast<std::ptrdiff_t>(std::min(size, files.size() - begin));
        Shares.emplace_back().Files.assign(from, from + count);
    }
    int status = ExitDone;
    bool interrupted = false;
    std::size_t next = 0, passed = 0;
    while (passed < Shares.size()) {
        if (WasInterrupted() && !interrupted) {
            interrupted = true;
            for (Share& share : Shares) {
                if (share.Copy) share.Copy->Interrupt();
            }
            Shares.resize(next);
            continue;
        }
        while (!interrupted && next < Shares.size() && CountRunning() < Jobs)
            Start(Shares[next++], status, tally);
        while (passed < next && (!Shares[passed].Copy || Shares[passed].Copy->HasEnded()))
            PassOn(Shares[passed++], status, tally);
        std::this_thread::sleep_for(Pause);
    }
    return interrupted ? ExitInterrupted : status;
}

void CopyPool::Start(Share& share, int& status, Tally& tally) {
    std::vector<std::string> arguments = Arguments;
    arguments.push_back("--");  // a name may begin with a dash
    arguments.insert(arguments.end(), share.Files.begin(), share.Files.end());
    share.Copy = std::make_unique<ChildProcess>();
    std::string reason;
    if (share.Copy->Start(arguments, reason)) return;
    share.Copy.reset();
    for (const std::string& file : share.Files) {
        ComplainAbout(file, Phrase("no process could be started: {}", reason));
        tally.Failed.push_back(file);
    }
    tally.Files += share.Files.size();
    status = WorseStatus(status, ExitFileFailed);
}

void CopyPool::PassOn(Share& share, int& status, Tally& tally) {
    if (!share.Copy) return;
    Pass(share.Copy->Output(), std::cout);
    std::string complaints = ReadAll(share.Copy->Errors());
    Tally own = TakeTally(complaints);
    std::cerr << complaints << std::flush;
    const int ended = share.Copy->Status();
    share.Copy.reset();
    constexpr int FirstUnusual = 4;
    if (own.Files < share.Files.size() && ended != ExitInterrupted) {
        // A crash must not hide the files that it took along.
        for (std::size_t i = own.Files; i < share.Files.size(); ++i) {
            ComplainAbout(share.Files[i], Phrase("its process ended with status {}", ended));
            own.Failed.push_back(share.Files[i]);
        }
        own.Files = share.Files.size();
    }
    tally.Add(own);
    const bool isUnusual = ended >= FirstUnusual && ended != ExitInterrupted;
    status = WorseStatus(status, isUnusual ? int{ExitFileFailed} : ended);
}

std::size_t CopyPool::CountRunning() {
    return static_cast<std::size_t>(std::count_if(
        Shares.begin(), Shares.end(), [](Share& share) { return share.Copy && !share.Copy->HasEnded(); }));
}

}  // namespace kelvarin::cli
