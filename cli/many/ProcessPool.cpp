#include "cli/many/ProcessPool.h"

#include <algorithm>
#include <chrono>
#include <iostream>
#include <memory>
#include <string_view>
#include <thread>

#include "cli/Complaints.h"
#include "host/language/Phrase.h"
#include "platform/framework/ChildProcess.h"
#include "platform/framework/StandardStreams.h"
#include "platform/framework/Terminal.h"

namespace kelvarin::cli {
namespace {
// Small shares spread uneven files; to start a process costs some milliseconds.
constexpr std::size_t SharesPerJob = 4;
constexpr std::size_t LargestShare = 16;
constexpr std::chrono::milliseconds Pause(5);

// Reads the file from its start. False if not all of it can be read.
template <class Take>
bool ReadBlocks(std::FILE* from, const Take& take) {
    std::rewind(from);
    char block[65536];
    while (const std::size_t count = std::fread(block, 1, sizeof block, from))
        take(std::string_view(block, count));
    return std::ferror(from) == 0;
}

// The bytes up to the end of the last whole line.
std::uint64_t BytesOfLines(std::FILE* from) {
    std::uint64_t read = 0;
    std::uint64_t whole = 0;
    ReadBlocks(from, [&](std::string_view block) {
        const std::size_t end = block.rfind('\n');
        if (end != block.npos) whole = read + end + 1;
        read += block.size();
    });
    return whole;
}

// A run of neighbouring files for one process.
struct Share {
    std::vector<std::string> Files;
    std::unique_ptr<ChildProcess> Process;  // null before its start and once its output has been passed on

    bool IsRunning() const { return Process && !Process->HasEnded(); }
};

class ProcessPool {
  public:
    ProcessPool(const std::vector<std::string>& arguments, FilesSummary& summary)
        : Arguments(arguments), Summary(summary) {}

    void Deal(const std::vector<std::string>& files, std::size_t jobs) {
        const std::size_t size =
            std::clamp<std::size_t>(files.size() / (SharesPerJob * jobs), 1, LargestShare);
        for (std::size_t i = 0; i < files.size(); ++i) {
            if (i % size == 0) Shares.emplace_back();
            Shares.back().Files.push_back(files[i]);
        }
    }

    int Run(std::size_t jobs) {
        std::size_t next = 0;
        std::size_t passed = 0;
        bool isInterrupted = false;
        while (passed < Shares.size()) {
            if (!isInterrupted && (WasInterrupted() || FlushOutput() == OutputState::ReaderGone)) {
                isInterrupted = true;
                for (Share& share : Shares) {
                    if (share.Process) share.Process->Interrupt();
                }
                Shares.resize(next);
                continue;
            }
            const auto running = std::count_if(Shares.begin(), Shares.end(),
                                               [](const Share& share) { return share.IsRunning(); });
            for (auto free = jobs - static_cast<std::size_t>(running); free > 0; --free) {
                if (next < Shares.size()) Start(Shares[next++]);
            }
            while (passed < next && !Shares[passed].IsRunning()) PassOn(Shares[passed++]);
            std::this_thread::sleep_for(Pause);
        }
        return isInterrupted ? ExitInterrupted : Status;
    }

  private:
    void Start(Share& share) {
        std::vector<std::string> arguments = Arguments;
        arguments.push_back("--");  // a name may begin with a dash
        arguments.insert(arguments.end(), share.Files.begin(), share.Files.end());
        auto process = std::make_unique<ChildProcess>();
        std::string reason;
        if (process->Start(arguments, reason)) {
            share.Process = std::move(process);
        } else {
            Summary.Add(Lose(share, 0, Phrase("no process could be started: {}", reason)));
        }
    }

    void PassOn(Share& share) {
        if (!share.Process) return;
        std::string messages;
        ReadBlocks(share.Process->Errors(), [&](std::string_view block) { messages += block; });
        FilesSummary own = TakeSummary(messages);
        // A process that ended in the middle of a report has left half a line.
        std::uint64_t rest = own.Files != 0 ? ~std::uint64_t{0} : BytesOfLines(share.Process->Output());
        const bool isRead = ReadBlocks(share.Process->Output(), [&](std::string_view block) {
            const std::string_view passed = block.substr(0, rest);
            std::cout.write(passed.data(), static_cast<std::streamsize>(passed.size()));
            rest -= passed.size();
        });
        if (!isRead) own = {};  // which reports are missing is unknown
        std::cout.flush();
        std::cerr << messages << std::flush;
        Summary.Add(own);
        const int ended = share.Process->Status();
        share.Process.reset();
        constexpr int FirstUnusual = 4;
        const bool isUnusual = ended >= FirstUnusual && ended != ExitInterrupted;
        Status = WorseStatus(Status, isUnusual ? int{ExitFileFailed} : ended);
        // A crash must not hide the files that it took along.
        if (own.Files < share.Files.size() && ended != ExitInterrupted)
            Summary.Add(Lose(share, own.Files, Phrase("its process ended with status {}", ended)));
    }

    // Counts the files of a share from `first` on as failed.
    FilesSummary Lose(const Share& share, std::size_t first, const std::string& reason) {
        FilesSummary lost;
        lost.Files = share.Files.size() - first;
        lost.Failed.assign(share.Files.begin() + static_cast<std::ptrdiff_t>(first), share.Files.end());
        for (const std::string& file : lost.Failed) ComplainAbout(file, reason);
        Status = WorseStatus(Status, ExitFileFailed);
        return lost;
    }

    const std::vector<std::string>& Arguments;
    FilesSummary& Summary;
    std::vector<Share> Shares;
    int Status = ExitDone;
};
}  // namespace

int RunInProcesses(const std::vector<std::string>& arguments, std::size_t jobs,
                   const std::vector<std::string>& files, FilesSummary& summary) {
    ProcessPool pool(arguments, summary);
    pool.Deal(files, jobs);
    return pool.Run(jobs);
}
}  // namespace kelvarin::cli
