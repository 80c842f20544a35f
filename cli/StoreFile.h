// The file that an import fills with samples.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "host/HostSession.h"
#include "host/store/SampleFile.h"

namespace kelvarin::cli {

// Fills a sample file from the runs over all source files, and reports on standard error what went wrong.
// Without a path it does nothing.
class StoreFile {
  public:
    explicit StoreFile(std::string path) : Path(std::move(path)) {}

    // False if the file can't be written.
    bool Open();

    // For a run; null without a path.
    store::DeviceSink* BeginRun();

    // Takes the run's device into the file if `isDone`. False if the file can't be written any more.
    bool EndRun(const HostSession& session, bool isDone);

    // Puts the file in its place; it then holds the runs that were done. False if there is none.
    bool Finish();

    // Leaves what was there as it was.
    void Abandon();

  private:
    bool Fail(const std::string& reason);

    const std::string Path;
    std::unique_ptr<store::SampleFile> File;
    std::size_t Runs = 0;
    std::size_t Kept = 0;
};

}  // namespace kelvarin::cli
